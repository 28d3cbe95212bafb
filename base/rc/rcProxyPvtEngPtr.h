#pragma once
// Shared plain value with copy on write. Copies of the handle share one RCProxy; reads go to the
// shared value, getMutable() first gives this handle a copy of its own when the value is shared.
// Used to hand out arrays without copying them.

#include <orn/base/rc/rcProxy.h>
#include <orn/base/rc/rcPvtEngPtr.h>

#include <ostream>

namespace Orn {

template <class T>
class RCProxyPvtEngPtr {
public:
  RCProxyPvtEngPtr() = default;
  // Takes ownership of value; a null value gives a null handle.
  RCProxyPvtEngPtr(T* value) : _proxy(value ? new RCProxy<T>(value) : nullptr) {}

  bool isNull() const { return _proxy.isNull(); }
  explicit operator bool() const { return !isNull(); }

  T const* operator->() const {
    checkNotNull();
    return _proxy.get()->getValue();
  }
  T const& operator*() const { return *operator->(); }
  // The shared value, null when the handle is null.
  T const* get() const { return _proxy.isNull() ? nullptr : _proxy.get()->getValue(); }

  // Write access: the value is copied first unless this handle is its only owner.
  T* getMutable() {
    checkNotNull();
    return _proxy.getMutable()->getValue();
  }

  // Same text as RCBasePtr<RCProxy<T>>::dump.
  void dump(std::ostream& out) const { _proxy.dump(out); }

  // True when both handles share one value.
  friend bool operator==(RCProxyPvtEngPtr const& a, RCProxyPvtEngPtr const& b) { return a._proxy == b._proxy; }

private:
  void checkNotNull() const {
    if (_proxy.isNull()) RCExUtil::throwExNullPtr(typeNameOf<T>().c_str());
  }

  RCPvtEngPtr<RCProxy<T>> _proxy;
};

}  // namespace Orn
