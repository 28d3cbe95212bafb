#include <orn/base/init/inPackageInit.h>

#include <orn/base/except/assertions.h>
#include <orn/base/init/inInitService.h>
#include <orn/base/init/inPackageRegistry.h>

#include <algorithm>

namespace Orn {

InPackageInit::InPackageInit(char const* name) : _name(name ? name : ""), _registry(nullptr) {}

InPackageInit::~InPackageInit() {
  if (_registry) _registry->remove(this);
}

void InPackageInit::addDependency(InVariableBase* variable) {
  ORN_ASSERT(variable != nullptr);
  _variables.push_back(variable);
}

void InPackageInit::removeDependency(InVariableBase* variable) {
  auto it = std::find(_variables.begin(), _variables.end(), variable);
  if (it == _variables.end()) return;
  _variables.erase(it);
  if (_registry) _registry->variableRemoved(this, variable);
}

char const* InPackageInit::getName() const { return _name.c_str(); }

void InPackageInit::preInitialize() {}

void InPackageInit::postFinalize() {}

void InPackageInit::addDependency(std::type_info const* packageType) {
  ORN_ASSERT(packageType != nullptr);
  _dependencies.push_back(packageType);
}

void InPackageInit::registerPackage() { InInitService::getPackageRegistry().add(this); }

}  // namespace Orn
