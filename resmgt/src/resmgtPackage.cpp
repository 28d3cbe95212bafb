#include <orn/base/init/inInit.h>
#include <orn/base/init/inSingleton.h>
#include <orn/resmgt/liRateRegistry.h>

namespace Orn {

template <>
std::type_info const& InInit<OrnInit::resmgt>::getType() {
  return typeid(InInit<OrnInit::resmgt>);
}

template <>
InInit<OrnInit::resmgt>::InInit() : InPackageInit("resmgt") {
  registerPackage();
  addDependency(&InInit<OrnInit::base>::getType());
}

// Creates the frame-rate registry.
template <>
void InInit<OrnInit::resmgt>::initialize() {
  InSingleton<LiRateRegistry>::create();
}

template <>
void InInit<OrnInit::resmgt>::finalize() {
  InSingleton<LiRateRegistry>::destroy();
}

namespace {
InInit<OrnInit::resmgt> resmgtPackage;
}

}  // namespace Orn
