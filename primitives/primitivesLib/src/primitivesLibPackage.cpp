#include <orn/base/init/inBuildInfoUtil.h>
#include <orn/base/init/inInit.h>
#include <orn/primitives/primitivesLib/libraryBuildInfo.h>

namespace Orn {

template <>
std::type_info const& InInit<OrnInit::primitives>::getType() {
  return typeid(InInit<OrnInit::primitives>);
}

template <>
InInit<OrnInit::primitives>::InInit() : InPackageInit("primitives") {
  registerPackage();
  addDependency(&InInit<OrnInit::resmgt>::getType());
  addDependency(&InInit<OrnInit::pluginAPI>::getType());
  addDependency(&InInit<OrnInit::base>::getType());
  addDependency(&InInit<OrnInit::timeCurves>::getType());
  addDependency(&InInit<OrnInit::projectors>::getType());
  addDependency(&InInit<OrnInit::viewing>::getType());
  addDependency(&InInit<OrnInit::sceneObjects>::getType());
  addDependency(&InInit<OrnInit::scene>::getType());
  addDependency(&InInit<OrnInit::formats>::getType());
  addDependency(&InInit<OrnInit::imageProc>::getType());
  addDependency(&InInit<OrnInit::color>::getType());
  addDependency(&InInit<OrnInit::bezierCurves>::getType());
  addDependency(&InInit<OrnInit::geometry>::getType());
  addDependency(&InInit<OrnInit::image>::getType());
}

// Publishes the build record of the library.
template <>
void InInit<OrnInit::primitives>::initialize() {
  InBuildInfoUtil::registerInfo(OPtr<InBuildInfo>(new LibraryBuildInfo));
}

template <>
void InInit<OrnInit::primitives>::finalize() {}

namespace {
InInit<OrnInit::primitives> primitivesPackage;
}

}  // namespace Orn
