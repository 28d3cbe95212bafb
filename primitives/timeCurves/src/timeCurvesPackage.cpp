#include <orn/base/init/inInit.h>

namespace Orn {

template <>
std::type_info const& InInit<OrnInit::timeCurves>::getType() {
  return typeid(InInit<OrnInit::timeCurves>);
}

template <>
InInit<OrnInit::timeCurves>::InInit() : InPackageInit("timeCurves") {
  registerPackage();
  addDependency(&InInit<OrnInit::random>::getType());
  addDependency(&InInit<OrnInit::geometry>::getType());
  addDependency(&InInit<OrnInit::viewing>::getType());
  addDependency(&InInit<OrnInit::pluginAPI>::getType());
  addDependency(&InInit<OrnInit::base>::getType());
}

// Keyframes and time curves are plain objects: nothing to set up.
template <>
void InInit<OrnInit::timeCurves>::initialize() {}

template <>
void InInit<OrnInit::timeCurves>::finalize() {}

namespace {
InInit<OrnInit::timeCurves> timeCurvesPackage;
}

}  // namespace Orn
