#pragma once
// Interface of a package: a named unit with an initialisation and a clean-up step that the
// start-up service runs in dependency order.

namespace Orn {

class InVariableBase;

class InPackageInitBase {
public:
  virtual ~InPackageInitBase();

  // Attaches a variable that is initialised after this package's step (see InVariableBase).
  virtual void addDependency(InVariableBase* variable) = 0;
  virtual void removeDependency(InVariableBase* variable) = 0;
  virtual char const* getName() const = 0;

  // Hooks run just before the initialisation step and just after the clean-up step.
  virtual void preInitialize() = 0;
  virtual void postFinalize() = 0;

  // The package's own steps.
  virtual void initialize() = 0;
  virtual void finalize() = 0;

  // Told by the start-up service whether the package is currently initialised.
  virtual void setInitialized(bool initialized) = 0;
};

}  // namespace Orn
