#include <orn/base/init/inInit.h>
#include <orn/primitives/imageProc/ixConvertServices.h>
#include <orn/primitives/imageProc/ixScanlineBlend.h>
#include <orn/primitives/imageProc/ixScanlineCacheImp.h>
#include <orn/primitives/imageProc/ixScanlineImp.h>

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

// Sets and checks the floating-point mode of the starting thread, installs the scanline
// implementations before anything else of the image side runs, then builds the blend table.
template <>
void InInit<OrnInit::imageProc>::initialize() {
  IxConvertServices::configureSSE();
  IxConvertServices::assertConfigSSE();
  IxScanlineImpFactories::install();
  IxScanlineCacheImpFactories::install();
  IxScanlineBlend::initialize();
}

template <>
void InInit<OrnInit::imageProc>::finalize() {}

namespace {
InInit<OrnInit::imageProc> imageProcPackage;
}

}  // namespace Orn
