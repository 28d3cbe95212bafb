#pragma once
// Engine of a ConstIterator: a position in a range of T, shared between iterator handles until
// one of them moves (copy on write through clone()).

#include <orn/base/rc/rcBase.h>

namespace Orn {

template <class T>
class ConstIteratorImp : public RCBase<LkCounter<int>> {
public:
  ~ConstIteratorImp() override = default;

  // True when both engines are at the same position of the same range.
  virtual bool compare(ConstIteratorImp<T> const& other) const = 0;
  // The element at the current position; raises IteratorEx::ExOutOfRange at the end.
  virtual T const& item() const = 0;
  // Move to the first element, the last element, or past the last element.
  virtual void first() = 0;
  virtual void last() = 0;
  virtual void end() = 0;
  virtual bool atEnd() const = 0;
  virtual bool atBegin() const = 0;
  // Step forward or back; stepping outside the range raises IteratorEx::ExOutOfRange.
  virtual void next() = 0;
  virtual void previous() = 0;
  // Number of elements of the range.
  virtual unsigned int getCardinality() const = 0;
  // A new engine at the same position.
  virtual ConstIteratorImp<T>* clone() const = 0;
};

}  // namespace Orn
