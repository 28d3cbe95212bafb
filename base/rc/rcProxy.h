#pragma once
// Makes a plain value shareable: an RCBase object owning one heap value, deleted with it.

#include <orn/base/rc/rcBase.h>

namespace Orn {

template <class T>
class RCProxy : public RCBase<LkCounter<int>> {
public:
  // Takes ownership of value.
  explicit RCProxy(T* value) : _value(value) {}
  RCProxy(RCProxy const&) = delete;
  RCProxy& operator=(RCProxy const&) = delete;
  ~RCProxy() override { delete _value; }

  T* getValue() const { return _value; }

  // A new proxy owning a copy of the value (a null value stays null).
  RCProxy* clone() const { return new RCProxy(_value ? new T(*_value) : nullptr); }

private:
  T* _value;
};

}  // namespace Orn
