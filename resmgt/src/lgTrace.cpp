#include <orn/resmgt/lgTrace.h>

#include <orn/resmgt/trace.h>

#include <iostream>
#include <mutex>

namespace Orn {

namespace {

struct Output {
  std::mutex lock;
  std::ostream* stream = nullptr;
};

Output& output() {
  static Output instance;
  return instance;
}

}  // namespace

void LgTrace::print(char const* message) {
  if (!Trace::isEnabled(Trace::MainTraceLevel)) return;
  Output& o = output();
  std::lock_guard<std::mutex> guard(o.lock);
  std::ostream& out = o.stream ? *o.stream : std::cerr;
  out << (message ? message : "") << '\n';
  out.flush();
}

std::ostream* LgTrace::setStream(std::ostream* out) {
  Output& o = output();
  std::lock_guard<std::mutex> guard(o.lock);
  std::ostream* previous = o.stream ? o.stream : &std::cerr;
  o.stream = out;
  return previous;
}

}  // namespace Orn
