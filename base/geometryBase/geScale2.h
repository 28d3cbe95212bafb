#pragma once
// Scale of the plane along x and y, combined with matrices without forming a full matrix.
// t.mulOnRight(m) is m * t (t applied after m), t * m is t applied first.

#include <orn/base/geometryBase/geAffineMatrix2.h>
#include <orn/base/geometryBase/geLinearMatrix2.h>
#include <orn/base/geometryBase/gePoint2.h>
#include <orn/base/geometryBase/geStreamUtil.h>
#include <orn/base/geometryBase/geVector2.h>

#include <istream>
#include <ostream>

namespace Orn {

template <class T>
class GeScale2 {
public:
  GeScale2() : x(T(1)), y(T(1)) {}
  GeScale2(T x_, T y_) : x(x_), y(y_) {}
  explicit GeScale2(T s) : x(s), y(s) {}

  void getMatrix(GeLinearMatrix2<T>& m) const { m = GeLinearMatrix2<T>(x, T(0), T(0), y); }
  void getMatrix(GeAffineMatrix2<T>& m) const { m = GeAffineMatrix2<T>(x, T(0), T(0), y, T(0), T(0)); }
  GeScale2 getInverse() const { return GeScale2(T(1) / x, T(1) / y); }

  GeLinearMatrix2<T> mulOnRight(GeLinearMatrix2<T> const& m) const {
    GeLinearMatrix2<T> r(m);
    return mulOnRightAssign(r);
  }
  GeLinearMatrix2<T>& mulOnRightAssign(GeLinearMatrix2<T>& m) const { return scaleColumns(m, 2); }
  GeAffineMatrix2<T> mulOnRight(GeAffineMatrix2<T> const& m) const {
    GeAffineMatrix2<T> r(m);
    return mulOnRightAssign(r);
  }
  GeAffineMatrix2<T>& mulOnRightAssign(GeAffineMatrix2<T>& m) const { return scaleColumns(m, 3); }

  // t * m: the rows of the linear part are scaled.
  template <class M>
  M& mulOnLeftAssign(M& m, int nbColumns) const {
    for (int c = 0; c < nbColumns; ++c) {
      m(0, c) *= x;
      m(1, c) *= y;
    }
    return m;
  }

  bool operator==(GeScale2 const& o) const { return x == o.x && y == o.y; }
  bool operator!=(GeScale2 const& o) const { return !(*this == o); }

  void dump(std::ostream& out) const { GeStreamUtil::writeFields(out, x, y); }
  void read(std::istream& in) { in >> x >> y; }

  T x;
  T y;

private:
  template <class M>
  M& scaleColumns(M& m, int nbRows) const {
    for (int r = 0; r < nbRows; ++r) {
      m(r, 0) *= x;
      m(r, 1) *= y;
    }
    return m;
  }
};

template <class T>
GeLinearMatrix2<T> operator*(GeScale2<T> const& s, GeLinearMatrix2<T> m) {
  return s.mulOnLeftAssign(m, 2);
}
template <class T>
GeAffineMatrix2<T> operator*(GeScale2<T> const& s, GeAffineMatrix2<T> m) {
  return s.mulOnLeftAssign(m, 3);
}
template <class T>
GeLinearMatrix2<T> operator*(GeLinearMatrix2<T> const& m, GeScale2<T> const& s) {
  return s.mulOnRight(m);
}
template <class T>
GeAffineMatrix2<T> operator*(GeAffineMatrix2<T> const& m, GeScale2<T> const& s) {
  return s.mulOnRight(m);
}
template <class T>
GePoint2<T> operator*(GePoint2<T> const& p, GeScale2<T> const& s) {
  return GePoint2<T>(p.x * s.x, p.y * s.y);
}
template <class T>
GeVector2<T> operator*(GeVector2<T> const& v, GeScale2<T> const& s) {
  return GeVector2<T>(v.x * s.x, v.y * s.y);
}

}  // namespace Orn
