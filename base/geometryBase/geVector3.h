#pragma once
// Vector of space: a displacement, as opposed to a position (GePoint3).

#include <orn/base/except/assertions.h>
#include <orn/base/geometryBase/geStreamUtil.h>

#include <cmath>
#include <istream>
#include <ostream>

namespace Orn {

template <class T>
class GeVector3 {
public:
  GeVector3() : x(T()), y(T()), z(T()) {}
  GeVector3(T x_, T y_, T z_) : x(x_), y(y_), z(z_) {}
  template <class U>
  explicit GeVector3(GeVector3<U> const& o) : x(T(o.x)), y(T(o.y)), z(T(o.z)) {}

  T& operator()(int i) { return i == 0 ? x : (i == 1 ? y : z); }
  T operator()(int i) const { return i == 0 ? x : (i == 1 ? y : z); }
  T& operator[](int i) { return (*this)(i); }
  T operator[](int i) const { return (*this)(i); }

  GeVector3 operator-() const { return GeVector3(-x, -y, -z); }
  GeVector3 operator+(GeVector3 const& o) const { return GeVector3(x + o.x, y + o.y, z + o.z); }
  GeVector3 operator-(GeVector3 const& o) const { return GeVector3(x - o.x, y - o.y, z - o.z); }
  GeVector3 operator*(T s) const { return GeVector3(x * s, y * s, z * s); }
  GeVector3 operator/(T s) const { return GeVector3(x / s, y / s, z / s); }
  GeVector3& operator+=(GeVector3 const& o) { x += o.x; y += o.y; z += o.z; return *this; }
  GeVector3& operator-=(GeVector3 const& o) { x -= o.x; y -= o.y; z -= o.z; return *this; }
  GeVector3& operator*=(T s) { x *= s; y *= s; z *= s; return *this; }
  GeVector3& operator/=(T s) { x /= s; y /= s; z /= s; return *this; }

  bool operator==(GeVector3 const& o) const { return x == o.x && y == o.y && z == o.z; }
  bool operator!=(GeVector3 const& o) const { return !(*this == o); }

  T dot(GeVector3 const& o) const { return x * o.x + y * o.y + z * o.z; }
  // Right-handed: x cross y is z.
  GeVector3 cross(GeVector3 const& o) const {
    return GeVector3(y * o.z - z * o.y, z * o.x - x * o.z, x * o.y - y * o.x);
  }
  T getSquaredLength() const { return dot(*this); }
  T getLength() const { return T(std::sqrt(getSquaredLength())); }

  // Makes the vector unit length; the vector must not be zero.
  GeVector3& normalize() {
    T const len = getLength();
    ORN_ASSERT(len > 0);
    x /= len;
    y /= len;
    z /= len;
    return *this;
  }
  GeVector3 getNormalized() const { return GeVector3(*this).normalize(); }

  void dump(std::ostream& out) const { GeStreamUtil::writeFields(out, x, y, z); }
  void read(std::istream& in) { in >> x >> y >> z; }

  T x;
  T y;
  T z;
};

template <class T>
GeVector3<T> operator*(T s, GeVector3<T> const& v) {
  return v * s;
}

template <class T>
T dot(GeVector3<T> const& a, GeVector3<T> const& b) {
  return a.dot(b);
}

template <class T>
GeVector3<T> cross(GeVector3<T> const& a, GeVector3<T> const& b) {
  return a.cross(b);
}

}  // namespace Orn
