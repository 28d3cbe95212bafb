#pragma once
// Sole owner of a heap object. Copying or passing by value moves the ownership and leaves the
// source empty; the pointee is deleted at the end of the owner's life.

#include <orn/base/rc/oPtrBase.h>

#include <type_traits>

namespace Orn {

template <class T>
class OPtr : public OPtrBase<T> {
public:
  using OPtrBase<T>::release;
  using OPtrBase<T>::reset;

  OPtr() : OPtrBase<T>(nullptr) {}
  // Takes ownership of pointee.
  OPtr(T* pointee) : OPtrBase<T>(pointee) {}
  // Ownership transfers: the source is left empty.
  OPtr(OPtr& other) : OPtrBase<T>(other.release()) {}
  OPtr(OPtr&& other) noexcept : OPtrBase<T>(other.release()) {}
  template <class U, class = std::enable_if_t<std::is_convertible_v<U*, T*>>>
  OPtr(OPtr<U>& other) : OPtrBase<T>(other.release()) {}
  template <class U, class = std::enable_if_t<std::is_convertible_v<U*, T*>>>
  OPtr(OPtr<U>&& other) : OPtrBase<T>(other.release()) {}

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
};

}  // namespace Orn
