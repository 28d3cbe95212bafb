#pragma once
// Failures of the package start-up service.

#include <orn/base/except/exBase.h>

#include <string>

namespace Orn {

class InEx : public ExBase {
public:
  using ExBase::ExBase;
  InEx* clone() const override = 0;
  [[noreturn]] void raise() const override = 0;

  class ExUnknownDependency;
  class ExDependencyCycle;
  class ExDuplicatePackage;
};

// A package names a dependency that no registered package provides.
class InEx::ExUnknownDependency : public InEx {
public:
  ExUnknownDependency(char const* file, int line, char const* packageName, char const* dependencyType);
  ORN_EX_CONCRETE(ExUnknownDependency)
};

// The dependencies of the listed packages form a cycle.
class InEx::ExDependencyCycle : public InEx {
public:
  ExDependencyCycle(char const* file, int line, std::string const& packageNames);
  ORN_EX_CONCRETE(ExDependencyCycle)
};

// Two registered packages have the same package class.
class InEx::ExDuplicatePackage : public InEx {
public:
  ExDuplicatePackage(char const* file, int line, char const* packageName);
  ORN_EX_CONCRETE(ExDuplicatePackage)
};

}  // namespace Orn
