#pragma once
// Affine map of space as sixteen scalars, 4x4 row-major: the linear part in the upper left 3x3
// block, the translation in elements 12, 13, 14 (the last row), the last column (0, 0, 0, 1).
// Points are row vectors on the left, p' = p * M:
//   p'.x = p.x*m[0] + p.y*m[4] + p.z*m[8] + m[12], and likewise y and z.
// So in A * B the map A is applied first.

#include <orn/base/geometryBase/geLinearMatrix3.h>
#include <orn/base/geometryBase/geMatrixOps.h>
#include <orn/base/geometryBase/gePoint3.h>
#include <orn/base/geometryBase/geStreamUtil.h>
#include <orn/base/geometryBase/geVector3.h>

#include <istream>
#include <ostream>

namespace Orn {

template <class T>
class GeAffineMatrix3 {
public:
  // The identity.
  GeAffineMatrix3() { setIdentity(); }
  explicit GeAffineMatrix3(GeLinearMatrix3<T> const& linear, GeVector3<T> const& translation = GeVector3<T>()) {
    setLinear(linear);
    _m[3] = _m[7] = _m[11] = T(0);
    setTranslation(translation);
    _m[15] = T(1);
  }
  // Sixteen elements, row by row.
  GeAffineMatrix3(T m00, T m01, T m02, T m03, T m10, T m11, T m12, T m13, T m20, T m21, T m22, T m23,
                  T m30, T m31, T m32, T m33)
      : _m{m00, m01, m02, m03, m10, m11, m12, m13, m20, m21, m22, m23, m30, m31, m32, m33} {}
  // A table of four rows of four. When transpose is false each row is copied to the same row:
  // (row i, column j) = rows[i][j]. When it is true the table is read the other way round, as
  // written for column vectors with the translation in the fourth column: (row j, column i) =
  // rows[i][j], which puts that translation in elements 12, 13, 14.
  GeAffineMatrix3(T const (*rows)[4], bool transpose) {
    for (int i = 0; i < 4; ++i)
      for (int j = 0; j < 4; ++j) (transpose ? (*this)(j, i) : (*this)(i, j)) = rows[i][j];
  }
  template <class U>
  explicit GeAffineMatrix3(GeAffineMatrix3<U> const& o) {
    for (int i = 0; i < 16; ++i) _m[i] = T(o.getData()[i]);
  }

  T& operator()(int row, int column) { return _m[row * 4 + column]; }
  T operator()(int row, int column) const { return _m[row * 4 + column]; }
  T* getData() { return _m; }
  T const* getData() const { return _m; }

  void setIdentity() { GeMatrixOps::setIdentity<T, 4>(_m); }

  GeLinearMatrix3<T> getLinear() const {
    return GeLinearMatrix3<T>(_m[0], _m[1], _m[2], _m[4], _m[5], _m[6], _m[8], _m[9], _m[10]);
  }
  void setLinear(GeLinearMatrix3<T> const& l) {
    for (int r = 0; r < 3; ++r)
      for (int c = 0; c < 3; ++c) _m[r * 4 + c] = l(r, c);
  }
  GeVector3<T> getTranslation() const { return GeVector3<T>(_m[12], _m[13], _m[14]); }
  void setTranslation(GeVector3<T> const& t) {
    _m[12] = t.x;
    _m[13] = t.y;
    _m[14] = t.z;
  }

  GeAffineMatrix3 operator*(GeAffineMatrix3 const& o) const {
    GeAffineMatrix3 r;
    GeMatrixOps::multiply<T, 4>(_m, o._m, r._m);
    return r;
  }
  GeAffineMatrix3& operator*=(GeAffineMatrix3 const& o) { return *this = *this * o; }

  // Inverse of the linear part, and the translation taken back through it. The last column is
  // taken to be (0, 0, 0, 1). A singular matrix gives NaN elements; it is not reported otherwise.
  GeAffineMatrix3 computeInverse() const {
    GeLinearMatrix3<T> const inv = getLinear().computeInverse();
    GeVector3<T> const t = -(getTranslation() * inv);
    return GeAffineMatrix3(inv, t);
  }

  bool operator==(GeAffineMatrix3 const& o) const { return GeMatrixOps::equal<T, 4>(_m, o._m); }
  bool operator!=(GeAffineMatrix3 const& o) const { return !(*this == o); }

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

// A point takes the translation.
template <class T>
GePoint3<T> operator*(GePoint3<T> const& p, GeAffineMatrix3<T> const& m) {
  return GePoint3<T>(p.x * m(0, 0) + p.y * m(1, 0) + p.z * m(2, 0) + m(3, 0),
                     p.x * m(0, 1) + p.y * m(1, 1) + p.z * m(2, 1) + m(3, 1),
                     p.x * m(0, 2) + p.y * m(1, 2) + p.z * m(2, 2) + m(3, 2));
}

// A vector does not.
template <class T>
GeVector3<T> operator*(GeVector3<T> const& v, GeAffineMatrix3<T> const& m) {
  return GeVector3<T>(v.x * m(0, 0) + v.y * m(1, 0) + v.z * m(2, 0),
                      v.x * m(0, 1) + v.y * m(1, 1) + v.z * m(2, 1),
                      v.x * m(0, 2) + v.y * m(1, 2) + v.z * m(2, 2));
}

}  // namespace Orn
