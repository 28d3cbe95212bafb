#pragma once
// Rotation of the plane by an angle in radians, counterclockwise: the x axis turns towards y.
// As a row-vector matrix: rows (cos, sin) and (-sin, cos).

#include <orn/base/geometryBase/geAffineMatrix2.h>
#include <orn/base/geometryBase/geLinearMatrix2.h>
#include <orn/base/geometryBase/gePoint2.h>
#include <orn/base/geometryBase/geStreamUtil.h>
#include <orn/base/geometryBase/geVector2.h>

#include <cmath>
#include <istream>
#include <ostream>

namespace Orn {

template <class T>
class GeRotation2 {
public:
  GeRotation2() : _angle(T(0)) {}
  explicit GeRotation2(T angle) : _angle(angle) {}

  T getAngle() const { return _angle; }
  void setAngle(T angle) { _angle = angle; }
  // Adds angle, in radians.
  void rotate(T angle) { _angle += angle; }

  T getCos() const { return T(std::cos(_angle)); }
  T getSin() const { return T(std::sin(_angle)); }

  void getMatrix(GeLinearMatrix2<T>& m) const {
    T const c = getCos(), s = getSin();
    m = GeLinearMatrix2<T>(c, s, -s, c);
  }
  void getMatrix(GeAffineMatrix2<T>& m) const {
    T const c = getCos(), s = getSin();
    m = GeAffineMatrix2<T>(c, s, -s, c, T(0), T(0));
  }
  GeRotation2 getInverse() const { return GeRotation2(-_angle); }

  GeVector2<T> apply(GeVector2<T> const& v) const {
    T const c = getCos(), s = getSin();
    return GeVector2<T>(v.x * c - v.y * s, v.x * s + v.y * c);
  }
  // About the origin.
  GePoint2<T> apply(GePoint2<T> const& p) const { return GePoint2<T>(apply(p.asVector())); }

  bool operator==(GeRotation2 const& o) const { return _angle == o._angle; }
  bool operator!=(GeRotation2 const& o) const { return !(*this == o); }

  void dump(std::ostream& out) const { GeStreamUtil::write(out, _angle); }
  void read(std::istream& in) { in >> _angle; }

private:
  T _angle;
};

template <class T>
GeVector2<T> operator*(GeVector2<T> const& v, GeRotation2<T> const& r) {
  return r.apply(v);
}
template <class T>
GePoint2<T> operator*(GePoint2<T> const& p, GeRotation2<T> const& r) {
  return r.apply(p);
}

}  // namespace Orn
