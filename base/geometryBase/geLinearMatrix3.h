#pragma once
// Linear map of space, 3x3, row-major: element (row, column) at 3 * row + column. Points and
// vectors are row vectors on the left: v' = v * M, so in A * B the map A is applied first.
// M * v is the column product, for code that reads matrices the other way (colour matrices).

#include <orn/base/geometryBase/geMatrixOps.h>
#include <orn/base/geometryBase/gePoint3.h>
#include <orn/base/geometryBase/geStreamUtil.h>
#include <orn/base/geometryBase/geVector3.h>

#include <istream>
#include <ostream>

namespace Orn {

template <class T>
class GeLinearMatrix3 {
public:
  // The identity.
  GeLinearMatrix3() { setIdentity(); }
  GeLinearMatrix3(T m00, T m01, T m02, T m10, T m11, T m12, T m20, T m21, T m22)
      : _m{m00, m01, m02, m10, m11, m12, m20, m21, m22} {}
  // Rows given as vectors.
  GeLinearMatrix3(GeVector3<T> const& row0, GeVector3<T> const& row1, GeVector3<T> const& row2)
      : _m{row0.x, row0.y, row0.z, row1.x, row1.y, row1.z, row2.x, row2.y, row2.z} {}
  template <class U>
  explicit GeLinearMatrix3(GeLinearMatrix3<U> const& o) {
    for (int i = 0; i < 9; ++i) _m[i] = T(o.getData()[i]);
  }

  T& operator()(int row, int column) { return _m[row * 3 + column]; }
  T operator()(int row, int column) const { return _m[row * 3 + column]; }
  T* getData() { return _m; }
  T const* getData() const { return _m; }

  GeVector3<T> getRow(int row) const { return GeVector3<T>(_m[row * 3], _m[row * 3 + 1], _m[row * 3 + 2]); }
  void setRow(int row, GeVector3<T> const& v) {
    _m[row * 3] = v.x;
    _m[row * 3 + 1] = v.y;
    _m[row * 3 + 2] = v.z;
  }

  void setIdentity() { GeMatrixOps::setIdentity<T, 3>(_m); }

  GeLinearMatrix3 operator*(GeLinearMatrix3 const& o) const {
    GeLinearMatrix3 r;
    GeMatrixOps::multiply<T, 3>(_m, o._m, r._m);
    return r;
  }
  GeLinearMatrix3& operator*=(GeLinearMatrix3 const& o) { return *this = *this * o; }

  // The column product M * v: element i is row i dotted with v.
  GeVector3<T> operator*(GeVector3<T> const& v) const {
    return GeVector3<T>(_m[0] * v.x + _m[1] * v.y + _m[2] * v.z, _m[3] * v.x + _m[4] * v.y + _m[5] * v.z,
                        _m[6] * v.x + _m[7] * v.y + _m[8] * v.z);
  }

  T getDeterminant() const {
    return _m[0] * (_m[4] * _m[8] - _m[5] * _m[7]) - _m[1] * (_m[3] * _m[8] - _m[5] * _m[6]) +
           _m[2] * (_m[3] * _m[7] - _m[4] * _m[6]);
  }

  GeLinearMatrix3 computeTranspose() const {
    GeLinearMatrix3 r;
    GeMatrixOps::transpose<T, 3>(_m, r._m);
    return r;
  }

  // By the adjugate. A singular matrix gives NaN elements; it is not reported otherwise.
  GeLinearMatrix3 computeInverse() const {
    GeLinearMatrix3 r;
    T const det = getDeterminant();
    if (det == T(0)) {
      GeMatrixOps::fillNaN<T, 3>(r._m);
      return r;
    }
    T const inv = T(1) / det;
    r._m[0] = (_m[4] * _m[8] - _m[5] * _m[7]) * inv;
    r._m[1] = (_m[2] * _m[7] - _m[1] * _m[8]) * inv;
    r._m[2] = (_m[1] * _m[5] - _m[2] * _m[4]) * inv;
    r._m[3] = (_m[5] * _m[6] - _m[3] * _m[8]) * inv;
    r._m[4] = (_m[0] * _m[8] - _m[2] * _m[6]) * inv;
    r._m[5] = (_m[2] * _m[3] - _m[0] * _m[5]) * inv;
    r._m[6] = (_m[3] * _m[7] - _m[4] * _m[6]) * inv;
    r._m[7] = (_m[1] * _m[6] - _m[0] * _m[7]) * inv;
    r._m[8] = (_m[0] * _m[4] - _m[1] * _m[3]) * inv;
    return r;
  }

  bool operator==(GeLinearMatrix3 const& o) const { return GeMatrixOps::equal<T, 3>(_m, o._m); }
  bool operator!=(GeLinearMatrix3 const& o) const { return !(*this == o); }

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

template <class T>
GeVector3<T> operator*(GeVector3<T> const& v, GeLinearMatrix3<T> const& m) {
  return GeVector3<T>(v.x * m(0, 0) + v.y * m(1, 0) + v.z * m(2, 0),
                      v.x * m(0, 1) + v.y * m(1, 1) + v.z * m(2, 1),
                      v.x * m(0, 2) + v.y * m(1, 2) + v.z * m(2, 2));
}

template <class T>
GePoint3<T> operator*(GePoint3<T> const& p, GeLinearMatrix3<T> const& m) {
  return GePoint3<T>(p.asVector() * m);
}

}  // namespace Orn
