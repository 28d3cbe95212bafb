#pragma once
// The package class of one package, named by a tag of OrnInit.
//
// Each package defines, in its own source file, the constructor (base constructor with the name,
// registerPackage, then addDependency for each needed package) and its two steps as explicit
// specialisations, and creates one static object:
//
//   template <> std::type_info const& InInit<OrnInit::color>::getType() { return typeid(InInit<OrnInit::color>); }
//   template <> InInit<OrnInit::color>::InInit() : InPackageInit("color") {
//     registerPackage();
//     addDependency(&InInit<OrnInit::base>::getType());
//   }
//   template <> void InInit<OrnInit::color>::initialize() {}
//   template <> void InInit<OrnInit::color>::finalize() {}
//   namespace { InInit<OrnInit::color> colorPackage; }

#include <orn/base/init/inPackageInit.h>
#include <orn/base/init/ornInit.h>

#include <typeinfo>

namespace Orn {

template <class Tag>
class InInit : public InPackageInit {
public:
  InInit();
  ~InInit() override {}

  // What a dependent package names as its dependency. It is defined in the package's own library,
  // so that naming a dependency also links the library that provides it.
  static std::type_info const& getType();

  void initialize() override;
  void finalize() override;
  void setInitialized(bool initialized) override { _initialized = initialized ? 1 : 0; }

  // Whether the start-up service has run this package's initialisation and not yet its clean-up.
  static bool isPackageInitialized() { return _initialized != 0; }

private:
  inline static unsigned char _initialized = 0;
};

// Defined by each package's library.
template <>
std::type_info const& InInit<OrnInit::base>::getType();
template <>
std::type_info const& InInit<OrnInit::resmgt>::getType();
template <>
std::type_info const& InInit<OrnInit::random>::getType();
template <>
std::type_info const& InInit<OrnInit::pluginAPI>::getType();
template <>
std::type_info const& InInit<OrnInit::primitives>::getType();
template <>
std::type_info const& InInit<OrnInit::timeCurves>::getType();
template <>
std::type_info const& InInit<OrnInit::projectors>::getType();
template <>
std::type_info const& InInit<OrnInit::viewing>::getType();
template <>
std::type_info const& InInit<OrnInit::sceneObjects>::getType();
template <>
std::type_info const& InInit<OrnInit::scene>::getType();
template <>
std::type_info const& InInit<OrnInit::formats>::getType();
template <>
std::type_info const& InInit<OrnInit::imageProc>::getType();
template <>
std::type_info const& InInit<OrnInit::color>::getType();
template <>
std::type_info const& InInit<OrnInit::bezierCurves>::getType();
template <>
std::type_info const& InInit<OrnInit::geometry>::getType();
template <>
std::type_info const& InInit<OrnInit::image>::getType();

}  // namespace Orn
