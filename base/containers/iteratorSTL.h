#pragma once
// Engine of an Iterator over a standard container, with writable items. Holder is a plain pointer
// to the container (kept alive by the caller) or an RCStrongPtr to it.

#include <orn/base/containers/iterator.h>
#include <orn/base/containers/iteratorAccessorPassthrough.h>
#include <orn/base/containers/iteratorSTLEngine.h>
#include <orn/base/rc/rcStrongPtr.h>

#include <functional>
#include <type_traits>

namespace Orn {

template <class Container, class Holder = Container*, class Accessor = IteratorAccessorPassthrough>
class IteratorSTL
    : public IteratorSTLEngine<
          IteratorSTL<Container, Holder, Accessor>,
          IteratorImp<std::remove_cvref_t<std::invoke_result_t<Accessor const&, typename Container::value_type&>>>,
          Container, Holder, Accessor, false> {
  using Engine = IteratorSTLEngine<
      IteratorSTL, IteratorImp<std::remove_cvref_t<std::invoke_result_t<Accessor const&, typename Container::value_type&>>>,
      Container, Holder, Accessor, false>;

public:
  using Item = std::remove_cvref_t<std::invoke_result_t<Accessor const&, typename Container::value_type&>>;
  using Engine::Engine;

  bool compare(ConstIteratorImp<Item> const& other) const override { return this->compareWith(other); }
  Item const& item() const override { return this->access(); }
  Item& writableItem() const override { return this->access(); }
  IteratorSTL* clone() const override { return new IteratorSTL(*this); }
};

// Writable iterator over a container that the caller keeps alive for the iterator's life.
template <class Container>
Iterator<typename Container::value_type> makeIterator(Container& container) {
  return Iterator<typename Container::value_type>(new IteratorSTL<Container>(&container));
}

// Writable iterator sharing the ownership of a container.
template <class Container>
Iterator<typename Container::value_type> makeIterator(RCStrongPtr<Container> const& container) {
  return Iterator<typename Container::value_type>(new IteratorSTL<Container, RCStrongPtr<Container>>(container));
}

}  // namespace Orn
