#pragma once
// Homogeneous coordinates of a point of the plane: x, y, then w. Dividing by w gives the point.

#include <orn/base/geometryBase/gePoint2.h>
#include <orn/base/geometryBase/geStreamUtil.h>

#include <istream>
#include <ostream>

namespace Orn {

template <class T>
class GeHomogeneousCoord2 {
public:
  GeHomogeneousCoord2() : x(T()), y(T()), w(T(1)) {}
  GeHomogeneousCoord2(T x_, T y_, T w_) : x(x_), y(y_), w(w_) {}
  explicit GeHomogeneousCoord2(GePoint2<T> const& p) : x(p.x), y(p.y), w(T(1)) {}

  T& operator()(int i) { return i == 0 ? x : (i == 1 ? y : w); }
  T operator()(int i) const { return i == 0 ? x : (i == 1 ? y : w); }

  GePoint2<T> getPoint() const { return GePoint2<T>(x / w, y / w); }

  bool operator==(GeHomogeneousCoord2 const& o) const { return x == o.x && y == o.y && w == o.w; }
  bool operator!=(GeHomogeneousCoord2 const& o) const { return !(*this == o); }

  void dump(std::ostream& out) const { GeStreamUtil::writeFields(out, x, y, w); }
  void read(std::istream& in) { in >> x >> y >> w; }

  T x;
  T y;
  T w;
};

}  // namespace Orn
