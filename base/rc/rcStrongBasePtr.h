#pragma once
// Shared pointer to a value with no count of its own: the pointee and a separate count block.
// The block's strong count counts the owners of the pointee; the block's own reference count
// keeps the block alive. A handle counts in the strong count exactly when its pointee is not null.

#include <orn/base/rc/rcSWCount.h>
#include <orn/base/rc/rcShdPtr.h>

#include <utility>

namespace Orn {

template <class T, class Counter = LkCounter<int>>
class RCStrongBasePtr {
public:
  using CountPtr = RCShdPtr<RCSWCount<Counter>>;

  bool isNull() const { return _pointee == nullptr; }
  explicit operator bool() const { return _pointee != nullptr; }
  T* get() const { return _pointee; }

  T* operator->() const {
    if (!_pointee) RCExUtil::throwExNullPtr(typeNameOf<T>().c_str());
    return _pointee;
  }
  T& operator*() const { return *operator->(); }

  CountPtr const& getCount() const { return _count; }
  // Number of owners of the pointee, 0 when null.
  int getStrongCount() const { return _pointee ? _count->getStrongCount() : 0; }

  // Nothing happens when both the pointee and the block are the ones held. Otherwise the old
  // strong count is decremented (the old pointee dies at 0), the block is replaced, and a non-null
  // new pointee is counted in the new block, which must then not be null. The old pointee is
  // deleted last, so a pointee that it owns (directly or not) can be assigned safely.
  void assign(T* pointee, CountPtr const& count) {
    if (pointee == _pointee && count == _count) return;
    CountPtr newCount(count);  // count may live inside the old pointee
    T* dead = nullptr;
    if (_pointee && _count->decrementStrongCount() == 0) dead = _pointee;
    _count = std::move(newCount);
    if (pointee) {
      if (_count.isNull()) {
        _pointee = nullptr;
        delete dead;
        RCExUtil::throwExNullPtr(typeNameOf<RCSWCount<Counter>>().c_str());
      }
      _count->incrementStrongCount();
      _pointee = pointee;
    } else {
      _pointee = nullptr;
    }
    delete dead;
  }
  void assign(RCStrongBasePtr const& other) { assign(other._pointee, other._count); }

protected:
  RCStrongBasePtr() : _pointee(nullptr) {}
  RCStrongBasePtr(T* pointee, CountPtr const& count) : _pointee(nullptr) { assign(pointee, count); }
  RCStrongBasePtr(RCStrongBasePtr const& other) : _pointee(nullptr) { assign(other); }
  RCStrongBasePtr& operator=(RCStrongBasePtr const& other) {
    assign(other);
    return *this;
  }
  // Decrements the strong count, deletes the pointee at 0, then releases the block.
  ~RCStrongBasePtr() {
    if (_pointee && _count->decrementStrongCount() == 0) delete _pointee;
  }

private:
  T* _pointee;
  CountPtr _count;
};

}  // namespace Orn
