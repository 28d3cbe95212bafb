#include <orn/base/init/inInit.h>

namespace Orn {

template <>
std::type_info const& InInit<OrnInit::sceneObjects>::getType() {
  return typeid(InInit<OrnInit::sceneObjects>);
}

template <>
InInit<OrnInit::sceneObjects>::InInit() : InPackageInit("sceneObjects") {
  registerPackage();
  addDependency(&InInit<OrnInit::scene>::getType());
  addDependency(&InInit<OrnInit::color>::getType());
  addDependency(&InInit<OrnInit::resmgt>::getType());
  addDependency(&InInit<OrnInit::base>::getType());
}

// No shared scene-object data to set up.
template <>
void InInit<OrnInit::sceneObjects>::initialize() {}

template <>
void InInit<OrnInit::sceneObjects>::finalize() {}

namespace {
InInit<OrnInit::sceneObjects> sceneObjectsPackage;
}

}  // namespace Orn
