#pragma once
// Shared pointer to an RCBase object.

#include <orn/base/rc/rcBase.h>
#include <orn/base/rc/rcEx.h>

#include <functional>
#include <ostream>
#include <type_traits>
#include <typeinfo>

namespace Orn {

template <class T>
class RCBasePtr {
public:
  bool isNull() const { return _pointee == nullptr; }
  T* get() const { return _pointee; }

  T* operator->() const {
    if (!_pointee) RCExUtil::throwExNullPtr(typeNameOf<T>().c_str());
    return _pointee;
  }
  T& operator*() const { return *operator->(); }

  explicit operator bool() const { return _pointee != nullptr; }

  // "Pointee type = <dynamic type>, T type = <static type>, ref: <count>, pointer:<address>,
  // RCBase pointer: <address as base>".
  void dump(std::ostream& out) const { dumpPointer(out, _pointee); }

  // The text of dump() for any pointee of static type T; other handles share it.
  static void dumpPointer(std::ostream& out, T const* pointee) {
    out << "Pointee type = " << (pointee ? demangleTypeName(typeid(*pointee).name()) : std::string("null"))
        << ", T type = " << typeNameOf<T>() << ", ref: " << (pointee ? pointee->getRefCount() : 0)
        << ", pointer:" << static_cast<void const*>(pointee)
        << ", RCBase pointer: " << static_cast<void const*>(asBase(pointee));
  }

protected:
  RCBasePtr() : _pointee(nullptr) {}
  explicit RCBasePtr(T* pointee) : _pointee(pointee) {}

  template <class C>
  static void const* asBase(RCBase<C> const* p) {
    return p;
  }

  T* _pointee;
};

template <class T>
class RCShdPtr : public RCBasePtr<T> {
  using RCBasePtr<T>::_pointee;

public:
  RCShdPtr() = default;
  RCShdPtr(T* pointee) : RCBasePtr<T>(pointee) { retain(); }
  RCShdPtr(RCShdPtr const& other) : RCBasePtr<T>(other._pointee) { retain(); }
  RCShdPtr(RCShdPtr&& other) noexcept : RCBasePtr<T>(other._pointee) { other._pointee = nullptr; }
  template <class U, class = std::enable_if_t<std::is_convertible_v<U*, T*>>>
  RCShdPtr(RCShdPtr<U> const& other) : RCBasePtr<T>(other.get()) {
    retain();
  }
  ~RCShdPtr() { release(_pointee); }

  // The new pointee is retained before the old one is released, so assigning an object over
  // the handle that is its last owner is safe.
  RCShdPtr& operator=(RCShdPtr const& other) { return assign(other._pointee); }
  RCShdPtr& operator=(RCShdPtr&& other) noexcept {
    if (this != &other) {
      T* old = _pointee;
      _pointee = other._pointee;
      other._pointee = nullptr;
      release(old);
    }
    return *this;
  }
  RCShdPtr& operator=(T* pointee) { return assign(pointee); }

  void reset() { assign(nullptr); }

  // Cast to a handle of another type; a failed cast of a non-null pointee raises ExCastFailed.
  template <class U>
  RCShdPtr<U> dynamicCast() const {
    if (!_pointee) return RCShdPtr<U>();
    U* cast = dynamic_cast<U*>(_pointee);
    if (!cast)
      RCExUtil::throwExCastFailed(demangleTypeName(typeid(*_pointee).name()).c_str(), typeNameOf<U>().c_str());
    return RCShdPtr<U>(cast);
  }

  friend bool operator==(RCShdPtr const& a, RCShdPtr const& b) { return a._pointee == b._pointee; }
  friend bool operator<(RCShdPtr const& a, RCShdPtr const& b) { return std::less<T*>()(a._pointee, b._pointee); }

private:
  RCShdPtr& assign(T* pointee) {
    if (pointee != _pointee) {
      if (pointee) pointee->addReference();
      T* old = _pointee;
      _pointee = pointee;
      release(old);
    }
    return *this;
  }
  void retain() {
    if (_pointee) _pointee->addReference();
  }
  static void release(T* p) {
    if (p) p->removeReference();
  }
};

}  // namespace Orn
