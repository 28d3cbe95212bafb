#pragma once
// Rectangle stored as its x interval then its y interval: x1, x2, y1, y2. Integer rectangles
// are half open: pixel rows y1 <= y < y2, widths x2 - x1.

#include <orn/base/geometryBase/geInterval.h>
#include <orn/base/geometryBase/gePoint2.h>
#include <orn/base/geometryBase/geStreamUtil.h>

#include <istream>
#include <ostream>

namespace Orn {

template <class T>
class GeRectangle {
public:
  GeRectangle() : _x(), _y() {}
  GeRectangle(T x1, T x2, T y1, T y2) : _x(x1, x2), _y(y1, y2) {}
  GeRectangle(GeInterval<T> const& x, GeInterval<T> const& y) : _x(x), _y(y) {}

  T x1() const { return _x.min; }
  T x2() const { return _x.max; }
  T y1() const { return _y.min; }
  T y2() const { return _y.max; }
  T& x1() { return _x.min; }
  T& x2() { return _x.max; }
  T& y1() { return _y.min; }
  T& y2() { return _y.max; }

  T getWidth() const { return _x.getWidth(); }
  T getHeight() const { return _y.getWidth(); }
  GePoint2<T> getDimensions() const { return GePoint2<T>(getWidth(), getHeight()); }

  // Interval of axis i: 0 is x, 1 is y.
  GeInterval<T> const& getSlab(int i) const { return i == 0 ? _x : _y; }
  GeInterval<T>& getSlab(int i) { return i == 0 ? _x : _y; }

  bool isEmpty() const { return _x.isEmpty() || _y.isEmpty(); }

  // Rectangles inclusive of equal bounds; a point under the half-open rule.
  bool contains(GeRectangle const& r) const { return _x.contains(r._x) && _y.contains(r._y); }
  bool contains(GePoint2<T> const& p) const { return _x.contains(p.x) && _y.contains(p.y); }
  bool contains(T x, T y) const { return _x.contains(x) && _y.contains(y); }

  // The common part; empty when they don't overlap.
  GeRectangle getIntersection(GeRectangle const& o) const {
    return GeRectangle(_x.getIntersection(o._x), _y.getIntersection(o._y));
  }

  bool operator==(GeRectangle const& o) const { return _x == o._x && _y == o._y; }
  bool operator!=(GeRectangle const& o) const { return !(*this == o); }

  // x1 x2 y1 y2, the field order.
  void dump(std::ostream& out) const { GeStreamUtil::writeFields(out, x1(), x2(), y1(), y2()); }
  void read(std::istream& in) { in >> x1() >> x2() >> y1() >> y2(); }

private:
  GeInterval<T> _x;
  GeInterval<T> _y;
};

}  // namespace Orn
