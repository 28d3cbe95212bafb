#pragma once
// Position in the plane. A point minus a point is a GeVector2; a point plus a vector is a point.

#include <orn/base/geometryBase/geStreamUtil.h>
#include <orn/base/geometryBase/geVector2.h>

#include <istream>
#include <ostream>

namespace Orn {

template <class T>
class GePoint2 {
public:
  GePoint2() : x(T()), y(T()) {}
  GePoint2(T x_, T y_) : x(x_), y(y_) {}
  template <class U>
  explicit GePoint2(GePoint2<U> const& o) : x(T(o.x)), y(T(o.y)) {}
  // The point at the end of v from the origin.
  explicit GePoint2(GeVector2<T> const& v) : x(v.x), y(v.y) {}

  T& operator()(int i) { return i == 0 ? x : y; }
  T operator()(int i) const { return i == 0 ? x : y; }
  T& operator[](int i) { return (*this)(i); }
  T operator[](int i) const { return (*this)(i); }

  GeVector2<T> operator-(GePoint2 const& o) const { return GeVector2<T>(x - o.x, y - o.y); }
  GePoint2 operator+(GeVector2<T> const& v) const { return GePoint2(x + v.x, y + v.y); }
  GePoint2 operator-(GeVector2<T> const& v) const { return GePoint2(x - v.x, y - v.y); }
  GePoint2& operator+=(GeVector2<T> const& v) { x += v.x; y += v.y; return *this; }
  GePoint2& operator-=(GeVector2<T> const& v) { x -= v.x; y -= v.y; return *this; }

  // The vector from the origin to the point.
  GeVector2<T> asVector() const { return GeVector2<T>(x, y); }

  bool operator==(GePoint2 const& o) const { return x == o.x && y == o.y; }
  bool operator!=(GePoint2 const& o) const { return !(*this == o); }

  void dump(std::ostream& out) const { GeStreamUtil::writeFields(out, x, y); }
  void read(std::istream& in) { in >> x >> y; }

  T x;
  T y;
};

}  // namespace Orn
