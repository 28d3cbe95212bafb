#pragma once
// Making Rational values from text and from floats.

#include <orn/base/except/exBase.h>
#include <orn/base/geometryBase/rational.h>

namespace Orn {

class RationalUtilEx : public ExBase {
public:
  using ExBase::ExBase;
  RationalUtilEx* clone() const override = 0;
  [[noreturn]] void raise() const override = 0;

  class ExBadFraction;
};

// Text that is not a fraction of two 32-bit integers.
class RationalUtilEx::ExBadFraction : public RationalUtilEx {
public:
  ExBadFraction(char const* file, int line, char const* text);
  ORN_EX_CONCRETE(ExBadFraction)
};

class RationalUtil {
public:
  // "numerator<separator>denominator", e.g. "4096:3112" or "30000/1001", kept as written (not
  // reduced). Blanks around either number are allowed; text without the separator is a whole
  // number over 1. Anything else raises RationalUtilEx::ExBadFraction.
  static Rational fromFractionString(char const* text, char separator);

  // The fraction nearest to value whose denominator is at most maxDenominator (and at most the
  // largest int), found with the continued fraction of value and its semiconvergents, so it is the
  // best approximation within the bound. The float is taken as the exact binary fraction it holds.
  // Ties go to the smaller denominator. +infinity and -infinity give 1/0 and -1/0. NaN, a value
  // whose integer part doesn't fit an int, and a bound of 0 fail assertions.
  static Rational fromFloat(float value, unsigned int maxDenominator);
};

}  // namespace Orn
