#pragma once
// Singleton with explicit creation and destruction steps, run by a package's start-up and clean-up.
// Unlike a lazily created singleton it reports misuse by exception:
//   getInstance before create  -> InSingletonEx::ExNotInitialized
//   create while alive         -> InSingletonEx::ExAlreadyInitialized
//   anything after destroy     -> InSingletonEx::ExAlreadyDestroyed (a destroyed instance never comes back)
//   destroy before create      -> InSingletonEx::ExNotInitialized

#include <orn/base/init/inSingletonEx.h>
#include <orn/base/rc/rcEx.h>

#include <atomic>
#include <mutex>

namespace Orn {

template <class T>
class InSingleton {
public:
  enum State { UNINITIALIZED = 0, INITIALIZED = 1, DESTROYED = 2 };

  // The live instance. The fast path is one atomic read of the state.
  static T& getInstance() {
    int const state = _state.load(std::memory_order_acquire);
    if (state != INITIALIZED) throwForState(state, __LINE__);
    return *_pointee;
  }

  static void create() {
    std::lock_guard<std::mutex> guard(_lock);
    int const state = _state.load(std::memory_order_relaxed);
    if (state == INITIALIZED) {
      throw InSingletonEx::ExAlreadyInitialized(__FILE__, __LINE__, typeNameOf<T>().c_str());
    }
    if (state == DESTROYED) throwForState(state, __LINE__);
    _pointee = new T;
    _state.store(INITIALIZED, std::memory_order_release);
  }

  static void destroy() {
    std::lock_guard<std::mutex> guard(_lock);
    int const state = _state.load(std::memory_order_relaxed);
    if (state != INITIALIZED) throwForState(state, __LINE__);
    _state.store(DESTROYED, std::memory_order_release);
    T* pointee = _pointee;
    _pointee = nullptr;
    delete pointee;
  }

  static State getState() { return State(_state.load(std::memory_order_acquire)); }

private:
  [[noreturn]] static void throwForState(int state, int line) {
    if (state == DESTROYED) throw InSingletonEx::ExAlreadyDestroyed(__FILE__, line, typeNameOf<T>().c_str());
    throw InSingletonEx::ExNotInitialized(__FILE__, line, typeNameOf<T>().c_str());
  }

  inline static std::atomic<int> _state{UNINITIALIZED};
  inline static T* _pointee = nullptr;
  inline static std::mutex _lock;
};

}  // namespace Orn
