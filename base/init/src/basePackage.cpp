#include <orn/base/init/inInit.h>

namespace Orn {

template <>
std::type_info const& InInit<OrnInit::base>::getType() {
  return typeid(InInit<OrnInit::base>);
}

template <>
InInit<OrnInit::base>::InInit() : InPackageInit("base") {
  registerPackage();
}

// The base layer has nothing to set up: its services start on first use.
template <>
void InInit<OrnInit::base>::initialize() {}

template <>
void InInit<OrnInit::base>::finalize() {}

namespace {
InInit<OrnInit::base> basePackage;
}

}  // namespace Orn
