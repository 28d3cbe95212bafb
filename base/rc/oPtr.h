#pragma once
// Sole owner of a heap object. Copying or passing by value moves the ownership and leaves the
// source empty; the pointee is deleted at the end of the owner's life.

#include <orn/base/rc/rcEx.h>

#include <type_traits>

namespace Orn {

template <class T>
class OPtr {
public:
  OPtr() : _pointee(nullptr) {}
  // Takes ownership of pointee.
  OPtr(T* pointee) : _pointee(pointee) {}
  // Ownership transfers: the source is left empty.
  OPtr(OPtr& other) : _pointee(other.release()) {}
  OPtr(OPtr&& other) noexcept : _pointee(other.release()) {}
  template <class U, class = std::enable_if_t<std::is_convertible_v<U*, T*>>>
  OPtr(OPtr<U>& other) : _pointee(other.release()) {}
  template <class U, class = std::enable_if_t<std::is_convertible_v<U*, T*>>>
  OPtr(OPtr<U>&& other) : _pointee(other.release()) {}
  ~OPtr() { delete _pointee; }

  OPtr& operator=(OPtr& other) {
    if (this != &other) reset(other.release());
    return *this;
  }
  OPtr& operator=(OPtr&& other) noexcept {
    if (this != &other) reset(other.release());
    return *this;
  }
  template <class U, class = std::enable_if_t<std::is_convertible_v<U*, T*>>>
  OPtr& operator=(OPtr<U>& other) {
    reset(other.release());
    return *this;
  }
  template <class U, class = std::enable_if_t<std::is_convertible_v<U*, T*>>>
  OPtr& operator=(OPtr<U>&& other) {
    reset(other.release());
    return *this;
  }

  bool isNull() const { return _pointee == nullptr; }
  explicit operator bool() const { return _pointee != nullptr; }
  T* get() const { return _pointee; }

  T* operator->() const {
    if (!_pointee) RCExUtil::throwExNullPtr(typeNameOf<T>().c_str());
    return _pointee;
  }
  T& operator*() const { return *operator->(); }

  // Gives the pointee away; the handle is left empty.
  T* release() {
    T* pointee = _pointee;
    _pointee = nullptr;
    return pointee;
  }
  // Deletes the current pointee, unless it is the new one, and owns the new one.
  void reset(T* pointee = nullptr) {
    if (pointee != _pointee) {
      T* old = _pointee;
      _pointee = pointee;
      delete old;
    }
  }

private:
  T* _pointee;
};

}  // namespace Orn
