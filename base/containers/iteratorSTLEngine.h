#pragma once
// Common part of the engines over a standard container (ConstIteratorSTL, IteratorSTL): a holder
// that keeps the container alive, the current position, and bounds checks on every step.

#include <orn/base/containers/iteratorEx.h>
#include <orn/base/rc/rcEx.h>

#include <iterator>
#include <type_traits>

namespace Orn {

// Imp is the engine interface implemented, Derived the concrete engine (for clone and compare).
// IsConst selects const_iterator and a read-only container.
template <class Derived, class Imp, class Container, class Holder, class Accessor, bool IsConst>
class IteratorSTLEngine : public Imp {
public:
  using ContainerRef = std::conditional_t<IsConst, Container const&, Container&>;
  using StlIterator = std::conditional_t<IsConst, typename Container::const_iterator, typename Container::iterator>;

  // Starts at the first element. A null holder raises RCEx::ExNullPtr.
  explicit IteratorSTLEngine(Holder const& holder) : _holder(checked(holder)), _current(container().begin()) {}
  IteratorSTLEngine(Holder const& holder, StlIterator position) : _holder(checked(holder)), _current(position) {}

  template <class ImpT>
  bool compareWith(ImpT const& other) const {
    auto const* o = dynamic_cast<Derived const*>(&other);
    return o && &o->container() == &container() && o->_current == _current;
  }

  void first() override { _current = container().begin(); }
  void last() override {
    _current = container().end();
    if (!container().empty()) --_current;
  }
  void end() override { _current = container().end(); }
  bool atEnd() const override { return _current == container().end(); }
  bool atBegin() const override { return _current == container().begin(); }
  void next() override {
    if (atEnd()) throw IteratorEx::ExOutOfRange(__FILE__, __LINE__);
    ++_current;
  }
  void previous() override {
    if (atBegin()) throw IteratorEx::ExOutOfRange(__FILE__, __LINE__);
    --_current;
  }
  unsigned int getCardinality() const override { return static_cast<unsigned int>(container().size()); }

  ContainerRef container() const { return *_holder; }
  StlIterator getPosition() const { return _current; }

protected:
  // The element at the current position, through the accessor.
  decltype(auto) access() const {
    if (atEnd()) throw IteratorEx::ExOutOfRange(__FILE__, __LINE__);
    return Accessor()(*_current);
  }

private:
  static Holder const& checked(Holder const& holder) {
    if (!holder) RCExUtil::throwExNullPtr(typeNameOf<Container>().c_str());
    return holder;
  }

  Holder _holder;
  StlIterator _current;
};

}  // namespace Orn
