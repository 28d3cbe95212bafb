#pragma once
// A set of packages, ordered by their dependencies, whose steps it runs.
//
// The order is a topological order of the dependency graph. Among the packages whose
// dependencies are all placed, the one with the smallest name goes first, so the order does not
// depend on the order in which libraries were loaded.
//
// initialize() runs, per package in that order: preInitialize, initialize, then the attached
// variables. If any of them raises, everything already started is cleaned up in reverse order
// (failures of that clean-up are dropped) and the exception propagates; the registry is then not
// initialised. A package whose preInitialize or initialize raised gets no clean-up step.
//
// finalize() runs the clean-up in exactly the reverse order: the package's variables in reverse,
// its clean-up step, postFinalize. It goes on past a failure and raises the first one at the end.

#include <exception>
#include <mutex>
#include <string>
#include <vector>

namespace Orn {

class InPackageInit;
class InVariableBase;

class InPackageRegistry {
public:
  InPackageRegistry();
  InPackageRegistry(InPackageRegistry const&) = delete;
  InPackageRegistry& operator=(InPackageRegistry const&) = delete;
  // Detaches the packages still in the registry; runs no clean-up.
  ~InPackageRegistry();

  // A package is in at most one registry at a time.
  void add(InPackageInit* package);
  // Removing a package that is initialised forgets it without running its clean-up.
  void remove(InPackageInit* package);
  bool contains(InPackageInit const* package) const;
  std::size_t getNbPackages() const;

  // The order in which initialize() would run the packages. Raises InEx::ExUnknownDependency,
  // InEx::ExDuplicatePackage or InEx::ExDependencyCycle.
  std::vector<InPackageInit*> computeOrder() const;

  // Does nothing when already initialised.
  void initialize();
  // Does nothing when not initialised.
  void finalize();
  bool isInitialized() const;

  // Names of the packages whose initialisation step ran in the latest initialize(), in order.
  std::vector<std::string> getInitializationOrder() const;

private:
  friend class InPackageInit;

  // A package whose initialisation step has run, with the variables initialised after it.
  struct Started {
    InPackageInit* package;
    std::vector<InVariableBase*> variables;
  };

  void variableRemoved(InPackageInit* package, InVariableBase* variable);
  void cleanUp(Started& started, std::exception_ptr& firstFailure);

  mutable std::recursive_mutex _lock;
  std::vector<InPackageInit*> _packages;
  std::vector<Started> _started;
  std::vector<std::string> _initializationOrder;
  bool _initialized;
  bool _running;
};

}  // namespace Orn
