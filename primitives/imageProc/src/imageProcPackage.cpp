#include <orn/base/init/inInit.h>

namespace Orn {

template <>
std::type_info const& InInit<OrnInit::imageProc>::getType() {
  return typeid(InInit<OrnInit::imageProc>);
}

template <>
InInit<OrnInit::imageProc>::InInit() : InPackageInit("imageProc") {
  registerPackage();
  addDependency(&InInit<OrnInit::geometry>::getType());
  addDependency(&InInit<OrnInit::image>::getType());
  addDependency(&InInit<OrnInit::color>::getType());
  addDependency(&InInit<OrnInit::resmgt>::getType());
  addDependency(&InInit<OrnInit::pluginAPI>::getType());
  addDependency(&InInit<OrnInit::base>::getType());
}

// No image-processing state to set up.
template <>
void InInit<OrnInit::imageProc>::initialize() {}

template <>
void InInit<OrnInit::imageProc>::finalize() {}

namespace {
InInit<OrnInit::imageProc> imageProcPackage;
}

}  // namespace Orn
