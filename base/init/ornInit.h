#pragma once
// Tags naming the packages of the application. Each package is the object InInit<Tag>.

namespace Orn {
namespace OrnInit {

// Packages of the sibling libraries.
class base {};
class resmgt {};
class random {};
class pluginAPI {};

// Packages of the primitives library.
class primitives {};
class timeCurves {};
class projectors {};
class viewing {};
class sceneObjects {};
class scene {};
class formats {};
class imageProc {};
class color {};
class bezierCurves {};
class geometry {};
class image {};

}  // namespace OrnInit
}  // namespace Orn
