#pragma once
// Lazily created, thread-safe singleton of T, never resurrected: once destroyed, getInstance()
// returns null for the rest of the program. T must be default-constructible by LkSingleton<T>.
//
// States: UNINITIALIZED until the first getInstance(), INITIALIZED until destroy(), then DESTROYED.

#include <orn/base/except/assertions.h>
#include <orn/resmgt/lkLock.h>

#include <atomic>

namespace Orn {

class LkSingletonStates {
public:
  enum State { UNINITIALIZED = 0, INITIALIZED = 1, DESTROYED = 2 };

  // "UNINITIALIZED", "INITIALIZED", "DESTROYED"; null for any other value.
  static char const* getStateName(State state) {
    switch (state) {
      case UNINITIALIZED: return "UNINITIALIZED";
      case INITIALIZED: return "INITIALIZED";
      case DESTROYED: return "DESTROYED";
    }
    return nullptr;
  }
};

template <class T>
class LkSingleton : public LkSingletonStates {
public:
  LkSingleton() = delete;

  // The instance, created on first use; null once destroyed. The fast path is one read of the
  // state; creation is serialised by the init lock.
  static T* getInstance() {
    if (_state.load(std::memory_order_acquire) != UNINITIALIZED) return _pointee.load(std::memory_order_acquire);
    LkLock* lock = installLock(_initLock, "LkSingleton init lock");
    LockHolder held(lock);
    if (_state == INITIALIZED) return _pointee;
    ORN_ASSERT(_state == UNINITIALIZED);
    T* pointee = new T;
    ORN_ASSERT(pointee);
    _pointee.store(pointee, std::memory_order_release);
    _state.store(INITIALIZED, std::memory_order_release);
    return pointee;
  }

  static State getState() { return _state.load(std::memory_order_acquire); }
  static char const* getStateName() { return LkSingletonStates::getStateName(getState()); }

  // The pointee is null exactly when the state is not INITIALIZED; an unknown state aborts.
  static void checkClassInvariants() {
    switch (_state.load()) {
      case UNINITIALIZED:
      case DESTROYED: ORN_ASSERT(_pointee == 0); break;
      case INITIALIZED: ORN_ASSERT(_pointee != 0); break;
      default: ORN_ABORT("LkSingleton: invalid state");
    }
  }

  // Deletes the instance, if any, and makes the state DESTROYED for good, under the final lock.
  static void destroy() {
    LkLock* lock = installLock(_finalLock, "LkSingletonDestroyer final lock");
    LockHolder held(lock);
    // The steps end even when the destructor raises (the memory is freed all the same).
    struct Finish {
      bool clearPointee = false;
      ~Finish() {
        if (clearPointee) _pointee.store(nullptr, std::memory_order_release);
        _state.store(DESTROYED, std::memory_order_release);
      }
    } finish;
    if (_state == INITIALIZED) {
      finish.clearPointee = true;
      delete _pointee.load();
    }
  }

private:
  class LockHolder {
  public:
    explicit LockHolder(LkLock* lock) : _lock(lock), _locked(lock->lock()) {}
    LockHolder(LockHolder const&) = delete;
    LockHolder& operator=(LockHolder const&) = delete;
    ~LockHolder() {
      if (_locked) _lock->unlock();
    }

  private:
    LkLock* _lock;
    bool _locked;
  };

  // Creates the lock on first need and installs it by compare-and-swap; the loser of a race
  // deletes its own lock. Locks live as long as the program.
  static LkLock* installLock(std::atomic<LkLock*>& slot, char const* name) {
    LkLock* lock = slot.load(std::memory_order_acquire);
    if (lock) return lock;
    LkLock* mine = new LkLock(name);
    LkLock* expected = nullptr;
    if (slot.compare_exchange_strong(expected, mine, std::memory_order_acq_rel)) return mine;
    delete mine;
    return expected;
  }

  static inline std::atomic<LkLock*> _initLock{nullptr};
  static inline std::atomic<LkLock*> _finalLock{nullptr};
  static inline std::atomic<State> _state{UNINITIALIZED};
  static inline std::atomic<T*> _pointee{nullptr};
};

}  // namespace Orn
