#include <orn/base/init/inInit.h>

namespace Orn {

template <>
std::type_info const& InInit<OrnInit::projectors>::getType() {
  return typeid(InInit<OrnInit::projectors>);
}

template <>
InInit<OrnInit::projectors>::InInit() : InPackageInit("projectors") {
  registerPackage();
  addDependency(&InInit<OrnInit::viewing>::getType());
  addDependency(&InInit<OrnInit::scene>::getType());
  addDependency(&InInit<OrnInit::geometry>::getType());
  addDependency(&InInit<OrnInit::color>::getType());
  addDependency(&InInit<OrnInit::resmgt>::getType());
  addDependency(&InInit<OrnInit::base>::getType());
}

// Projectors are plain objects: nothing to set up.
template <>
void InInit<OrnInit::projectors>::initialize() {}

template <>
void InInit<OrnInit::projectors>::finalize() {}

namespace {
InInit<OrnInit::projectors> projectorsPackage;
}

}  // namespace Orn
