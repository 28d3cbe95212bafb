#include <orn/base/init/inInit.h>

namespace Orn {

template <>
std::type_info const& InInit<OrnInit::image>::getType() {
  return typeid(InInit<OrnInit::image>);
}

template <>
InInit<OrnInit::image>::InInit() : InPackageInit("image") {
  registerPackage();
  addDependency(&InInit<OrnInit::resmgt>::getType());
  addDependency(&InInit<OrnInit::base>::getType());
}

// The image store needs no shared state: nothing to set up.
template <>
void InInit<OrnInit::image>::initialize() {}

template <>
void InInit<OrnInit::image>::finalize() {}

namespace {
InInit<OrnInit::image> imagePackage;
}

}  // namespace Orn
