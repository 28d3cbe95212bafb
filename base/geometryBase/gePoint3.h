#pragma once
// Position in space. A point minus a point is a GeVector3; a point plus a vector is a point.

#include <orn/base/geometryBase/gePoint2.h>
#include <orn/base/geometryBase/geStreamUtil.h>
#include <orn/base/geometryBase/geVector3.h>

#include <istream>
#include <ostream>

namespace Orn {

template <class T>
class GePoint3 {
public:
  GePoint3() : x(T()), y(T()), z(T()) {}
  GePoint3(T x_, T y_, T z_) : x(x_), y(y_), z(z_) {}
  template <class U>
  explicit GePoint3(GePoint3<U> const& o) : x(T(o.x)), y(T(o.y)), z(T(o.z)) {}
  // The point at the end of v from the origin.
  explicit GePoint3(GeVector3<T> const& v) : x(v.x), y(v.y), z(v.z) {}

  T& operator()(int i) { return i == 0 ? x : (i == 1 ? y : z); }
  T operator()(int i) const { return i == 0 ? x : (i == 1 ? y : z); }
  T& operator[](int i) { return (*this)(i); }
  T operator[](int i) const { return (*this)(i); }

  GePoint2<T> xy() const { return GePoint2<T>(x, y); }

  GeVector3<T> operator-(GePoint3 const& o) const { return GeVector3<T>(x - o.x, y - o.y, z - o.z); }
  GePoint3 operator+(GeVector3<T> const& v) const { return GePoint3(x + v.x, y + v.y, z + v.z); }
  GePoint3 operator-(GeVector3<T> const& v) const { return GePoint3(x - v.x, y - v.y, z - v.z); }
  GePoint3& operator+=(GeVector3<T> const& v) { x += v.x; y += v.y; z += v.z; return *this; }
  GePoint3& operator-=(GeVector3<T> const& v) { x -= v.x; y -= v.y; z -= v.z; return *this; }

  // The vector from the origin to the point.
  GeVector3<T> asVector() const { return GeVector3<T>(x, y, z); }

  bool operator==(GePoint3 const& o) const { return x == o.x && y == o.y && z == o.z; }
  bool operator!=(GePoint3 const& o) const { return !(*this == o); }

  void dump(std::ostream& out) const { GeStreamUtil::writeFields(out, x, y, z); }
  void read(std::istream& in) { in >> x >> y >> z; }

  T x;
  T y;
  T z;
};

}  // namespace Orn
