#pragma once
// Axis-aligned box of space as three intervals x, y, z: x1, x2, y1, y2, z1, z2, real bounds.
// The default box is empty, with each min at the largest value of T and each max at the lowest,
// so that the first point it is extended by becomes the whole box. A box is empty when a max is
// below its min; a box of one point is not empty.

#include <orn/base/geometryBase/geAffineMatrix3.h>
#include <orn/base/geometryBase/geInterval.h>
#include <orn/base/geometryBase/gePoint3.h>
#include <orn/base/geometryBase/geStreamUtil.h>
#include <orn/base/geometryBase/geVector3.h>

#include <algorithm>
#include <istream>
#include <limits>
#include <ostream>

namespace Orn {

template <class T>
class GeAlignedBox3 {
public:
  GeAlignedBox3() { setEmpty(); }
  // The box of one point.
  explicit GeAlignedBox3(GePoint3<T> const& p) : _slabs{{p.x, p.x}, {p.y, p.y}, {p.z, p.z}} {}
  // The smallest box holding both points, in any order.
  GeAlignedBox3(GePoint3<T> const& a, GePoint3<T> const& b) : GeAlignedBox3(a) { extendBy(b); }
  GeAlignedBox3(GeInterval<T> const& x, GeInterval<T> const& y, GeInterval<T> const& z) : _slabs{x, y, z} {}

  T x1() const { return _slabs[0].min; }
  T x2() const { return _slabs[0].max; }
  T y1() const { return _slabs[1].min; }
  T y2() const { return _slabs[1].max; }
  T z1() const { return _slabs[2].min; }
  T z2() const { return _slabs[2].max; }
  T& x1() { return _slabs[0].min; }
  T& x2() { return _slabs[0].max; }
  T& y1() { return _slabs[1].min; }
  T& y2() { return _slabs[1].max; }
  T& z1() { return _slabs[2].min; }
  T& z2() { return _slabs[2].max; }

  // Interval of axis i: 0 x, 1 y, 2 z.
  GeInterval<T> const& getSlab(int i) const { return _slabs[i]; }
  GeInterval<T>& getSlab(int i) { return _slabs[i]; }

  GePoint3<T> getMin() const { return GePoint3<T>(x1(), y1(), z1()); }
  GePoint3<T> getMax() const { return GePoint3<T>(x2(), y2(), z2()); }
  GePoint3<T> getCenter() const {
    return GePoint3<T>((x1() + x2()) / T(2), (y1() + y2()) / T(2), (z1() + z2()) / T(2));
  }
  GeVector3<T> getDimensions() const { return getMax() - getMin(); }

  void setEmpty() {
    for (GeInterval<T>& s : _slabs) s = GeInterval<T>(std::numeric_limits<T>::max(), std::numeric_limits<T>::lowest());
  }
  bool isEmpty() const {
    return _slabs[0].max < _slabs[0].min || _slabs[1].max < _slabs[1].min || _slabs[2].max < _slabs[2].min;
  }

  void extendBy(GePoint3<T> const& p) {
    for (int i = 0; i < 3; ++i) {
      _slabs[i].min = std::min(_slabs[i].min, p(i));
      _slabs[i].max = std::max(_slabs[i].max, p(i));
    }
  }
  void extendBy(GeAlignedBox3 const& b) {
    if (b.isEmpty()) return;
    extendBy(b.getMin());
    extendBy(b.getMax());
  }

  // Inclusive of the bounds.
  bool contains(GePoint3<T> const& p) const {
    for (int i = 0; i < 3; ++i)
      if (p(i) < _slabs[i].min || p(i) > _slabs[i].max) return false;
    return true;
  }

  // The box of the eight transformed corners; an empty box stays empty.
  GeAlignedBox3 getTransformed(GeAffineMatrix3<T> const& m) const {
    GeAlignedBox3 r;
    if (isEmpty()) return r;
    for (int corner = 0; corner < 8; ++corner) {
      GePoint3<T> const p((corner & 1) ? x2() : x1(), (corner & 2) ? y2() : y1(), (corner & 4) ? z2() : z1());
      r.extendBy(p * m);
    }
    return r;
  }

  // The parameters t for which point + t * vector lies in the box (bounds included), computed in
  // double by the slab method. A line that misses, and any line against an empty box, gives
  // [max double, lowest double]: min above max. A line that only touches gives min == max. A
  // line that runs inside a slab with a zero component is unbounded there.
  GeInterval<double> intersectLine(GePoint3<T> const& point, GeVector3<T> const& vector) const {
    GeInterval<double> const miss(std::numeric_limits<double>::max(), std::numeric_limits<double>::lowest());
    if (isEmpty()) return miss;
    double tMin = std::numeric_limits<double>::lowest();
    double tMax = std::numeric_limits<double>::max();
    for (int i = 0; i < 3; ++i) {
      double const o = double(point(i));
      double const d = double(vector(i));
      double const lo = double(_slabs[i].min);
      double const hi = double(_slabs[i].max);
      if (d == 0.0) {
        if (o < lo || o > hi) return miss;
        continue;
      }
      double t1 = (lo - o) / d;
      double t2 = (hi - o) / d;
      if (t1 > t2) std::swap(t1, t2);
      tMin = std::max(tMin, t1);
      tMax = std::min(tMax, t2);
      if (tMin > tMax) return miss;
    }
    return GeInterval<double>(tMin, tMax);
  }

  bool operator==(GeAlignedBox3 const& o) const {
    return _slabs[0] == o._slabs[0] && _slabs[1] == o._slabs[1] && _slabs[2] == o._slabs[2];
  }
  bool operator!=(GeAlignedBox3 const& o) const { return !(*this == o); }

  // x1 x2 y1 y2 z1 z2.
  void dump(std::ostream& out) const { GeStreamUtil::writeFields(out, x1(), x2(), y1(), y2(), z1(), z2()); }
  void read(std::istream& in) { in >> x1() >> x2() >> y1() >> y2() >> z1() >> z2(); }

private:
  GeInterval<T> _slabs[3];
};

}  // namespace Orn
