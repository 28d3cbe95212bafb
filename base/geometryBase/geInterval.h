#pragma once
// Interval [min, max): half open for integers, real bounds for floats.

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
  bool isEmpty() const { return !(max > min); }

  // A value under the half-open rule.
  bool contains(T v) const { return min <= v && v < max; }
  // An interval, inclusive of equal bounds.
  bool contains(GeInterval const& other) const { return min <= other.min && other.max <= max; }

  bool operator==(GeInterval const& o) const { return min == o.min && max == o.max; }
  bool operator!=(GeInterval const& o) const { return !(*this == o); }

  void dump(std::ostream& out) const { out << min << ' ' << max; }
  void read(std::istream& in) { in >> min >> max; }

  T min;
  T max;
};

}  // namespace Orn
