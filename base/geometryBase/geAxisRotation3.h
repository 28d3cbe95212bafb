#pragma once
// Rotation of space about one coordinate axis N (0 x, 1 y, 2 z), right-handed, combined with
// matrices without forming a full matrix. With a = (N + 1) % 3 and b = (N + 2) % 3 its row-vector
// matrix has (a, a) = cos, (a, b) = sin, (b, a) = -sin, (b, b) = cos: about z, x turns towards y.
// t.mulOnRight(m) is m * t (t applied after m), t * m is t applied first.

#include <orn/base/geometryBase/geAffineMatrix3.h>
#include <orn/base/geometryBase/geLinearMatrix3.h>
#include <orn/base/geometryBase/gePoint3.h>
#include <orn/base/geometryBase/geProjectiveMatrix3.h>
#include <orn/base/geometryBase/geRotation3.h>
#include <orn/base/geometryBase/geStreamUtil.h>
#include <orn/base/geometryBase/geVector3.h>

#include <cmath>
#include <istream>
#include <ostream>

namespace Orn {

template <int N, class T>
class GeAxisRotation3 {
  static_assert(N >= 0 && N < 3, "the axis is 0, 1 or 2");

public:
  static constexpr int AXIS = N;

  GeAxisRotation3() : _angle(T(0)), _cos(T(1)), _sin(T(0)) {}
  // Sine and cosine are taken in double precision, then rounded to T.
  explicit GeAxisRotation3(T angle)
      : _angle(angle), _cos(T(std::cos(double(angle)))), _sin(T(std::sin(double(angle)))) {}

  T getAngle() const { return _angle; }
  T getCos() const { return _cos; }
  T getSin() const { return _sin; }

  void getMatrix(GeLinearMatrix3<T>& m) const {
    m.setIdentity();
    m(A, A) = _cos;
    m(A, B) = _sin;
    m(B, A) = -_sin;
    m(B, B) = _cos;
  }
  void getMatrix(GeAffineMatrix3<T>& m) const {
    GeLinearMatrix3<T> l;
    getMatrix(l);
    m = GeAffineMatrix3<T>(l);
  }
  GeAxisRotation3 getInverse() const { return GeAxisRotation3(-_angle, _cos, -_sin); }

  GeLinearMatrix3<T> mulOnRight(GeLinearMatrix3<T> const& m) const {
    GeLinearMatrix3<T> r(m);
    return mulOnRightAssign(r);
  }
  GeLinearMatrix3<T>& mulOnRightAssign(GeLinearMatrix3<T>& m) const { return mixColumns(m, 3); }
  GeAffineMatrix3<T> mulOnRight(GeAffineMatrix3<T> const& m) const {
    GeAffineMatrix3<T> r(m);
    return mulOnRightAssign(r);
  }
  GeAffineMatrix3<T>& mulOnRightAssign(GeAffineMatrix3<T>& m) const { return mixColumns(m, 4); }
  GeProjectiveMatrix3<T> mulOnRight(GeProjectiveMatrix3<T> const& m) const {
    GeProjectiveMatrix3<T> r(m);
    return mulOnRightAssign(r);
  }
  GeProjectiveMatrix3<T>& mulOnRightAssign(GeProjectiveMatrix3<T>& m) const { return mixColumns(m, 4); }
  GeRotation3<T> mulOnRight(GeRotation3<T> const& m) const {
    GeRotation3<T> r(m);
    return mulOnRightAssign(r);
  }
  GeRotation3<T>& mulOnRightAssign(GeRotation3<T>& m) const { return mixColumns(m, 3); }

  // t * m in place: rows a and b of m are mixed.
  template <class M>
  M& mulOnLeftAssign(M& m, int nbColumns) const {
    for (int c = 0; c < nbColumns; ++c) {
      T const ra = m(A, c);
      T const rb = m(B, c);
      m(A, c) = _cos * ra + _sin * rb;
      m(B, c) = _cos * rb - _sin * ra;
    }
    return m;
  }

  GeVector3<T> apply(GeVector3<T> const& v) const {
    GeVector3<T> r(v);
    r(A) = v(A) * _cos - v(B) * _sin;
    r(B) = v(A) * _sin + v(B) * _cos;
    return r;
  }

  bool operator==(GeAxisRotation3 const& o) const { return _cos == o._cos && _sin == o._sin; }
  bool operator!=(GeAxisRotation3 const& o) const { return !(*this == o); }

  // The angle; cosine and sine are recomputed from it when read.
  void dump(std::ostream& out) const { GeStreamUtil::write(out, _angle); }
  void read(std::istream& in) {
    T angle;
    in >> angle;
    *this = GeAxisRotation3(angle);
  }

private:
  static constexpr int A = (N + 1) % 3;
  static constexpr int B = (N + 2) % 3;

  GeAxisRotation3(T angle, T c, T s) : _angle(angle), _cos(c), _sin(s) {}

  // m * t: columns a and b of m are mixed.
  template <class M>
  M& mixColumns(M& m, int nbRows) const {
    for (int r = 0; r < nbRows; ++r) {
      T const ca = m(r, A);
      T const cb = m(r, B);
      m(r, A) = ca * _cos - cb * _sin;
      m(r, B) = ca * _sin + cb * _cos;
    }
    return m;
  }

  T _angle;
  T _cos;
  T _sin;
};

template <int N, class T>
GeLinearMatrix3<T> operator*(GeAxisRotation3<N, T> const& t, GeLinearMatrix3<T> m) {
  return t.mulOnLeftAssign(m, 3);
}
template <int N, class T>
GeAffineMatrix3<T> operator*(GeAxisRotation3<N, T> const& t, GeAffineMatrix3<T> m) {
  return t.mulOnLeftAssign(m, 4);
}
template <int N, class T>
GeProjectiveMatrix3<T> operator*(GeAxisRotation3<N, T> const& t, GeProjectiveMatrix3<T> m) {
  return t.mulOnLeftAssign(m, 4);
}
template <int N, class T>
GeRotation3<T> operator*(GeAxisRotation3<N, T> const& t, GeRotation3<T> m) {
  return t.mulOnLeftAssign(m, 3);
}
template <int N, class T>
GeLinearMatrix3<T> operator*(GeLinearMatrix3<T> const& m, GeAxisRotation3<N, T> const& t) {
  return t.mulOnRight(m);
}
template <int N, class T>
GeAffineMatrix3<T> operator*(GeAffineMatrix3<T> const& m, GeAxisRotation3<N, T> const& t) {
  return t.mulOnRight(m);
}
template <int N, class T>
GeProjectiveMatrix3<T> operator*(GeProjectiveMatrix3<T> const& m, GeAxisRotation3<N, T> const& t) {
  return t.mulOnRight(m);
}
template <int N, class T>
GeRotation3<T> operator*(GeRotation3<T> const& m, GeAxisRotation3<N, T> const& t) {
  return t.mulOnRight(m);
}
template <int N, class T>
GeVector3<T> operator*(GeVector3<T> const& v, GeAxisRotation3<N, T> const& t) {
  return t.apply(v);
}
// About the origin.
template <int N, class T>
GePoint3<T> operator*(GePoint3<T> const& p, GeAxisRotation3<N, T> const& t) {
  return GePoint3<T>(t.apply(p.asVector()));
}

}  // namespace Orn
