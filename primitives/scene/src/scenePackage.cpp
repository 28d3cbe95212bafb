#include <orn/base/init/inInit.h>

namespace Orn {

template <>
std::type_info const& InInit<OrnInit::scene>::getType() {
  return typeid(InInit<OrnInit::scene>);
}

template <>
InInit<OrnInit::scene>::InInit() : InPackageInit("scene") {
  registerPackage();
  addDependency(&InInit<OrnInit::geometry>::getType());
  addDependency(&InInit<OrnInit::color>::getType());
  addDependency(&InInit<OrnInit::image>::getType());
  addDependency(&InInit<OrnInit::resmgt>::getType());
  addDependency(&InInit<OrnInit::pluginAPI>::getType());
  addDependency(&InInit<OrnInit::base>::getType());
}

// No shared scene data to set up.
template <>
void InInit<OrnInit::scene>::initialize() {}

template <>
void InInit<OrnInit::scene>::finalize() {}

namespace {
InInit<OrnInit::scene> scenePackage;
}

}  // namespace Orn
