#pragma once
// Tells whether the process runs under Valgrind, whose emulated processor does not honour every
// floating-point control setting.

namespace Orn {

class ValgrindHelper {
public:
  static bool isValgrindRunning();
  // Whether a LD_PRELOAD value holds one of Valgrind's preloaded libraries ("vgpreload_...").
  static bool preloadsValgrind(char const* ldPreload);
};

}  // namespace Orn
