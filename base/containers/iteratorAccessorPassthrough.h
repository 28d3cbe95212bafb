#pragma once
// Accessor of the STL iterator engines that returns a stored element as it stands.

namespace Orn {

struct IteratorAccessorPassthrough {
  template <class E>
  E& operator()(E& element) const {
    return element;
  }
};

}  // namespace Orn
