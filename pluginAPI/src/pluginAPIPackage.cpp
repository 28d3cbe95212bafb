#include <orn/base/init/inInit.h>

namespace Orn {

template <>
std::type_info const& InInit<OrnInit::pluginAPI>::getType() {
  return typeid(InInit<OrnInit::pluginAPI>);
}

template <>
InInit<OrnInit::pluginAPI>::InInit() : InPackageInit("pluginAPI") {
  registerPackage();
  addDependency(&InInit<OrnInit::resmgt>::getType());
  addDependency(&InInit<OrnInit::base>::getType());
}

// Tiles, guards and pixel formats need no shared state: nothing to set up.
template <>
void InInit<OrnInit::pluginAPI>::initialize() {}

template <>
void InInit<OrnInit::pluginAPI>::finalize() {}

namespace {
InInit<OrnInit::pluginAPI> pluginAPIPackage;
}

}  // namespace Orn
