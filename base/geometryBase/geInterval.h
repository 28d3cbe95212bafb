#pragma once
// Interval [min, max): half open for integers, real bounds for floats.

#include <orn/base/geometryBase/geStreamUtil.h>

#include <algorithm>
#include <istream>
#include <ostream>

namespace Orn {

template <class T>
class GeInterval {
public:
  GeInterval() : min(T()), max(T()) {}
  GeInterval(T min_, T max_) : min(min_), max(max_) {}

  T getWidth() const { return max - min; }
  // A width of 0 or less.
  bool isEmpty() const { return !(max > min); }

  // A value under the half-open rule.
  bool contains(T v) const { return min <= v && v < max; }
  // An interval, inclusive of equal bounds.
  bool contains(GeInterval const& other) const { return min <= other.min && other.max <= max; }

  // The common part; empty (max <= min) when they don't overlap.
  GeInterval getIntersection(GeInterval const& o) const {
    return GeInterval(std::max(min, o.min), std::min(max, o.max));
  }

  // Widens the bounds to take in v.
  void extendBy(T v) {
    if (v < min) min = v;
    if (v > max) max = v;
  }

  bool operator==(GeInterval const& o) const { return min == o.min && max == o.max; }
  bool operator!=(GeInterval const& o) const { return !(*this == o); }

  void dump(std::ostream& out) const { GeStreamUtil::writeFields(out, min, max); }
  void read(std::istream& in) { in >> min >> max; }

  T min;
  T max;
};

}  // namespace Orn
