#include <orn/base/geometryBase/floatUtil.h>
#include <orn/base/geometryBase/rational.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

using namespace Orn;

namespace {

void checkAspect(Rational const& aspectRatio) { ORN_ASSERT_FLOAT_GREATER(aspectRatio.getFloat(), 0.F); }

}  // namespace

TEST(FloatUtil, RelativeTestsUseTheTypeEpsilon) {
  float const inf = std::numeric_limits<float>::infinity();
  EXPECT_EQ(FloatUtil::abs(-2.5f), 2.5f);
  EXPECT_EQ(FloatUtil::abs(-3), 3);
  EXPECT_EQ(FloatUtil::getEpsilon<float>(), 1.1920929e-7f);
  EXPECT_EQ(FloatUtil::getEpsilon<double>(), 2.220446049250313e-16);

  // Zero: only an exact zero passes, a tiny value of either sign does not.
  EXPECT_TRUE(FloatUtil::isRelZero(0.f));
  EXPECT_FALSE(FloatUtil::isRelZero(1e-30f));
  EXPECT_FALSE(FloatUtil::isRelZero(-1e-30));

  EXPECT_TRUE(FloatUtil::isRelEqual(1.f, 1.f + 1.1920929e-7f));
  EXPECT_FALSE(FloatUtil::isRelEqual(1.f, 1.f + 4 * 1.1920929e-7f));
  EXPECT_TRUE(FloatUtil::isRelEqual(1e20, 1e20 * (1 + 2.220446049250313e-16)));
  EXPECT_TRUE(FloatUtil::isRelEqual(inf, inf));

  // Greater than: beyond the tolerance; an infinite magnitude counts as 0.
  EXPECT_TRUE(FloatUtil::isRelGreater(1e-30f, 0.f));
  EXPECT_TRUE(FloatUtil::isRelGreater(inf, 0.f));
  EXPECT_FALSE(FloatUtil::isRelGreater(0.f, 0.f));
  EXPECT_FALSE(FloatUtil::isRelGreater(-1.f, 0.f));
  EXPECT_FALSE(FloatUtil::isRelGreater(std::nanf(""), 0.f));
  EXPECT_FALSE(FloatUtil::isRelGreater(1.f + 1.1920929e-7f, 1.f));
  EXPECT_TRUE(FloatUtil::isRelGreater(1.f + 4 * 1.1920929e-7f, 1.f));
  EXPECT_TRUE(FloatUtil::isRelLess(1.f, 2.f));
}

TEST(FloatUtil, GreaterAssertionReportsConditionAndOperands) {
  EXPECT_NO_THROW(checkAspect(Rational(4096, 3112)));
  EXPECT_NO_THROW(checkAspect(Rational(1, 0)));
  EXPECT_THROW(checkAspect(Rational(0, 1)), AssertionsEx::ExAssertionFailed);
  EXPECT_THROW(checkAspect(Rational(0, 0)), AssertionsEx::ExAssertionFailed);
  try {
    checkAspect(Rational(-1, 4));
    FAIL() << "no raise";
  } catch (AssertionsEx::ExAssertionFailed const& e) {
    EXPECT_STREQ(e.getCondition(), "aspectRatio.getFloat() is greater than 0.F");
    std::string const reason = e.getReason();
    EXPECT_NE(reason.find("aspectRatio.getFloat()"), std::string::npos);
    EXPECT_NE(reason.find(" is greater than "), std::string::npos);
    EXPECT_NE(reason.find("-0.25"), std::string::npos);
    EXPECT_NE(std::string(e.getFile()).find("floatUtilTest.cpp"), std::string::npos);
    std::unique_ptr<ExBase> stored(e.clone());
    EXPECT_THROW(stored->raise(), FloatUtil::ExComparisonFailed);
  }
}
