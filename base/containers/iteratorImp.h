#pragma once
// Engine of an Iterator: a ConstIteratorImp whose item may also be written.

#include <orn/base/containers/constIteratorImp.h>

namespace Orn {

template <class T>
class IteratorImp : public ConstIteratorImp<T> {
public:
  // The element at the current position, writable; raises IteratorEx::ExOutOfRange at the end.
  // Writing the element changes the range, not the position, hence const.
  virtual T& writableItem() const = 0;
  IteratorImp<T>* clone() const override = 0;
};

}  // namespace Orn
