#include <orn/resmgt/trace.h>

#include <orn/base/except/assertions.h>
#include <orn/resmgt/envIntVar.h>

#include <atomic>
#include <climits>

namespace Orn {

namespace {

constexpr int unread = INT_MIN;

std::atomic<int>& threshold() {
  static std::atomic<int> value{unread};
  return value;
}

int readThreshold() {
  static EnvIntVar const variable("ORN_TRACE_LEVEL", "Highest trace level written (0: none)", 0);
  return variable.getValue();
}

}  // namespace

TraceLevel::TraceLevel(char const* name, int value) : _name(name ? name : ""), _value(value) {
  ORN_ASSERT(value >= 1);
}

TraceLevel const Trace::MainTraceLevel("Main", 1);
TraceLevel const Trace::DetailTraceLevel("Detail", 2);

bool Trace::isEnabled(TraceLevel const& level) { return level.getValue() <= getThreshold(); }

std::ostream& Trace::log(std::ostream& out, char const* file, int line) {
  return out << (file ? file : "?") << ':' << line << ": ";
}

int Trace::getThreshold() {
  int value = threshold().load(std::memory_order_relaxed);
  if (value == unread) {
    value = readThreshold();
    int expected = unread;
    // A concurrent setThreshold wins over the environment.
    if (!threshold().compare_exchange_strong(expected, value)) value = expected;
  }
  return value;
}

void Trace::setThreshold(int value) {
  if (value == unread) value = unread + 1;
  threshold().store(value, std::memory_order_relaxed);
}

void Trace::resetThreshold() { threshold().store(readThreshold(), std::memory_order_relaxed); }

}  // namespace Orn
