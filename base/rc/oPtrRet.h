#pragma once
// Sole owner used as the return type of a function that gives away a new object. Same transfer
// semantics as OPtr, and convertible to an OPtr, which then owns the object.

#include <orn/base/rc/oPtr.h>

namespace Orn {

template <class T>
class OPtrRet : public OPtrBase<T> {
public:
  using OPtrBase<T>::release;
  using OPtrBase<T>::reset;

  OPtrRet() : OPtrBase<T>(nullptr) {}
  OPtrRet(T* pointee) : OPtrBase<T>(pointee) {}
  OPtrRet(OPtrRet& other) : OPtrBase<T>(other.release()) {}
  OPtrRet(OPtrRet&& other) noexcept : OPtrBase<T>(other.release()) {}
  template <class U, class = std::enable_if_t<std::is_convertible_v<U*, T*>>>
  OPtrRet(OPtrRet<U>& other) : OPtrBase<T>(other.release()) {}
  template <class U, class = std::enable_if_t<std::is_convertible_v<U*, T*>>>
  OPtrRet(OPtrRet<U>&& other) : OPtrBase<T>(other.release()) {}
  template <class U, class = std::enable_if_t<std::is_convertible_v<U*, T*>>>
  OPtrRet(OPtr<U>& other) : OPtrBase<T>(other.release()) {}
  template <class U, class = std::enable_if_t<std::is_convertible_v<U*, T*>>>
  OPtrRet(OPtr<U>&& other) : OPtrBase<T>(other.release()) {}

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
};

}  // namespace Orn
