#pragma once
// Reporting of failed conditions and of unreachable code.

#include <orn/base/except/exBase.h>

#include <string>

namespace Orn {

class AssertionsEx : public ExBase {
public:
  using ExBase::ExBase;
  AssertionsEx* clone() const override = 0;
  [[noreturn]] void raise() const override = 0;

  class ExAssertionFailed;
  class ExProgramAborted;
};

class AssertionsEx::ExAssertionFailed : public AssertionsEx {
public:
  ExAssertionFailed(char const* file, int line, char const* condition);
  // The condition as written in the source.
  char const* getCondition() const { return _condition.c_str(); }
  ORN_EX_CONCRETE(ExAssertionFailed)

private:
  std::string _condition;
};

class AssertionsEx::ExProgramAborted : public AssertionsEx {
public:
  ExProgramAborted(char const* file, int line, char const* message);
  // The message, empty when none was given.
  char const* getMessage() const { return _message.c_str(); }
  ORN_EX_CONCRETE(ExProgramAborted)

private:
  std::string _message;
};

class Assertions {
public:
  [[noreturn]] static void throwAssertionFailed(char const* file, int line, char const* condition);
  // Control reached a place that must be unreachable; message may be null.
  [[noreturn]] static void throwProgramAborted(char const* file, int line, char const* message);
};

}  // namespace Orn

// Checks a condition; the failure carries the condition's source text.
#define ORN_ASSERT(cond)                                                                  \
  do {                                                                                    \
    if (!(cond)) ::Orn::Assertions::throwAssertionFailed(__FILE__, __LINE__, #cond);      \
  } while (0)

// The same with the reported text given explicitly.
#define ORN_ASSERT_TEXT(cond, text)                                                       \
  do {                                                                                    \
    if (!(cond)) ::Orn::Assertions::throwAssertionFailed(__FILE__, __LINE__, text);       \
  } while (0)

#define ORN_ABORT(message) ::Orn::Assertions::throwProgramAborted(__FILE__, __LINE__, message)
