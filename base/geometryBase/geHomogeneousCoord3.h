#pragma once
// Homogeneous coordinates of a point of space: x, y, z, then w. Dividing by w gives the point.

#include <orn/base/geometryBase/gePoint3.h>
#include <orn/base/geometryBase/geStreamUtil.h>

#include <istream>
#include <ostream>

namespace Orn {

template <class T>
class GeHomogeneousCoord3 {
public:
  GeHomogeneousCoord3() : x(T()), y(T()), z(T()), w(T(1)) {}
  GeHomogeneousCoord3(T x_, T y_, T z_, T w_) : x(x_), y(y_), z(z_), w(w_) {}
  explicit GeHomogeneousCoord3(GePoint3<T> const& p) : x(p.x), y(p.y), z(p.z), w(T(1)) {}
  template <class U>
  explicit GeHomogeneousCoord3(GeHomogeneousCoord3<U> const& o)
      : x(T(o.x)), y(T(o.y)), z(T(o.z)), w(T(o.w)) {}

  T& operator()(int i) { return i == 0 ? x : (i == 1 ? y : (i == 2 ? z : w)); }
  T operator()(int i) const { return i == 0 ? x : (i == 1 ? y : (i == 2 ? z : w)); }

  GePoint3<T> getPoint() const { return GePoint3<T>(x / w, y / w, z / w); }

  bool operator==(GeHomogeneousCoord3 const& o) const {
    return x == o.x && y == o.y && z == o.z && w == o.w;
  }
  bool operator!=(GeHomogeneousCoord3 const& o) const { return !(*this == o); }

  void dump(std::ostream& out) const { GeStreamUtil::writeFields(out, x, y, z, w); }
  void read(std::istream& in) { in >> x >> y >> z >> w; }

  T x;
  T y;
  T z;
  T w;
};

}  // namespace Orn
