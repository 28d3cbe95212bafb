#pragma once
// Three colour components r, g, b in that order.

#include <istream>
#include <ostream>

namespace Orn {

template <class T>
class CoRgbColorTyped {
public:
  CoRgbColorTyped() : r(T()), g(T()), b(T()) {}
  CoRgbColorTyped(T r_, T g_, T b_) : r(r_), g(g_), b(b_) {}

  T& operator[](int i) { return (&r)[i]; }
  T const& operator[](int i) const { return (&r)[i]; }

  bool operator==(CoRgbColorTyped const& o) const { return r == o.r && g == o.g && b == o.b; }
  bool operator!=(CoRgbColorTyped const& o) const { return !(*this == o); }

  // Component-wise arithmetic.
  CoRgbColorTyped operator+(CoRgbColorTyped const& o) const { return CoRgbColorTyped(r + o.r, g + o.g, b + o.b); }
  CoRgbColorTyped operator-(CoRgbColorTyped const& o) const { return CoRgbColorTyped(r - o.r, g - o.g, b - o.b); }
  CoRgbColorTyped operator*(T k) const { return CoRgbColorTyped(r * k, g * k, b * k); }
  CoRgbColorTyped& operator+=(CoRgbColorTyped const& o) {
    r += o.r;
    g += o.g;
    b += o.b;
    return *this;
  }
  CoRgbColorTyped& operator-=(CoRgbColorTyped const& o) {
    r -= o.r;
    g -= o.g;
    b -= o.b;
    return *this;
  }
  CoRgbColorTyped& operator*=(T k) {
    r *= k;
    g *= k;
    b *= k;
    return *this;
  }

  void dump(std::ostream& out) const { out << r << ' ' << g << ' ' << b; }
  void read(std::istream& in) { in >> r >> g >> b; }

  T r;
  T g;
  T b;
};

}  // namespace Orn
