#pragma once
// Engine of an empty range: at its beginning and at its end at once.

#include <orn/base/containers/constIteratorImp.h>
#include <orn/base/containers/iteratorEx.h>

namespace Orn {

template <class T>
class ConstIteratorEmpty : public ConstIteratorImp<T> {
public:
  bool compare(ConstIteratorImp<T> const& other) const override {
    return dynamic_cast<ConstIteratorEmpty<T> const*>(&other) != nullptr;
  }
  T const& item() const override { throw IteratorEx::ExOutOfRange(__FILE__, __LINE__); }
  void first() override {}
  void last() override {}
  void end() override {}
  bool atEnd() const override { return true; }
  bool atBegin() const override { return true; }
  void next() override { throw IteratorEx::ExOutOfRange(__FILE__, __LINE__); }
  void previous() override { throw IteratorEx::ExOutOfRange(__FILE__, __LINE__); }
  unsigned int getCardinality() const override { return 0; }
  ConstIteratorEmpty<T>* clone() const override { return new ConstIteratorEmpty<T>(); }
};

}  // namespace Orn
