#pragma once
// A direction: a GeVector3 made unit length when it is built. A zero vector cannot be a
// direction, and building one from it fails the assertion of GeVector3::normalize.

#include <orn/base/geometryBase/geVector3.h>

namespace Orn {

template <class T>
class GeUnitVector3 : public GeVector3<T> {
public:
  // The z axis.
  GeUnitVector3() : GeVector3<T>(T(0), T(0), T(1)) {}
  GeUnitVector3(T x_, T y_, T z_) : GeVector3<T>(x_, y_, z_) { this->normalize(); }
  explicit GeUnitVector3(GeVector3<T> const& v) : GeVector3<T>(v) { this->normalize(); }

  // Takes the components as they are, for a vector known to be unit length already.
  static GeUnitVector3 fromUnitComponents(T x_, T y_, T z_) {
    GeUnitVector3 u;
    u.x = x_;
    u.y = y_;
    u.z = z_;
    return u;
  }

  GeUnitVector3 operator-() const { return fromUnitComponents(-this->x, -this->y, -this->z); }
};

}  // namespace Orn
