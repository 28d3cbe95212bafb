#include <orn/base/except/assertions.h>

#include <sstream>

namespace Orn {

AssertionsEx::ExAssertionFailed::ExAssertionFailed(char const* file, int line, char const* condition)
    : AssertionsEx(file, line), _condition(condition ? condition : "") {
  std::ostringstream out;
  out << "Assertion failed: " << _condition << " (" << getFile() << ':' << line << ')';
  setReason(out.str().c_str());
}

AssertionsEx::ExProgramAborted::ExProgramAborted(char const* file, int line, char const* message)
    : AssertionsEx(file, line), _message(message ? message : "") {
  std::ostringstream out;
  out << "Program aborted at " << getFile() << ':' << line;
  if (!_message.empty()) out << ": " << _message;
  setReason(out.str().c_str());
}

void Assertions::throwAssertionFailed(char const* file, int line, char const* condition) {
  throw AssertionsEx::ExAssertionFailed(file, line, condition);
}

void Assertions::throwProgramAborted(char const* file, int line, char const* message) {
  throw AssertionsEx::ExProgramAborted(file, line, message);
}

}  // namespace Orn
