#pragma once
// Vector of the plane: a displacement, as opposed to a position (GePoint2).

#include <orn/base/except/assertions.h>
#include <orn/base/geometryBase/geStreamUtil.h>

#include <cmath>
#include <istream>
#include <ostream>

namespace Orn {

template <class T>
class GeVector2 {
public:
  GeVector2() : x(T()), y(T()) {}
  GeVector2(T x_, T y_) : x(x_), y(y_) {}
  template <class U>
  explicit GeVector2(GeVector2<U> const& o) : x(T(o.x)), y(T(o.y)) {}

  T& operator()(int i) { return i == 0 ? x : y; }
  T operator()(int i) const { return i == 0 ? x : y; }
  T& operator[](int i) { return (*this)(i); }
  T operator[](int i) const { return (*this)(i); }

  GeVector2 operator-() const { return GeVector2(-x, -y); }
  GeVector2 operator+(GeVector2 const& o) const { return GeVector2(x + o.x, y + o.y); }
  GeVector2 operator-(GeVector2 const& o) const { return GeVector2(x - o.x, y - o.y); }
  GeVector2 operator*(T s) const { return GeVector2(x * s, y * s); }
  GeVector2 operator/(T s) const { return GeVector2(x / s, y / s); }
  GeVector2& operator+=(GeVector2 const& o) { x += o.x; y += o.y; return *this; }
  GeVector2& operator-=(GeVector2 const& o) { x -= o.x; y -= o.y; return *this; }
  GeVector2& operator*=(T s) { x *= s; y *= s; return *this; }
  GeVector2& operator/=(T s) { x /= s; y /= s; return *this; }

  bool operator==(GeVector2 const& o) const { return x == o.x && y == o.y; }
  bool operator!=(GeVector2 const& o) const { return !(*this == o); }

  T dot(GeVector2 const& o) const { return x * o.x + y * o.y; }
  // The z component of the 3D cross product: positive when o is counterclockwise from this.
  T cross(GeVector2 const& o) const { return x * o.y - y * o.x; }
  T getSquaredLength() const { return dot(*this); }
  T getLength() const { return T(std::sqrt(getSquaredLength())); }

  // Makes the vector unit length; the vector must not be zero.
  GeVector2& normalize() {
    T const len = getLength();
    ORN_ASSERT(len > 0);
    x /= len;
    y /= len;
    return *this;
  }
  GeVector2 getNormalized() const { return GeVector2(*this).normalize(); }

  void dump(std::ostream& out) const { GeStreamUtil::writeFields(out, x, y); }
  void read(std::istream& in) { in >> x >> y; }

  T x;
  T y;
};

template <class T>
GeVector2<T> operator*(T s, GeVector2<T> const& v) {
  return v * s;
}

template <class T>
T dot(GeVector2<T> const& a, GeVector2<T> const& b) {
  return a.dot(b);
}

template <class T>
T cross(GeVector2<T> const& a, GeVector2<T> const& b) {
  return a.cross(b);
}

}  // namespace Orn
