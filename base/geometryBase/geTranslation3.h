#pragma once
// Translation of space, combined with 4x4 matrices without forming a full matrix.
// t.mulOnRight(m) is m * t (t applied after m), t * m is t applied first.

#include <orn/base/geometryBase/geAffineMatrix3.h>
#include <orn/base/geometryBase/gePoint3.h>
#include <orn/base/geometryBase/geProjectiveMatrix3.h>
#include <orn/base/geometryBase/geStreamUtil.h>
#include <orn/base/geometryBase/geVector3.h>

#include <istream>
#include <ostream>

namespace Orn {

template <class T>
class GeTranslation3 {
public:
  GeTranslation3() : x(T(0)), y(T(0)), z(T(0)) {}
  GeTranslation3(T x_, T y_, T z_) : x(x_), y(y_), z(z_) {}
  explicit GeTranslation3(GeVector3<T> const& t) : x(t.x), y(t.y), z(t.z) {}

  GeVector3<T> getVector() const { return GeVector3<T>(x, y, z); }
  void getMatrix(GeAffineMatrix3<T>& m) const { m = GeAffineMatrix3<T>(GeLinearMatrix3<T>(), getVector()); }
  GeTranslation3 getInverse() const { return GeTranslation3(-x, -y, -z); }

  GeAffineMatrix3<T> mulOnRight(GeAffineMatrix3<T> const& m) const {
    GeAffineMatrix3<T> r(m);
    return mulOnRightAssign(r);
  }
  GeAffineMatrix3<T>& mulOnRightAssign(GeAffineMatrix3<T>& m) const { return addToColumns(m); }
  GeProjectiveMatrix3<T> mulOnRight(GeProjectiveMatrix3<T> const& m) const {
    GeProjectiveMatrix3<T> r(m);
    return mulOnRightAssign(r);
  }
  GeProjectiveMatrix3<T>& mulOnRightAssign(GeProjectiveMatrix3<T>& m) const { return addToColumns(m); }

  // t * m in place: the last row gains x, y, z times the first three rows.
  template <class M>
  M& mulOnLeftAssign(M& m) const {
    for (int c = 0; c < 4; ++c) m(3, c) += x * m(0, c) + y * m(1, c) + z * m(2, c);
    return m;
  }

  bool operator==(GeTranslation3 const& o) const { return x == o.x && y == o.y && z == o.z; }
  bool operator!=(GeTranslation3 const& o) const { return !(*this == o); }

  void dump(std::ostream& out) const { GeStreamUtil::writeFields(out, x, y, z); }
  void read(std::istream& in) { in >> x >> y >> z; }

  T x;
  T y;
  T z;

private:
  // m * t: each row's last element, times the translation, is added to its first three.
  template <class M>
  M& addToColumns(M& m) const {
    for (int r = 0; r < 4; ++r) {
      T const w = m(r, 3);
      m(r, 0) += w * x;
      m(r, 1) += w * y;
      m(r, 2) += w * z;
    }
    return m;
  }
};

template <class T>
GeAffineMatrix3<T> operator*(GeTranslation3<T> const& t, GeAffineMatrix3<T> m) {
  return t.mulOnLeftAssign(m);
}
template <class T>
GeProjectiveMatrix3<T> operator*(GeTranslation3<T> const& t, GeProjectiveMatrix3<T> m) {
  return t.mulOnLeftAssign(m);
}
template <class T>
GeAffineMatrix3<T> operator*(GeAffineMatrix3<T> const& m, GeTranslation3<T> const& t) {
  return t.mulOnRight(m);
}
template <class T>
GeProjectiveMatrix3<T> operator*(GeProjectiveMatrix3<T> const& m, GeTranslation3<T> const& t) {
  return t.mulOnRight(m);
}
template <class T>
GePoint3<T> operator*(GePoint3<T> const& p, GeTranslation3<T> const& t) {
  return GePoint3<T>(p.x + t.x, p.y + t.y, p.z + t.z);
}

}  // namespace Orn
