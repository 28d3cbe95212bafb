#include <orn/base/init/inInit.h>

namespace Orn {

template <>
std::type_info const& InInit<OrnInit::geometry>::getType() {
  return typeid(InInit<OrnInit::geometry>);
}

template <>
InInit<OrnInit::geometry>::InInit() : InPackageInit("geometry") {
  registerPackage();
  addDependency(&InInit<OrnInit::base>::getType());
}

// Curve fitting and simplification are stateless: nothing to set up.
template <>
void InInit<OrnInit::geometry>::initialize() {}

template <>
void InInit<OrnInit::geometry>::finalize() {}

namespace {
InInit<OrnInit::geometry> geometryPackage;
}

}  // namespace Orn
