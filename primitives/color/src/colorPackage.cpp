#include <orn/base/init/inInit.h>

namespace Orn {

template <>
std::type_info const& InInit<OrnInit::color>::getType() {
  return typeid(InInit<OrnInit::color>);
}

template <>
InInit<OrnInit::color>::InInit() : InPackageInit("color") {
  registerPackage();
  addDependency(&InInit<OrnInit::base>::getType());
}

// Colour conversions need no tables: nothing to set up.
template <>
void InInit<OrnInit::color>::initialize() {}

template <>
void InInit<OrnInit::color>::finalize() {}

namespace {
InInit<OrnInit::color> colorPackage;
}

}  // namespace Orn
