#pragma once
// Shared pointer to a value with no RCBase, e.g. an array shared between meshes.

#include <orn/base/rc/rcSWBase.h>
#include <orn/base/rc/rcStrongBasePtr.h>

#include <type_traits>
#include <typeinfo>

namespace Orn {

template <class T>
class RCStrongPtr : public RCStrongBasePtr<T, LkCounter<int>> {
  using Base = RCStrongBasePtr<T, LkCounter<int>>;

public:
  using typename Base::CountPtr;

  RCStrongPtr() = default;
  // Takes ownership of pointee. A pointee that carries its own count block (RCSWBase) uses it,
  // so separate handles made from the same raw pointer share one strong count; any other pointee
  // gets a new block.
  RCStrongPtr(T* pointee) : Base(pointee, makeCount(pointee)) {}
  RCStrongPtr(T* pointee, CountPtr const& count) : Base(pointee, count) {}
  RCStrongPtr(RCStrongPtr const& other) = default;
  template <class U, class = std::enable_if_t<std::is_convertible_v<U*, T*>>>
  RCStrongPtr(RCStrongPtr<U> const& other) : Base(other.get(), other.getCount()) {}

  RCStrongPtr& operator=(RCStrongPtr const& other) = default;

  void reset() { this->assign(nullptr, CountPtr()); }

  // Handle of another type sharing this one's block; a failed cast of a non-null pointee raises
  // ExCastFailed.
  template <class U>
  RCStrongPtr<U> dynamicCast() const {
    T* pointee = this->get();
    if (!pointee) return RCStrongPtr<U>();
    U* cast = dynamic_cast<U*>(pointee);
    if (!cast)
      RCExUtil::throwExCastFailed(demangleTypeName(typeid(*pointee).name()).c_str(), typeNameOf<U>().c_str());
    return RCStrongPtr<U>(cast, this->getCount());
  }

  friend bool operator==(RCStrongPtr const& a, RCStrongPtr const& b) { return a.get() == b.get(); }

private:
  static CountPtr makeCount(T* pointee) {
    if (!pointee) return CountPtr();
    if constexpr (std::is_base_of_v<RCSWBase<LkCounter<int>>, std::remove_cv_t<T>>)
      return pointee->getCounter();
    else
      return CountPtr(new RCSWCount<LkCounter<int>>());
  }
};

}  // namespace Orn
