#pragma once
// Base of every package object. A package states the packages it needs by the type of their
// package class (InInit<Tag>::getType()) and registers itself with the start-up service.

#include <orn/base/init/inPackageInitBase.h>

#include <string>
#include <typeinfo>
#include <vector>

namespace Orn {

class InPackageRegistry;

class InPackageInit : public InPackageInitBase {
public:
  explicit InPackageInit(char const* name);
  InPackageInit(InPackageInit const&) = delete;
  InPackageInit& operator=(InPackageInit const&) = delete;
  // Leaves the registry the package is in, if any.
  ~InPackageInit() override;

  void addDependency(InVariableBase* variable) override;
  void removeDependency(InVariableBase* variable) override;
  char const* getName() const override;
  void preInitialize() override;
  void postFinalize() override;

  // The package classes this package needs, in the order they were stated.
  std::vector<std::type_info const*> const& getDependencies() const { return _dependencies; }
  // The attached variables, in the order they were attached.
  std::vector<InVariableBase*> const& getVariables() const { return _variables; }
  // The registry the package is in, null when none.
  InPackageRegistry* getRegistry() const { return _registry; }

protected:
  // States that this package needs the package whose class has the given type.
  void addDependency(std::type_info const* packageType);
  // Adds this package to the start-up service's registry.
  void registerPackage();

private:
  friend class InPackageRegistry;

  std::string _name;
  std::vector<std::type_info const*> _dependencies;
  std::vector<InVariableBase*> _variables;
  InPackageRegistry* _registry;
};

}  // namespace Orn
