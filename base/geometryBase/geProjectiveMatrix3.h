#pragma once
// Projective map of space as sixteen scalars, 4x4 row-major, translation in elements 12, 13, 14.
// Points are row vectors on the left, p' = p * M:
//   x' = p.x*m[0] + p.y*m[4] + p.z*m[8] + m[12], likewise y' and z',
//   w  = p.x*m[3] + p.y*m[7] + p.z*m[11] + m[15].
// So in A * B the map A is applied first. M * h is the column product, the transpose acting on h.

#include <orn/base/geometryBase/geAffineMatrix3.h>
#include <orn/base/geometryBase/geHomogeneousCoord3.h>
#include <orn/base/geometryBase/geLinearMatrix3.h>
#include <orn/base/geometryBase/geMatrixOps.h>
#include <orn/base/geometryBase/gePoint3.h>
#include <orn/base/geometryBase/geStreamUtil.h>

#include <istream>
#include <ostream>

namespace Orn {

template <class T>
class GeProjectiveMatrix3 {
public:
  // The identity.
  GeProjectiveMatrix3() { setIdentity(); }
  // Sixteen elements, row by row.
  GeProjectiveMatrix3(T m00, T m01, T m02, T m03, T m10, T m11, T m12, T m13, T m20, T m21, T m22,
                      T m23, T m30, T m31, T m32, T m33)
      : _m{m00, m01, m02, m03, m10, m11, m12, m13, m20, m21, m22, m23, m30, m31, m32, m33} {}
  // The linear map in the upper left block, no translation, no projection.
  explicit GeProjectiveMatrix3(GeLinearMatrix3<T> const& l) {
    setIdentity();
    for (int r = 0; r < 3; ++r)
      for (int c = 0; c < 3; ++c) (*this)(r, c) = l(r, c);
  }
  // The same sixteen elements.
  explicit GeProjectiveMatrix3(GeAffineMatrix3<T> const& a) {
    for (int i = 0; i < 16; ++i) _m[i] = a.getData()[i];
  }
  // Element by element, e.g. to widen float to double.
  template <class U>
  explicit GeProjectiveMatrix3(GeProjectiveMatrix3<U> const& o) {
    for (int i = 0; i < 16; ++i) _m[i] = T(o.getData()[i]);
  }

  T& operator()(int row, int column) { return _m[row * 4 + column]; }
  T operator()(int row, int column) const { return _m[row * 4 + column]; }
  T* getData() { return _m; }
  T const* getData() const { return _m; }

  void setIdentity() { GeMatrixOps::setIdentity<T, 4>(_m); }

  GeProjectiveMatrix3 operator*(GeProjectiveMatrix3 const& o) const {
    GeProjectiveMatrix3 r;
    GeMatrixOps::multiply<T, 4>(_m, o._m, r._m);
    return r;
  }
  GeProjectiveMatrix3& operator*=(GeProjectiveMatrix3 const& o) { return *this = *this * o; }

  // The column product: element i is row i dotted with (x, y, z, w).
  GeHomogeneousCoord3<T> operator*(GeHomogeneousCoord3<T> const& h) const {
    return GeHomogeneousCoord3<T>(_m[0] * h.x + _m[1] * h.y + _m[2] * h.z + _m[3] * h.w,
                                  _m[4] * h.x + _m[5] * h.y + _m[6] * h.z + _m[7] * h.w,
                                  _m[8] * h.x + _m[9] * h.y + _m[10] * h.z + _m[11] * h.w,
                                  _m[12] * h.x + _m[13] * h.y + _m[14] * h.z + _m[15] * h.w);
  }

  GeProjectiveMatrix3 computeTranspose() const {
    GeProjectiveMatrix3 r;
    GeMatrixOps::transpose<T, 4>(_m, r._m);
    return r;
  }

  // Gauss-Jordan with partial pivoting. A singular matrix gives NaN elements; it is not reported
  // otherwise.
  GeProjectiveMatrix3 computeInverse() const {
    GeProjectiveMatrix3 r;
    GeMatrixOps::invert<T, 4>(_m, r._m);
    return r;
  }

  bool operator==(GeProjectiveMatrix3 const& o) const { return GeMatrixOps::equal<T, 4>(_m, o._m); }
  bool operator!=(GeProjectiveMatrix3 const& o) const { return !(*this == o); }

  // The sixteen elements in memory order.
  void dump(std::ostream& out) const {
    for (int i = 0; i < 16; ++i) {
      if (i) out << ' ';
      GeStreamUtil::write(out, _m[i]);
    }
  }
  void read(std::istream& in) {
    for (T& e : _m) in >> e;
  }

private:
  T _m[16];
};

// The row-vector transform of homogeneous coordinates.
template <class T>
GeHomogeneousCoord3<T> operator*(GeHomogeneousCoord3<T> const& h, GeProjectiveMatrix3<T> const& m) {
  T const* e = m.getData();
  return GeHomogeneousCoord3<T>(h.x * e[0] + h.y * e[4] + h.z * e[8] + h.w * e[12],
                                h.x * e[1] + h.y * e[5] + h.z * e[9] + h.w * e[13],
                                h.x * e[2] + h.y * e[6] + h.z * e[10] + h.w * e[14],
                                h.x * e[3] + h.y * e[7] + h.z * e[11] + h.w * e[15]);
}

// A point as (x, y, z, 1); divide the result by its w to return to a point.
template <class T>
GeHomogeneousCoord3<T> operator*(GePoint3<T> const& p, GeProjectiveMatrix3<T> const& m) {
  return GeHomogeneousCoord3<T>(p) * m;
}

template <class T>
GeProjectiveMatrix3<T> operator*(GeAffineMatrix3<T> const& a, GeProjectiveMatrix3<T> const& p) {
  return GeProjectiveMatrix3<T>(a) * p;
}

template <class T>
GeProjectiveMatrix3<T> operator*(GeProjectiveMatrix3<T> const& p, GeAffineMatrix3<T> const& a) {
  return p * GeProjectiveMatrix3<T>(a);
}

}  // namespace Orn
