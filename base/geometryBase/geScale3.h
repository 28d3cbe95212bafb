#pragma once
// Scale of space along x, y and z, combined with matrices without forming a full matrix.
// t.mulOnRight(m) is m * t (t applied after m), t * m is t applied first.

#include <orn/base/geometryBase/geAffineMatrix3.h>
#include <orn/base/geometryBase/geLinearMatrix3.h>
#include <orn/base/geometryBase/gePoint3.h>
#include <orn/base/geometryBase/geProjectiveMatrix3.h>
#include <orn/base/geometryBase/geStreamUtil.h>
#include <orn/base/geometryBase/geVector3.h>

#include <istream>
#include <ostream>

namespace Orn {

template <class T>
class GeScale3 {
public:
  GeScale3() : x(T(1)), y(T(1)), z(T(1)) {}
  GeScale3(T x_, T y_, T z_) : x(x_), y(y_), z(z_) {}
  explicit GeScale3(T s) : x(s), y(s), z(s) {}
  explicit GeScale3(GeVector3<T> const& s) : x(s.x), y(s.y), z(s.z) {}

  void getMatrix(GeLinearMatrix3<T>& m) const {
    m = GeLinearMatrix3<T>(x, T(0), T(0), T(0), y, T(0), T(0), T(0), z);
  }
  void getMatrix(GeAffineMatrix3<T>& m) const {
    GeLinearMatrix3<T> l;
    getMatrix(l);
    m = GeAffineMatrix3<T>(l);
  }
  GeScale3 getInverse() const { return GeScale3(T(1) / x, T(1) / y, T(1) / z); }

  GeLinearMatrix3<T> mulOnRight(GeLinearMatrix3<T> const& m) const {
    GeLinearMatrix3<T> r(m);
    return mulOnRightAssign(r);
  }
  GeLinearMatrix3<T>& mulOnRightAssign(GeLinearMatrix3<T>& m) const { return scaleColumns(m, 3); }
  GeAffineMatrix3<T> mulOnRight(GeAffineMatrix3<T> const& m) const {
    GeAffineMatrix3<T> r(m);
    return mulOnRightAssign(r);
  }
  GeAffineMatrix3<T>& mulOnRightAssign(GeAffineMatrix3<T>& m) const { return scaleColumns(m, 4); }
  GeProjectiveMatrix3<T> mulOnRight(GeProjectiveMatrix3<T> const& m) const {
    GeProjectiveMatrix3<T> r(m);
    return mulOnRightAssign(r);
  }
  GeProjectiveMatrix3<T>& mulOnRightAssign(GeProjectiveMatrix3<T>& m) const { return scaleColumns(m, 4); }

  // t * m in place: the first three rows are scaled.
  template <class M>
  M& mulOnLeftAssign(M& m, int nbColumns) const {
    for (int c = 0; c < nbColumns; ++c) {
      m(0, c) *= x;
      m(1, c) *= y;
      m(2, c) *= z;
    }
    return m;
  }

  bool operator==(GeScale3 const& o) const { return x == o.x && y == o.y && z == o.z; }
  bool operator!=(GeScale3 const& o) const { return !(*this == o); }

  void dump(std::ostream& out) const { GeStreamUtil::writeFields(out, x, y, z); }
  void read(std::istream& in) { in >> x >> y >> z; }

  T x;
  T y;
  T z;

private:
  template <class M>
  M& scaleColumns(M& m, int nbRows) const {
    for (int r = 0; r < nbRows; ++r) {
      m(r, 0) *= x;
      m(r, 1) *= y;
      m(r, 2) *= z;
    }
    return m;
  }
};

template <class T>
GeLinearMatrix3<T> operator*(GeScale3<T> const& s, GeLinearMatrix3<T> m) {
  return s.mulOnLeftAssign(m, 3);
}
template <class T>
GeAffineMatrix3<T> operator*(GeScale3<T> const& s, GeAffineMatrix3<T> m) {
  return s.mulOnLeftAssign(m, 4);
}
template <class T>
GeProjectiveMatrix3<T> operator*(GeScale3<T> const& s, GeProjectiveMatrix3<T> m) {
  return s.mulOnLeftAssign(m, 4);
}
template <class T>
GeLinearMatrix3<T> operator*(GeLinearMatrix3<T> const& m, GeScale3<T> const& s) {
  return s.mulOnRight(m);
}
template <class T>
GeAffineMatrix3<T> operator*(GeAffineMatrix3<T> const& m, GeScale3<T> const& s) {
  return s.mulOnRight(m);
}
template <class T>
GeProjectiveMatrix3<T> operator*(GeProjectiveMatrix3<T> const& m, GeScale3<T> const& s) {
  return s.mulOnRight(m);
}
template <class T>
GePoint3<T> operator*(GePoint3<T> const& p, GeScale3<T> const& s) {
  return GePoint3<T>(p.x * s.x, p.y * s.y, p.z * s.z);
}
template <class T>
GeVector3<T> operator*(GeVector3<T> const& v, GeScale3<T> const& s) {
  return GeVector3<T>(v.x * s.x, v.y * s.y, v.z * s.z);
}

}  // namespace Orn
