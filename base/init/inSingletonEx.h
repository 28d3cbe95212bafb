#pragma once
// Misuse of a singleton that has explicit creation and destruction steps.

#include <orn/base/except/exBase.h>

namespace Orn {

class InSingletonEx : public ExBase {
public:
  using ExBase::ExBase;
  InSingletonEx* clone() const override = 0;
  [[noreturn]] void raise() const override = 0;

  class ExNotInitialized;
  class ExAlreadyInitialized;
  class ExAlreadyDestroyed;
};

// The instance is used or destroyed before it was created.
class InSingletonEx::ExNotInitialized : public InSingletonEx {
public:
  ExNotInitialized(char const* file, int line, char const* typeName);
  ORN_EX_CONCRETE(ExNotInitialized)
};

// The instance is created a second time while alive.
class InSingletonEx::ExAlreadyInitialized : public InSingletonEx {
public:
  ExAlreadyInitialized(char const* file, int line, char const* typeName);
  ORN_EX_CONCRETE(ExAlreadyInitialized)
};

// The instance is used, created or destroyed after its destruction.
class InSingletonEx::ExAlreadyDestroyed : public InSingletonEx {
public:
  ExAlreadyDestroyed(char const* file, int line, char const* typeName);
  ORN_EX_CONCRETE(ExAlreadyDestroyed)
};

}  // namespace Orn
