#pragma once
// Base of every shared object: a virtual destructor and one reference count. Counter is
// LkCounter<int> (atomic) for objects that may cross threads, plain int for single-thread objects.

#include <orn/base/rc/lkCounter.h>

namespace Orn {

template <class Counter = LkCounter<int>>
class RCBase {
public:
  RCBase() : _refCount(0) {}
  // A copy is a new object: its count starts at 0.
  RCBase(RCBase const&) : _refCount(0) {}
  RCBase& operator=(RCBase const&) { return *this; }
  virtual ~RCBase() = default;

  void addReference() const { ++_refCount; }
  // Drops one reference and destroys the object, in this thread, when it was the last.
  void removeReference() const {
    if (--_refCount == 0) delete this;
  }
  int getRefCount() const { return int(_refCount); }

private:
  mutable Counter _refCount;
};

}  // namespace Orn
