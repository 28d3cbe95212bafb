#pragma once
// A ratio of two 32-bit integers, never reduced: 4096:3112 stays 4096:3112.

#include <cstdint>
#include <istream>
#include <ostream>

namespace Orn {

class Rational {
public:
  Rational() : _numerator(0), _denominator(1) {}
  Rational(int numerator, int denominator) : _numerator(numerator), _denominator(denominator) {}

  int getNumerator() const { return _numerator; }
  int getDenominator() const { return _denominator; }
  // float(n) / float(d): 1/0 is +infinity.
  float getFloat() const { return float(_numerator) / float(_denominator); }
  void setValue(int numerator, int denominator) {
    _numerator = numerator;
    _denominator = denominator;
  }

  // Equal values: n1 * d2 == n2 * d1 in 64 bits.
  bool operator==(Rational const& o) const {
    return std::int64_t(_numerator) * o._denominator == std::int64_t(o._numerator) * _denominator;
  }
  bool operator!=(Rational const& o) const { return !(*this == o); }

  void dump(std::ostream& out) const { out << _numerator << ' ' << _denominator; }
  void read(std::istream& in) { in >> _numerator >> _denominator; }

private:
  int _numerator;
  int _denominator;
};

}  // namespace Orn
