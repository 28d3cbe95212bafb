#include <orn/base/init/inInit.h>
#include <orn/base/init/inSingleton.h>
#include <orn/primitives/formats/fmtBuiltInFormats.h>
#include <orn/primitives/formats/fmtFormatRegistry.h>
#include <orn/primitives/formats/fmtImageFormat.h>
#include <orn/primitives/formats/fmtVideoFormat.h>

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

// Creates the format registry with its two types and the built-in formats.
template <>
void InInit<OrnInit::formats>::initialize() {
  InSingleton<FmtFormatRegistry>::create();
  FmtFormatRegistry& formatReg = FmtFormatRegistry::getInstance();
  formatReg.registerFormatType(FmtImageFormat::TYPE);
  formatReg.registerFormatType(FmtVideoFormat::TYPE);
  FmtBuiltInFormats::registerAll();
}

template <>
void InInit<OrnInit::formats>::finalize() {
  InSingleton<FmtFormatRegistry>::destroy();
}

namespace {
InInit<OrnInit::formats> formatsPackage;
}

}  // namespace Orn
