#pragma once
// Diagnostic tracing, off unless asked for.
//
// A TraceLevel is enabled when its value is at most the current threshold. The threshold is 0
// unless set by Trace::setThreshold or, on first use, by the environment variable ORN_TRACE_LEVEL;
// every level has a value of at least 1, so nothing is traced by default.
//
//   if (Trace::isEnabled(Trace::MainTraceLevel)) Trace::log(std::cerr, __FILE__, __LINE__) << "text\n";

#include <ostream>
#include <string>

namespace Orn {

class TraceLevel {
public:
  // value is at least 1.
  TraceLevel(char const* name, int value);
  std::string const& getName() const { return _name; }
  int getValue() const { return _value; }

private:
  std::string _name;
  int _value;
};

class Trace {
public:
  // General messages, value 1.
  static TraceLevel const MainTraceLevel;
  // Detailed messages, value 2.
  static TraceLevel const DetailTraceLevel;

  static bool isEnabled(TraceLevel const& level);
  // Writes "file:line: " and returns the stream for the message.
  static std::ostream& log(std::ostream& out, char const* file, int line);

  static int getThreshold();
  static void setThreshold(int threshold);
  // Re-reads ORN_TRACE_LEVEL.
  static void resetThreshold();
};

}  // namespace Orn
