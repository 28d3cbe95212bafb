#pragma once
// Named mutual-exclusion lock. Header-only, so that the base library may use it without a link
// dependency on the resource management library.

#include <mutex>
#include <string>

namespace Orn {

class LkLock {
public:
  explicit LkLock(char const* name) : _name(name ? name : "") {}
  LkLock(LkLock const&) = delete;
  LkLock& operator=(LkLock const&) = delete;

  // Blocks until the lock is taken. Returns true when this call took the lock; unlock() is to be
  // called only in that case.
  bool lock() {
    _mutex.lock();
    return true;
  }
  // Takes the lock only when it is free; returns whether it did.
  bool tryLock() { return _mutex.try_lock(); }
  void unlock() { _mutex.unlock(); }

  char const* getName() const { return _name.c_str(); }

  // Holds a lock for the life of a scope.
  class Guard {
  public:
    explicit Guard(LkLock& lock) : _lock(lock), _locked(lock.lock()) {}
    Guard(Guard const&) = delete;
    Guard& operator=(Guard const&) = delete;
    ~Guard() { release(); }
    // Unlocks before the end of the scope.
    void release() {
      if (_locked) {
        _locked = false;
        _lock.unlock();
      }
    }

  private:
    LkLock& _lock;
    bool _locked;
  };

private:
  std::string _name;
  std::mutex _mutex;
};

}  // namespace Orn
