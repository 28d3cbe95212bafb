#include <orn/base/init/inInit.h>

namespace Orn {

template <>
std::type_info const& InInit<OrnInit::viewing>::getType() {
  return typeid(InInit<OrnInit::viewing>);
}

template <>
InInit<OrnInit::viewing>::InInit() : InPackageInit("viewing") {
  registerPackage();
  addDependency(&InInit<OrnInit::scene>::getType());
  addDependency(&InInit<OrnInit::base>::getType());
}

// Views and viewings are plain objects: nothing to set up.
template <>
void InInit<OrnInit::viewing>::initialize() {}

template <>
void InInit<OrnInit::viewing>::finalize() {}

namespace {
InInit<OrnInit::viewing> viewingPackage;
}

}  // namespace Orn
