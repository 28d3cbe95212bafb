#include <orn/base/init/inInit.h>

namespace Orn {

template <>
std::type_info const& InInit<OrnInit::random>::getType() {
  return typeid(InInit<OrnInit::random>);
}

template <>
InInit<OrnInit::random>::InInit() : InPackageInit("random") {
  registerPackage();
  addDependency(&InInit<OrnInit::resmgt>::getType());
  addDependency(&InInit<OrnInit::base>::getType());
}

// The random generators are plain values seeded by their users: nothing to set up.
template <>
void InInit<OrnInit::random>::initialize() {}

template <>
void InInit<OrnInit::random>::finalize() {}

namespace {
InInit<OrnInit::random> randomPackage;
}

}  // namespace Orn
