#pragma once
// Engine of a ConstIterator over a standard container. Holder keeps the container alive: a plain
// pointer to a constant container (the caller keeps it alive) or an RCStrongPtr to it (shared
// ownership). Accessor maps a stored element to the item returned.

#include <orn/base/containers/constIterator.h>
#include <orn/base/containers/iteratorAccessorPassthrough.h>
#include <orn/base/containers/iteratorSTLEngine.h>
#include <orn/base/rc/rcStrongPtr.h>

#include <functional>
#include <type_traits>
#include <utility>

namespace Orn {

// Type of the items of an engine over Container through Accessor.
template <class Container, class Accessor>
using IteratorAccessorResult =
    std::remove_cvref_t<std::invoke_result_t<Accessor const&, typename Container::value_type const&>>;

template <class Container, class Holder = Container const*, class Accessor = IteratorAccessorPassthrough>
class ConstIteratorSTL
    : public IteratorSTLEngine<ConstIteratorSTL<Container, Holder, Accessor>,
                               ConstIteratorImp<IteratorAccessorResult<Container, Accessor>>, Container, Holder,
                               Accessor, true> {
  using Engine = IteratorSTLEngine<ConstIteratorSTL, ConstIteratorImp<IteratorAccessorResult<Container, Accessor>>,
                                   Container, Holder, Accessor, true>;

public:
  using Item = IteratorAccessorResult<Container, Accessor>;
  using Engine::Engine;

  bool compare(ConstIteratorImp<Item> const& other) const override { return this->compareWith(other); }
  Item const& item() const override { return this->access(); }
  ConstIteratorSTL* clone() const override { return new ConstIteratorSTL(*this); }
};

// Iterator over a container that the caller keeps alive for the iterator's life.
template <class Container>
ConstIterator<typename Container::value_type> makeConstIterator(Container const& container) {
  return ConstIterator<typename Container::value_type>(new ConstIteratorSTL<Container>(&container));
}

// Iterator that owns a container given as an rvalue.
template <class Container, class = std::enable_if_t<!std::is_lvalue_reference_v<Container>>>
ConstIterator<typename Container::value_type> makeConstIterator(Container&& container) {
  RCStrongPtr<Container const> holder(new Container(std::move(container)));
  return ConstIterator<typename Container::value_type>(
      new ConstIteratorSTL<Container, RCStrongPtr<Container const>>(holder));
}

// Iterator sharing the ownership of a container.
template <class Container>
ConstIterator<typename Container::value_type> makeConstIterator(RCStrongPtr<Container const> const& container) {
  return ConstIterator<typename Container::value_type>(
      new ConstIteratorSTL<Container, RCStrongPtr<Container const>>(container));
}

}  // namespace Orn
