#include <orn/base/init/inInit.h>

namespace Orn {

template <>
std::type_info const& InInit<OrnInit::formats>::getType() {
  return typeid(InInit<OrnInit::formats>);
}

template <>
InInit<OrnInit::formats>::InInit() : InPackageInit("formats") {
  registerPackage();
  addDependency(&InInit<OrnInit::resmgt>::getType());
  addDependency(&InInit<OrnInit::base>::getType());
}

// No format data to set up.
template <>
void InInit<OrnInit::formats>::initialize() {}

template <>
void InInit<OrnInit::formats>::finalize() {}

namespace {
InInit<OrnInit::formats> formatsPackage;
}

}  // namespace Orn
