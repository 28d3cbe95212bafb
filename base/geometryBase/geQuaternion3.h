#pragma once
// Rotation of space as a quaternion x, y, z, w (vector part, then scalar part).
//
// The product is Hamilton's: a * b rotates by b first, then by a, so
// getMatrix(a * b) == getMatrix(b) * getMatrix(a) in the row-vector convention of the matrices.
// A quaternion need not be unit length to stand for a rotation: the matrix is built with
// s = 2 / |q|^2, and the zero quaternion gives the identity.

#include <orn/base/except/assertions.h>
#include <orn/base/geometryBase/geAffineMatrix3.h>
#include <orn/base/geometryBase/geLinearMatrix3.h>
#include <orn/base/geometryBase/gePoint3.h>
#include <orn/base/geometryBase/geStreamUtil.h>
#include <orn/base/geometryBase/geVector3.h>

#include <cmath>
#include <istream>
#include <ostream>

namespace Orn {

template <class T>
class GeQuaternion3 {
public:
  // The identity.
  GeQuaternion3() : x(T(0)), y(T(0)), z(T(0)), w(T(1)) {}
  GeQuaternion3(T x_, T y_, T z_, T w_) : x(x_), y(y_), z(z_), w(w_) {}
  // Rotation by angle radians about axis, right-handed; the axis must not be zero.
  GeQuaternion3(GeVector3<T> const& axis, T angle) {
    GeVector3<T> const a = axis.getNormalized();
    T const s = T(std::sin(angle * T(0.5)));
    x = a.x * s;
    y = a.y * s;
    z = a.z * s;
    w = T(std::cos(angle * T(0.5)));
  }
  template <class U>
  explicit GeQuaternion3(GeQuaternion3<U> const& o) : x(T(o.x)), y(T(o.y)), z(T(o.z)), w(T(o.w)) {}

  GeVector3<T> getVector() const { return GeVector3<T>(x, y, z); }

  GeQuaternion3 operator*(GeQuaternion3 const& b) const {
    return GeQuaternion3(w * b.x + x * b.w + y * b.z - z * b.y, w * b.y + y * b.w + z * b.x - x * b.z,
                         w * b.z + z * b.w + x * b.y - y * b.x, w * b.w - x * b.x - y * b.y - z * b.z);
  }
  GeQuaternion3& operator*=(GeQuaternion3 const& b) { return *this = *this * b; }
  GeQuaternion3 operator*(T s) const { return GeQuaternion3(x * s, y * s, z * s, w * s); }
  GeQuaternion3 operator+(GeQuaternion3 const& b) const { return GeQuaternion3(x + b.x, y + b.y, z + b.z, w + b.w); }
  GeQuaternion3 operator-(GeQuaternion3 const& b) const { return GeQuaternion3(x - b.x, y - b.y, z - b.z, w - b.w); }
  GeQuaternion3 operator-() const { return GeQuaternion3(-x, -y, -z, -w); }

  bool operator==(GeQuaternion3 const& o) const { return x == o.x && y == o.y && z == o.z && w == o.w; }
  bool operator!=(GeQuaternion3 const& o) const { return !(*this == o); }

  T dot(GeQuaternion3 const& o) const { return x * o.x + y * o.y + z * o.z + w * o.w; }
  T getSquaredNorm() const { return dot(*this); }
  T getNorm() const { return T(std::sqrt(getSquaredNorm())); }

  GeQuaternion3 getConjugate() const { return GeQuaternion3(-x, -y, -z, w); }
  // The conjugate divided by the squared norm; the zero quaternion stays zero.
  GeQuaternion3 getInverse() const {
    T const n = getSquaredNorm();
    if (n == T(0)) return *this;
    return getConjugate() * (T(1) / n);
  }

  // Makes the quaternion unit length; it must not be zero.
  GeQuaternion3& normalize() {
    T const len = getNorm();
    ORN_ASSERT(len > 0);
    x /= len;
    y /= len;
    z /= len;
    w /= len;
    return *this;
  }
  GeQuaternion3 getNormalized() const { return GeQuaternion3(*this).normalize(); }

  // The rotation as a matrix acting on row vectors: v * m is the rotated v.
  void getMatrix(GeLinearMatrix3<T>& m) const {
    T const n = getSquaredNorm();
    T const s = n > T(0) ? T(2) / n : T(0);
    T const xs = x * s, ys = y * s, zs = z * s;
    T const wx = w * xs, wy = w * ys, wz = w * zs;
    T const xx = x * xs, xy = x * ys, xz = x * zs;
    T const yy = y * ys, yz = y * zs, zz = z * zs;
    m = GeLinearMatrix3<T>(T(1) - (yy + zz), xy + wz, xz - wy,
                           xy - wz, T(1) - (xx + zz), yz + wx,
                           xz + wy, yz - wx, T(1) - (xx + yy));
  }
  // The same, with no translation.
  void getMatrix(GeAffineMatrix3<T>& m) const {
    GeLinearMatrix3<T> l;
    getMatrix(l);
    m = GeAffineMatrix3<T>(l);
  }

  GeVector3<T> rotate(GeVector3<T> const& v) const {
    GeLinearMatrix3<T> m;
    getMatrix(m);
    return v * m;
  }
  // About the origin.
  GePoint3<T> rotate(GePoint3<T> const& p) const { return GePoint3<T>(rotate(p.asVector())); }

  // The rotation of a rotation matrix (row-vector convention). Rows whose length differs from 1
  // by more than tolerance are normalised first, so a scale applied before the rotation doesn't
  // disturb the result. The result is unit length with w >= 0.
  void setMatrix(GeLinearMatrix3<T> const& m, T tolerance) {
    GeLinearMatrix3<T> r(m);
    for (int i = 0; i < 3; ++i) {
      GeVector3<T> row = r.getRow(i);
      T const len = row.getLength();
      if (len > T(0) && std::fabs(len - T(1)) > tolerance) r.setRow(i, row / len);
    }
    setRotationMatrix(r);
  }
  // The rotation of the linear part; the translation is ignored.
  void setMatrix(GeAffineMatrix3<T> const& m, T tolerance) { setMatrix(m.getLinear(), tolerance); }

  // The rotation that turns the view axis, -z, along direction, with the y axis turned as near to
  // up as it can be while staying perpendicular to direction. When up is parallel to direction,
  // another perpendicular is taken. direction must not be zero.
  void aim(GeVector3<T> const& direction, GeVector3<T> const& up) {
    GeVector3<T> const back = -direction.getNormalized();
    GeVector3<T> trueUp = up - back * up.dot(back);
    if (!(trueUp.getLength() > T(0))) {
      // The axis least aligned with direction, made perpendicular to it.
      int axis = 0;
      for (int i = 1; i < 3; ++i)
        if (std::fabs(back(i)) < std::fabs(back(axis))) axis = i;
      GeVector3<T> e;
      e(axis) = T(1);
      trueUp = e - back * e.dot(back);
    }
    trueUp.normalize();
    GeVector3<T> const right = trueUp.cross(back);
    setRotationMatrix(GeLinearMatrix3<T>(right, trueUp, back));
  }

  // Spectral axis adjustment of a polar decomposition. This quaternion is the rotation U of a
  // stretch S = U K U^-1, K = diag(scale). Returns the rotation p, among those that keep
  // p^-1 K p diagonal (signed permutations of the axes, and in the plane of two equal scales any
  // turn), for which this * p is the smallest rotation, i.e. has the largest |w|. scale receives
  // the permuted factors that go with this * p. The result is unit length and (this * p).w >= 0.
  GeQuaternion3 getSnuggle(GeVector3<T>& scale) const {
    GeQuaternion3 const q = getNormalized();
    GeQuaternion3 p;
    bool const xy = scale.x == scale.y;
    bool const yz = scale.y == scale.z;
    bool const xz = scale.x == scale.z;
    if (xy && yz) {
      // Any rotation keeps K: undo q entirely.
      p = q.getConjugate();
    } else {
      // The axis of the distinct factor when two are equal; -1 when all differ.
      int const freeAxis = xy ? 2 : (yz ? 0 : (xz ? 1 : -1));
      T best = T(-1);
      GeQuaternion3 turnAxis(T(0), T(0), T(0), T(0));
      if (freeAxis >= 0) turnAxis(freeAxis) = T(1);
      forEachAxisPermutation([&](GeQuaternion3 const& g) {
        T const a = (q * g).w;
        if (freeAxis < 0) {
          if (std::fabs(a) > best) {
            best = std::fabs(a);
            p = g;
          }
          return;
        }
        // p = turn(theta about freeAxis) * g: w of q * p is cos(theta/2) a + sin(theta/2) b,
        // largest when (cos, sin) is along (a, b).
        T const b = (q * turnAxis * g).w;
        T const len = T(std::sqrt(a * a + b * b));
        if (len > best) {
          best = len;
          if (len > T(0)) {
            GeQuaternion3 turn(T(0), T(0), T(0), a / len);
            turn(freeAxis) = b / len;
            p = turn * g;
          } else {
            p = g;
          }
        }
      });
    }
    if ((q * p).w < T(0)) p = -p;

    // p maps axis i onto +-axis j: the new factor i is the old factor j.
    GeVector3<T> const old = scale;
    for (int i = 0; i < 3; ++i) {
      GeVector3<T> e;
      e(i) = T(1);
      GeVector3<T> const image = p.rotate(e);
      int j = 0;
      for (int k = 1; k < 3; ++k)
        if (std::fabs(image(k)) > std::fabs(image(j))) j = k;
      scale(i) = old(j);
    }
    return p;
  }

  T& operator()(int i) { return i == 0 ? x : (i == 1 ? y : (i == 2 ? z : w)); }
  T operator()(int i) const { return i == 0 ? x : (i == 1 ? y : (i == 2 ? z : w)); }

  void dump(std::ostream& out) const { GeStreamUtil::writeFields(out, x, y, z, w); }
  void read(std::istream& in) { in >> x >> y >> z >> w; }

  T x;
  T y;
  T z;
  T w;

private:
  // From an orthonormal matrix, by the largest of the four diagonal combinations for accuracy.
  void setRotationMatrix(GeLinearMatrix3<T> const& r) {
    // c(i, j) is the column-vector matrix, the transpose of r.
    auto c = [&r](int i, int j) { return r(j, i); };
    T const trace = c(0, 0) + c(1, 1) + c(2, 2);
    int big = 0;
    for (int i = 1; i < 3; ++i)
      if (c(i, i) > c(big, big)) big = i;
    if (trace >= c(big, big)) {
      T const s = T(std::sqrt(trace + T(1)));
      w = s * T(0.5);
      T const f = T(0.5) / s;
      x = (c(2, 1) - c(1, 2)) * f;
      y = (c(0, 2) - c(2, 0)) * f;
      z = (c(1, 0) - c(0, 1)) * f;
    } else {
      int const i = big;
      int const j = (i + 1) % 3;
      int const k = (i + 2) % 3;
      T const s = T(std::sqrt(c(i, i) - (c(j, j) + c(k, k)) + T(1)));
      (*this)(i) = s * T(0.5);
      T const f = T(0.5) / s;
      (*this)(j) = (c(i, j) + c(j, i)) * f;
      (*this)(k) = (c(k, i) + c(i, k)) * f;
      w = (c(k, j) - c(j, k)) * f;
    }
    if (w < T(0)) *this = -*this;
    T const n = getNorm();
    if (n > T(0)) *this = *this * (T(1) / n);
  }

  // The 24 rotations that map the axes onto the axes, each given once (up to sign): the identity,
  // half turns about the axes, quarter turns about the axes, half turns about the face diagonals,
  // third turns about the body diagonals.
  template <class F>
  static void forEachAxisPermutation(F&& f) {
    T const h = T(0.5);
    T const r = T(std::sqrt(0.5));
    f(GeQuaternion3());
    for (int a = 0; a < 3; ++a) {
      GeQuaternion3 g(T(0), T(0), T(0), T(0));
      g(a) = T(1);
      f(g);
    }
    for (int a = 0; a < 3; ++a) {
      for (T sign : {T(1), T(-1)}) {
        GeQuaternion3 g(T(0), T(0), T(0), r);
        g(a) = sign * r;
        f(g);
      }
    }
    for (int a = 0; a < 3; ++a) {
      int const b = (a + 1) % 3;
      for (T sign : {T(1), T(-1)}) {
        GeQuaternion3 g(T(0), T(0), T(0), T(0));
        g(a) = r;
        g(b) = sign * r;
        f(g);
      }
    }
    for (T sx : {h, -h})
      for (T sy : {h, -h})
        for (T sz : {h, -h}) f(GeQuaternion3(sx, sy, sz, h));
  }
};

template <class T>
GeQuaternion3<T> operator*(T s, GeQuaternion3<T> const& q) {
  return q * s;
}

}  // namespace Orn
