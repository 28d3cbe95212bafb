#pragma once
// Line-oriented trace output. Messages are written, one per line, to the trace stream (standard
// error unless redirected) when Trace::MainTraceLevel is enabled, and dropped otherwise.

#include <ostream>

namespace Orn {

class LgTrace {
public:
  static void print(char const* message);
  // Redirects the output; null restores standard error. Returns the previous stream.
  static std::ostream* setStream(std::ostream* out);
};

}  // namespace Orn
