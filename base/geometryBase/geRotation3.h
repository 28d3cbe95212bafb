#pragma once
// Rotation of space held as its orthonormal 3x3 matrix (row-vector convention: v' = v * R).
// In a * b the rotation a is applied first, as with the matrices.

#include <orn/base/geometryBase/geAffineMatrix3.h>
#include <orn/base/geometryBase/geLinearMatrix3.h>
#include <orn/base/geometryBase/gePoint3.h>
#include <orn/base/geometryBase/geQuaternion3.h>
#include <orn/base/geometryBase/geVector3.h>

#include <cmath>
#include <istream>
#include <ostream>

namespace Orn {

template <class T>
class GeRotation3 {
public:
  // The identity.
  GeRotation3() {}
  // Rotation by angle radians about axis, right-handed; the axis must not be zero.
  GeRotation3(GeVector3<T> const& axis, T angle) {
    GeVector3<T> const a = axis.getNormalized();
    T const c = T(std::cos(angle));
    T const s = T(std::sin(angle));
    T const t = T(1) - c;
    _m = GeLinearMatrix3<T>(t * a.x * a.x + c, t * a.x * a.y + s * a.z, t * a.x * a.z - s * a.y,
                            t * a.x * a.y - s * a.z, t * a.y * a.y + c, t * a.y * a.z + s * a.x,
                            t * a.x * a.z + s * a.y, t * a.y * a.z - s * a.x, t * a.z * a.z + c);
  }
  explicit GeRotation3(GeQuaternion3<T> const& q) { q.getMatrix(_m); }
  // The matrix is taken to be orthonormal.
  explicit GeRotation3(GeLinearMatrix3<T> const& m) : _m(m) {}

  GeLinearMatrix3<T> const& getLinear() const { return _m; }
  // Element access, for the compact transforms that act on the matrix in place.
  T& operator()(int row, int column) { return _m(row, column); }
  T operator()(int row, int column) const { return _m(row, column); }

  void getMatrix(GeLinearMatrix3<T>& m) const { m = _m; }
  void getMatrix(GeAffineMatrix3<T>& m) const { m = GeAffineMatrix3<T>(_m); }
  GeQuaternion3<T> getQuaternion() const {
    GeQuaternion3<T> q;
    q.setMatrix(_m, T(0));
    return q;
  }

  // The transpose.
  GeRotation3 getInverse() const { return GeRotation3(_m.computeTranspose()); }

  GeRotation3 operator*(GeRotation3 const& o) const { return GeRotation3(_m * o._m); }
  GeRotation3& operator*=(GeRotation3 const& o) { return *this = *this * o; }

  bool operator==(GeRotation3 const& o) const { return _m == o._m; }
  bool operator!=(GeRotation3 const& o) const { return !(*this == o); }

  // The nine matrix elements in memory order.
  void dump(std::ostream& out) const { _m.dump(out); }
  void read(std::istream& in) { _m.read(in); }

private:
  GeLinearMatrix3<T> _m;
};

template <class T>
GeVector3<T> operator*(GeVector3<T> const& v, GeRotation3<T> const& r) {
  return v * r.getLinear();
}
// About the origin.
template <class T>
GePoint3<T> operator*(GePoint3<T> const& p, GeRotation3<T> const& r) {
  return p * r.getLinear();
}

}  // namespace Orn
