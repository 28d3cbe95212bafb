#pragma once
// Affine map of the plane as a 3x3 row-major matrix: the linear part in the upper left 2x2 block,
// the translation in the last row, the last column (0, 0, 1). Points are row vectors on the left:
// p' = p * M, so in A * B the map A is applied first.

#include <orn/base/geometryBase/geLinearMatrix2.h>
#include <orn/base/geometryBase/geMatrixOps.h>
#include <orn/base/geometryBase/gePoint2.h>
#include <orn/base/geometryBase/geStreamUtil.h>
#include <orn/base/geometryBase/geVector2.h>

#include <istream>
#include <ostream>

namespace Orn {

template <class T>
class GeAffineMatrix2 {
public:
  // The identity.
  GeAffineMatrix2() { setIdentity(); }
  explicit GeAffineMatrix2(GeLinearMatrix2<T> const& linear, GeVector2<T> const& translation = GeVector2<T>())
      : _m{linear(0, 0), linear(0, 1), T(0), linear(1, 0), linear(1, 1), T(0), translation.x, translation.y, T(1)} {}
  GeAffineMatrix2(T m00, T m01, T m10, T m11, T tx, T ty)
      : _m{m00, m01, T(0), m10, m11, T(0), tx, ty, T(1)} {}

  T& operator()(int row, int column) { return _m[row * 3 + column]; }
  T operator()(int row, int column) const { return _m[row * 3 + column]; }
  T* getData() { return _m; }
  T const* getData() const { return _m; }

  void setIdentity() { GeMatrixOps::setIdentity<T, 3>(_m); }

  GeLinearMatrix2<T> getLinear() const { return GeLinearMatrix2<T>(_m[0], _m[1], _m[3], _m[4]); }
  GeVector2<T> getTranslation() const { return GeVector2<T>(_m[6], _m[7]); }
  void setTranslation(GeVector2<T> const& t) {
    _m[6] = t.x;
    _m[7] = t.y;
  }

  GeAffineMatrix2 operator*(GeAffineMatrix2 const& o) const {
    GeAffineMatrix2 r;
    GeMatrixOps::multiply<T, 3>(_m, o._m, r._m);
    return r;
  }
  GeAffineMatrix2& operator*=(GeAffineMatrix2 const& o) { return *this = *this * o; }

  // Inverse of the linear part, and the translation taken back through it. The last column is
  // taken to be (0, 0, 1). A singular matrix gives NaN elements; it is not reported otherwise.
  GeAffineMatrix2 computeInverse() const {
    GeLinearMatrix2<T> const inv = getLinear().computeInverse();
    GeVector2<T> const t = -(getTranslation() * inv);
    return GeAffineMatrix2(inv, t);
  }

  bool operator==(GeAffineMatrix2 const& o) const { return GeMatrixOps::equal<T, 3>(_m, o._m); }
  bool operator!=(GeAffineMatrix2 const& o) const { return !(*this == o); }

  // The nine elements in memory order.
  void dump(std::ostream& out) const {
    GeStreamUtil::writeFields(out, _m[0], _m[1], _m[2], _m[3], _m[4], _m[5], _m[6], _m[7], _m[8]);
  }
  void read(std::istream& in) {
    for (T& e : _m) in >> e;
  }

private:
  T _m[9];
};

// A point takes the translation.
template <class T>
GePoint2<T> operator*(GePoint2<T> const& p, GeAffineMatrix2<T> const& m) {
  return GePoint2<T>(p.x * m(0, 0) + p.y * m(1, 0) + m(2, 0), p.x * m(0, 1) + p.y * m(1, 1) + m(2, 1));
}

// A vector does not.
template <class T>
GeVector2<T> operator*(GeVector2<T> const& v, GeAffineMatrix2<T> const& m) {
  return GeVector2<T>(v.x * m(0, 0) + v.y * m(1, 0), v.x * m(0, 1) + v.y * m(1, 1));
}

}  // namespace Orn
