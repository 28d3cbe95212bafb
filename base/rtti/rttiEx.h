#pragma once
// Failures of the run-time type registries.

#include <orn/base/except/exBase.h>

namespace Orn {

class RttiEx : public ExBase {
public:
  using ExBase::ExBase;
  RttiEx* clone() const override = 0;
  [[noreturn]] void raise() const override = 0;

  class ExNotFound;
  class ExAlreadyExists;
};

// A type to remove is not registered.
class RttiEx::ExNotFound : public RttiEx {
public:
  ExNotFound(char const* file, int line, char const* typeName);
  ORN_EX_CONCRETE(ExNotFound)
};

// A type is registered under a name already taken.
class RttiEx::ExAlreadyExists : public RttiEx {
public:
  ExAlreadyExists(char const* file, int line, char const* typeName);
  ORN_EX_CONCRETE(ExAlreadyExists)
};

}  // namespace Orn
