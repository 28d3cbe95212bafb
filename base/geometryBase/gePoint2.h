#pragma once

#include <istream>
#include <ostream>

namespace Orn {

template <class T>
class GeVector2;

template <class T>
class GePoint2 {
public:
  GePoint2() : x(T()), y(T()) {}
  GePoint2(T x_, T y_) : x(x_), y(y_) {}

  bool operator==(GePoint2 const& o) const { return x == o.x && y == o.y; }
  bool operator!=(GePoint2 const& o) const { return !(*this == o); }

  void dump(std::ostream& out) const { out << x << ' ' << y; }
  void read(std::istream& in) { in >> x >> y; }

  T x;
  T y;
};

}  // namespace Orn
