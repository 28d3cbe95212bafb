#pragma once
// Four colour components r, g, b, a in that order.

#include <istream>
#include <ostream>

namespace Orn {

template <class T>
class CoRgbaColorTyped {
public:
  CoRgbaColorTyped() : r(T()), g(T()), b(T()), a(T()) {}
  CoRgbaColorTyped(T r_, T g_, T b_, T a_) : r(r_), g(g_), b(b_), a(a_) {}

  T& operator[](int i) { return (&r)[i]; }
  T const& operator[](int i) const { return (&r)[i]; }

  bool operator==(CoRgbaColorTyped const& o) const { return r == o.r && g == o.g && b == o.b && a == o.a; }
  bool operator!=(CoRgbaColorTyped const& o) const { return !(*this == o); }

  // Component-wise arithmetic.
  CoRgbaColorTyped operator+(CoRgbaColorTyped const& o) const { return CoRgbaColorTyped(r + o.r, g + o.g, b + o.b, a + o.a); }
  CoRgbaColorTyped operator-(CoRgbaColorTyped const& o) const { return CoRgbaColorTyped(r - o.r, g - o.g, b - o.b, a - o.a); }
  CoRgbaColorTyped operator*(T k) const { return CoRgbaColorTyped(r * k, g * k, b * k, a * k); }
  CoRgbaColorTyped& operator+=(CoRgbaColorTyped const& o) {
    r += o.r;
    g += o.g;
    b += o.b;
    a += o.a;
    return *this;
  }
  CoRgbaColorTyped& operator-=(CoRgbaColorTyped const& o) {
    r -= o.r;
    g -= o.g;
    b -= o.b;
    a -= o.a;
    return *this;
  }
  CoRgbaColorTyped& operator*=(T k) {
    r *= k;
    g *= k;
    b *= k;
    a *= k;
    return *this;
  }

  void dump(std::ostream& out) const { out << r << ' ' << g << ' ' << b << ' ' << a; }
  void read(std::istream& in) { in >> r >> g >> b >> a; }

  // (0, 0, 0, 0).
  static const CoRgbaColorTyped ZERO;

  T r;
  T g;
  T b;
  T a;
};

template <class T>
inline const CoRgbaColorTyped<T> CoRgbaColorTyped<T>::ZERO(T(0), T(0), T(0), T(0));

}  // namespace Orn
