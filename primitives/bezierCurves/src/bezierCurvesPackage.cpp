#include <orn/base/init/inInit.h>

namespace Orn {

template <>
std::type_info const& InInit<OrnInit::bezierCurves>::getType() {
  return typeid(InInit<OrnInit::bezierCurves>);
}

template <>
InInit<OrnInit::bezierCurves>::InInit() : InPackageInit("bezierCurves") {
  registerPackage();
  addDependency(&InInit<OrnInit::viewing>::getType());
  addDependency(&InInit<OrnInit::scene>::getType());
  addDependency(&InInit<OrnInit::image>::getType());
  addDependency(&InInit<OrnInit::geometry>::getType());
  addDependency(&InInit<OrnInit::resmgt>::getType());
  addDependency(&InInit<OrnInit::pluginAPI>::getType());
  addDependency(&InInit<OrnInit::base>::getType());
}

// Bezier curves are plain objects: nothing to set up.
template <>
void InInit<OrnInit::bezierCurves>::initialize() {}

template <>
void InInit<OrnInit::bezierCurves>::finalize() {}

namespace {
InInit<OrnInit::bezierCurves> bezierCurvesPackage;
}

}  // namespace Orn
