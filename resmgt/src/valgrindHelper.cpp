#include <orn/resmgt/valgrindHelper.h>

#include <cstdlib>
#include <cstring>

#if defined(__has_include)
#if __has_include(<valgrind/valgrind.h>)
#include <valgrind/valgrind.h>
#define ORN_HAS_VALGRIND_HEADER 1
#endif
#endif

namespace Orn {

bool ValgrindHelper::preloadsValgrind(char const* ldPreload) {
  return ldPreload != nullptr && std::strstr(ldPreload, "vgpreload") != nullptr;
}

bool ValgrindHelper::isValgrindRunning() {
#ifdef ORN_HAS_VALGRIND_HEADER
  if (RUNNING_ON_VALGRIND) return true;
#endif
  // Valgrind preloads its own libraries into the client through LD_PRELOAD.
  return preloadsValgrind(std::getenv("LD_PRELOAD"));
}

}  // namespace Orn
