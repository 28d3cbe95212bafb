#pragma once
// What the two sole-owner handles share: the owned pointer, access that raises on null, giving the
// pointee away and replacing it. OPtr and OPtrRet add the transfers between handles.

#include <orn/base/rc/rcEx.h>

namespace Orn {

template <class T>
class OPtrBase {
public:
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

protected:
  explicit OPtrBase(T* pointee) : _pointee(pointee) {}
  ~OPtrBase() { delete _pointee; }
  OPtrBase(OPtrBase const&) = delete;
  OPtrBase& operator=(OPtrBase const&) = delete;

private:
  T* _pointee;
};

}  // namespace Orn
