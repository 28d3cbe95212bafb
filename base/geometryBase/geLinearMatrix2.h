#pragma once
// Linear map of the plane, 2x2, row-major: element (row, column) at 2 * row + column. Points and
// vectors are row vectors on the left: v' = v * M, so in A * B the map A is applied first.

#include <orn/base/geometryBase/geMatrixOps.h>
#include <orn/base/geometryBase/gePoint2.h>
#include <orn/base/geometryBase/geStreamUtil.h>
#include <orn/base/geometryBase/geVector2.h>

#include <istream>
#include <limits>
#include <ostream>

namespace Orn {

template <class T>
class GeLinearMatrix2 {
public:
  // The identity.
  GeLinearMatrix2() { setIdentity(); }
  GeLinearMatrix2(T m00, T m01, T m10, T m11) : _m{m00, m01, m10, m11} {}

  T& operator()(int row, int column) { return _m[row * 2 + column]; }
  T operator()(int row, int column) const { return _m[row * 2 + column]; }
  T* getData() { return _m; }
  T const* getData() const { return _m; }

  void setIdentity() { GeMatrixOps::setIdentity<T, 2>(_m); }

  GeLinearMatrix2 operator*(GeLinearMatrix2 const& o) const {
    GeLinearMatrix2 r;
    GeMatrixOps::multiply<T, 2>(_m, o._m, r._m);
    return r;
  }
  GeLinearMatrix2& operator*=(GeLinearMatrix2 const& o) { return *this = *this * o; }

  // The column product M * v, the transpose acting on v.
  GeVector2<T> operator*(GeVector2<T> const& v) const {
    return GeVector2<T>(_m[0] * v.x + _m[1] * v.y, _m[2] * v.x + _m[3] * v.y);
  }

  T getDeterminant() const { return _m[0] * _m[3] - _m[1] * _m[2]; }

  GeLinearMatrix2 computeTranspose() const { return GeLinearMatrix2(_m[0], _m[2], _m[1], _m[3]); }

  // A singular matrix gives NaN elements; it is not reported otherwise.
  GeLinearMatrix2 computeInverse() const {
    T const det = getDeterminant();
    if (det == T(0)) {
      GeLinearMatrix2 r;
      GeMatrixOps::fillNaN<T, 2>(r._m);
      return r;
    }
    T const inv = T(1) / det;
    return GeLinearMatrix2(_m[3] * inv, -_m[1] * inv, -_m[2] * inv, _m[0] * inv);
  }

  bool operator==(GeLinearMatrix2 const& o) const { return GeMatrixOps::equal<T, 2>(_m, o._m); }
  bool operator!=(GeLinearMatrix2 const& o) const { return !(*this == o); }

  // The four elements in memory order.
  void dump(std::ostream& out) const { GeStreamUtil::writeFields(out, _m[0], _m[1], _m[2], _m[3]); }
  void read(std::istream& in) { in >> _m[0] >> _m[1] >> _m[2] >> _m[3]; }

private:
  T _m[4];
};

template <class T>
GeVector2<T> operator*(GeVector2<T> const& v, GeLinearMatrix2<T> const& m) {
  return GeVector2<T>(v.x * m(0, 0) + v.y * m(1, 0), v.x * m(0, 1) + v.y * m(1, 1));
}

template <class T>
GePoint2<T> operator*(GePoint2<T> const& p, GeLinearMatrix2<T> const& m) {
  return GePoint2<T>(p.x * m(0, 0) + p.y * m(1, 0), p.x * m(0, 1) + p.y * m(1, 1));
}

}  // namespace Orn
