#pragma once
// Engine of an empty writable range.

#include <orn/base/containers/iteratorEx.h>
#include <orn/base/containers/iteratorImp.h>

namespace Orn {

template <class T>
class IteratorEmpty : public IteratorImp<T> {
public:
  bool compare(ConstIteratorImp<T> const& other) const override {
    return dynamic_cast<IteratorEmpty<T> const*>(&other) != nullptr;
  }
  T const& item() const override { throw IteratorEx::ExOutOfRange(__FILE__, __LINE__); }
  T& writableItem() const override { throw IteratorEx::ExOutOfRange(__FILE__, __LINE__); }
  void first() override {}
  void last() override {}
  void end() override {}
  bool atEnd() const override { return true; }
  bool atBegin() const override { return true; }
  void next() override { throw IteratorEx::ExOutOfRange(__FILE__, __LINE__); }
  void previous() override { throw IteratorEx::ExOutOfRange(__FILE__, __LINE__); }
  unsigned int getCardinality() const override { return 0; }
  IteratorEmpty<T>* clone() const override { return new IteratorEmpty<T>(); }
};

}  // namespace Orn
