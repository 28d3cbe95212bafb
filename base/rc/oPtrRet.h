#pragma once
// Sole owner used as the return type of a function that gives away a new object. Same transfer
// semantics as OPtr, and convertible to an OPtr, which then owns the object.

#include <orn/base/rc/oPtr.h>

namespace Orn {

template <class T>
class OPtrRet {
public:
  OPtrRet() : _pointee(nullptr) {}
  OPtrRet(T* pointee) : _pointee(pointee) {}
  OPtrRet(OPtrRet& other) : _pointee(other.release()) {}
  OPtrRet(OPtrRet&& other) noexcept : _pointee(other.release()) {}
  template <class U, class = std::enable_if_t<std::is_convertible_v<U*, T*>>>
  OPtrRet(OPtrRet<U>& other) : _pointee(other.release()) {}
  template <class U, class = std::enable_if_t<std::is_convertible_v<U*, T*>>>
  OPtrRet(OPtrRet<U>&& other) : _pointee(other.release()) {}
  template <class U, class = std::enable_if_t<std::is_convertible_v<U*, T*>>>
  OPtrRet(OPtr<U>& other) : _pointee(other.release()) {}
  template <class U, class = std::enable_if_t<std::is_convertible_v<U*, T*>>>
  OPtrRet(OPtr<U>&& other) : _pointee(other.release()) {}
  ~OPtrRet() { delete _pointee; }

  OPtrRet& operator=(OPtrRet& other) {
    if (this != &other) reset(other.release());
    return *this;
  }
  OPtrRet& operator=(OPtrRet&& other) noexcept {
    if (this != &other) reset(other.release());
    return *this;
  }

  // The OPtr takes the object; this handle is left empty.
  template <class U, class = std::enable_if_t<std::is_convertible_v<T*, U*>>>
  operator OPtr<U>() {
    return OPtr<U>(release());
  }

  bool isNull() const { return _pointee == nullptr; }
  explicit operator bool() const { return _pointee != nullptr; }
  T* get() const { return _pointee; }

  T* operator->() const {
    if (!_pointee) RCExUtil::throwExNullPtr(typeNameOf<T>().c_str());
    return _pointee;
  }
  T& operator*() const { return *operator->(); }

  T* release() {
    T* pointee = _pointee;
    _pointee = nullptr;
    return pointee;
  }
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
