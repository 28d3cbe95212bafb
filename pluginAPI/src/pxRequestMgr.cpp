#include <orn/pluginAPI/pxRequestMgr.h>

#include <atomic>
#include <memory>
#include <mutex>

namespace Orn {

namespace {

// The hook is swapped under a mutex; polls with no hook installed cost one atomic load.
struct PollHook {
  std::mutex mutex;
  std::shared_ptr<std::function<void()> const> hook;
  std::atomic<bool> installed{false};
};

PollHook& pollHook() {
  static PollHook instance;
  return instance;
}

}  // namespace

PxRequestMgr& PxRequestMgr::getInstance() {
  static PxRequestMgr instance;
  return instance;
}

void PxRequestMgr::poll() {
  PollHook& state = pollHook();
  if (!state.installed.load(std::memory_order_acquire)) return;
  std::shared_ptr<std::function<void()> const> hook;
  {
    std::lock_guard<std::mutex> lock(state.mutex);
    hook = state.hook;
  }
  if (hook) (*hook)();
}

void PxRequestMgr::setPollHook(std::function<void()> hook) {
  PollHook& state = pollHook();
  std::lock_guard<std::mutex> lock(state.mutex);
  if (hook) {
    state.hook = std::make_shared<std::function<void()> const>(std::move(hook));
    state.installed.store(true, std::memory_order_release);
  } else {
    state.hook.reset();
    state.installed.store(false, std::memory_order_release);
  }
}

}  // namespace Orn
