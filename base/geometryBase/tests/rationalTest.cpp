#include <orn/base/geometryBase/rational.h>
#include <orn/base/geometryBase/rationalUtil.h>

#include <orn/base/except/assertions.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <sstream>

using namespace Orn;

TEST(Rational, NeverReducedAndEqualByValue) {
  Rational const r(4096, 3112);
  EXPECT_EQ(r.getNumerator(), 4096);
  EXPECT_EQ(r.getDenominator(), 3112);
  std::ostringstream out;
  r.dump(out);
  EXPECT_EQ(out.str(), "4096 3112");
  EXPECT_EQ(r, Rational(512, 389));
  EXPECT_NE(r, Rational(4096, 3113));
  // The products need 64 bits: in 32 bits 65536 * 65536 wraps to 0.
  EXPECT_NE(Rational(65536, 1), Rational(0, 65536));
  EXPECT_EQ(Rational(), Rational(0, 7));
  EXPECT_FLOAT_EQ(Rational(3, 4).getFloat(), 0.75f);
  EXPECT_EQ(Rational(1, 0).getFloat(), std::numeric_limits<float>::infinity());
}

TEST(RationalUtil, FromFractionStringKeepsTheTermsAsWritten) {
  Rational r = RationalUtil::fromFractionString("4096:3112", ':');
  EXPECT_EQ(r.getNumerator(), 4096);
  EXPECT_EQ(r.getDenominator(), 3112);
  r = RationalUtil::fromFractionString(" 30000 / 1001 ", '/');
  EXPECT_EQ(r.getNumerator(), 30000);
  EXPECT_EQ(r.getDenominator(), 1001);
  r = RationalUtil::fromFractionString("-25", ':');
  EXPECT_EQ(r.getNumerator(), -25);
  EXPECT_EQ(r.getDenominator(), 1);
  for (char const* bad : {"", "abc", "1:", ":2", "1:2:3", "1.5:2", "99999999999:1", "4/3"})
    EXPECT_THROW(RationalUtil::fromFractionString(bad, ':'), RationalUtilEx::ExBadFraction) << bad;
  EXPECT_THROW(RationalUtil::fromFractionString(nullptr, ':'), RationalUtilEx::ExBadFraction);
}

TEST(RationalUtil, FromFloatFindsTheBestFractionWithinTheBound) {
  auto expect = [](float v, unsigned bound, int n, int d) {
    Rational const r = RationalUtil::fromFloat(v, bound);
    EXPECT_EQ(r.getNumerator(), n) << v << " within " << bound;
    EXPECT_EQ(r.getDenominator(), d) << v << " within " << bound;
  };
  expect(1.f / 3.f, 100, 1, 3);
  expect(3.14159265f, 1000, 355, 113);
  // 311/99 beats the convergent 22/7: a semiconvergent.
  expect(3.14159265f, 100, 311, 99);
  expect(-0.75f, 10, -3, 4);
  expect(29.97f, 1001, 2997, 100);
  expect(0.1f, 1000000, 1, 10);
  expect(1e9f, 10, 1000000000, 1);
  expect(0.6f, 1, 1, 1);
  expect(1e-20f, 1000, 0, 1);
  expect(std::numeric_limits<float>::infinity(), 5, 1, 0);
  EXPECT_THROW(RationalUtil::fromFloat(std::nanf(""), 10), AssertionsEx::ExAssertionFailed);
  EXPECT_THROW(RationalUtil::fromFloat(3e9f, 10), AssertionsEx::ExAssertionFailed);
}
