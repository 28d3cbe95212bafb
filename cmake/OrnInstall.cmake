include(CMakePackageConfigHelpers)

# Umbrella header: every public header of the four libraries.
get_property(ornHeaders GLOBAL PROPERTY ORN_PUBLIC_HEADERS)
list(SORT ornHeaders)
set(umbrella "// Includes every public header of libORNbase, libORNresmgt, libORNpluginAPI and libORNprimitives.\n#pragma once\n\n")
foreach(h IN LISTS ornHeaders)
  string(APPEND umbrella "#include <orn/${h}>\n")
endforeach()
set(umbrellaDir ${CMAKE_BINARY_DIR}/umbrella)
file(CONFIGURE OUTPUT ${umbrellaDir}/orn/primitives.h CONTENT "${umbrella}")
add_library(ornUmbrella INTERFACE)
target_include_directories(ornUmbrella INTERFACE $<BUILD_INTERFACE:${umbrellaDir}>)
install(FILES ${umbrellaDir}/orn/primitives.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/orn)

configure_file(${CMAKE_SOURCE_DIR}/cmake/ornprimitives.pc.in ${CMAKE_BINARY_DIR}/ornprimitives.pc @ONLY)
install(FILES ${CMAKE_BINARY_DIR}/ornprimitives.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

set(configDir ${CMAKE_INSTALL_LIBDIR}/cmake/OrnPrimitives)
install(EXPORT OrnPrimitivesTargets NAMESPACE Orn:: DESTINATION ${configDir})
configure_package_config_file(${CMAKE_SOURCE_DIR}/cmake/OrnPrimitivesConfig.cmake.in
  ${CMAKE_BINARY_DIR}/OrnPrimitivesConfig.cmake INSTALL_DESTINATION ${configDir})
write_basic_package_version_file(${CMAKE_BINARY_DIR}/OrnPrimitivesConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_BINARY_DIR}/OrnPrimitivesConfig.cmake
  ${CMAKE_BINARY_DIR}/OrnPrimitivesConfigVersion.cmake DESTINATION ${configDir})
