#pragma once
// The point at which a running operator gives control away: pixel loops call poll() after every
// line. A caller may install a hook (for instance to abandon a render by throwing from it).

#include <functional>

namespace Orn {

class PxRequestMgr {
public:
  static PxRequestMgr& getInstance();

  // Calls the installed hook, if any. Safe from any thread; exceptions of the hook pass through.
  void poll();

  // Installs the hook for all threads; an empty function removes it.
  static void setPollHook(std::function<void()> hook);

private:
  PxRequestMgr() = default;
};

}  // namespace Orn
