#pragma once
// Shared private engine behind a handle class, with copy on write. Reads go to the shared engine;
// getMutable() first makes the engine private to this handle, cloning it through its virtual
// clone() when it is shared, so a handle is always the only writer of what it changes.
//
// T derives from RCBase and has `T* clone() const` (possibly covariant).

#include <orn/base/rc/rcShdPtr.h>

#include <ostream>
#include <type_traits>

namespace Orn {

template <class T>
class RCPvtEngPtr {
public:
  RCPvtEngPtr() : _pointee(nullptr) {}
  RCPvtEngPtr(T* engine) : _pointee(engine) { retain(_pointee); }
  RCPvtEngPtr(RCPvtEngPtr const& other) : _pointee(other._pointee) { retain(_pointee); }
  RCPvtEngPtr(RCPvtEngPtr&& other) noexcept : _pointee(other._pointee) { other._pointee = nullptr; }
  template <class U, class = std::enable_if_t<std::is_convertible_v<U*, T*>>>
  RCPvtEngPtr(RCPvtEngPtr<U> const& other) : _pointee(other.getShared()) {
    retain(_pointee);
  }
  ~RCPvtEngPtr() { release(_pointee); }

  // The new engine is retained before the old one is released.
  RCPvtEngPtr& operator=(RCPvtEngPtr const& other) { return assign(other._pointee); }
  RCPvtEngPtr& operator=(RCPvtEngPtr&& other) noexcept {
    if (this != &other) {
      T* old = _pointee;
      _pointee = other._pointee;
      other._pointee = nullptr;
      release(old);
    }
    return *this;
  }
  RCPvtEngPtr& operator=(T* engine) { return assign(engine); }

  bool isNull() const { return _pointee == nullptr; }
  explicit operator bool() const { return _pointee != nullptr; }

  // Read access to the shared engine.
  T const* operator->() const {
    checkNotNull();
    return _pointee;
  }
  T const& operator*() const { return *operator->(); }
  T const* get() const { return _pointee; }

  // Write access: the engine is cloned first unless this handle is its only owner.
  T* getMutable() {
    checkNotNull();
    if (_pointee->getRefCount() != 1) {
      T* copy = _pointee->clone();
      if (!copy) RCExUtil::throwExNullPtr(typeNameOf<T>().c_str());
      assign(copy);
    }
    return _pointee;
  }

  // The engine without copy on write, for handles that share it on purpose.
  T* getShared() const { return _pointee; }

  // Same text as RCBasePtr<T>::dump.
  void dump(std::ostream& out) const { RCBasePtr<T>::dumpPointer(out, _pointee); }

  friend bool operator==(RCPvtEngPtr const& a, RCPvtEngPtr const& b) { return a._pointee == b._pointee; }

private:
  RCPvtEngPtr& assign(T* engine) {
    if (engine != _pointee) {
      retain(engine);
      T* old = _pointee;
      _pointee = engine;
      release(old);
    }
    return *this;
  }
  void checkNotNull() const {
    if (!_pointee) RCExUtil::throwExNullPtr(typeNameOf<T>().c_str());
  }
  static void retain(T* p) {
    if (p) p->addReference();
  }
  static void release(T* p) {
    if (p) p->removeReference();
  }

  T* _pointee;
};

}  // namespace Orn
