#include <orn/base/geometryBase/geAlignedBox3.h>
#include <orn/base/geometryBase/geAxisRotation3.h>
#include <orn/base/geometryBase/geHomogeneousCoord2.h>
#include <orn/base/geometryBase/geLine3.h>
#include <orn/base/geometryBase/gePlane3.h>
#include <orn/base/geometryBase/geRectangle.h>
#include <orn/base/geometryBase/geRotation2.h>
#include <orn/base/geometryBase/geScale2.h>
#include <orn/base/geometryBase/geScale3.h>
#include <orn/base/geometryBase/geTranslation3.h>
#include <orn/base/geometryBase/geUnitVector3.h>
#include <orn/base/geometryBase/rational.h>

#include <gtest/gtest.h>

#include <iomanip>
#include <sstream>

using namespace Orn;

namespace {

// Dumps through a stream set to a coarse fixed notation, which the dump must not inherit, and
// reads the text back into a default value.
template <class T>
void expectRoundTrip(T const& value) {
  std::stringstream text;
  text << std::fixed << std::setprecision(2);
  value.dump(text);
  T back;
  back.read(text);
  EXPECT_FALSE(text.fail()) << text.str();
  EXPECT_TRUE(back == value) << text.str();
  EXPECT_EQ(text.precision(), 2);
}

}  // namespace

TEST(GeDumpRead, FieldsRoundTripExactly) {
  float const third = 1.f / 3.f;
  double const tenth = 0.1;
  expectRoundTrip(GePoint2<float>(third, -1e-30f));
  expectRoundTrip(GePoint2<int>(-7, 12));
  expectRoundTrip(GePoint3<double>(tenth, 1.0 / 3.0, 6.02e23));
  expectRoundTrip(GeVector2<double>(tenth, -tenth));
  expectRoundTrip(GeVector3<float>(third, 2 * third, 1e30f));
  expectRoundTrip(GeUnitVector3<float>(1, 2, 3));
  expectRoundTrip(GeHomogeneousCoord2<float>(third, 1, 0.5f));
  expectRoundTrip(GeHomogeneousCoord3<double>(tenth, 2, 3, 1.0 / 7.0));
  expectRoundTrip(GeInterval<double>(tenth, 1.0 / 3.0));
  expectRoundTrip(GeRectangle<float>(third, 1, -third, 2));
  expectRoundTrip(GeAlignedBox3<float>(GePoint3<float>(third, 0, 1), GePoint3<float>(2, third, 5)));
  expectRoundTrip(GeAlignedBox3<float>());
  expectRoundTrip(GeLinearMatrix2<float>(third, 1, 2, third));
  expectRoundTrip(GeLinearMatrix3<double>(tenth, 1, 2, 3, 4, 5, 6, 7, 1.0 / 3.0));
  expectRoundTrip(GeAffineMatrix2<float>(third, 1, 2, 3, 4, third));
  expectRoundTrip(GeAffineMatrix3<float>(GeLinearMatrix3<float>(third, 0, 0, 0, 1, 0, 0, 0, 1),
                                         GeVector3<float>(1, third, 3)));
  expectRoundTrip(GeProjectiveMatrix3<double>(tenth, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 1.0 / 3.0));
  expectRoundTrip(GeQuaternion3<float>(GeVector3<float>(1, 1, 0), 0.3f));
  expectRoundTrip(GeScale2<float>(third, 2));
  expectRoundTrip(GeScale3<double>(tenth, 2, 3));
  expectRoundTrip(GeTranslation3<float>(third, -third, 0));
  expectRoundTrip(GeRotation2<float>(third));
  expectRoundTrip(GeRotation3<double>(GeVector3<double>(1, 2, 3), tenth));
  expectRoundTrip(GeAxisRotation3<1, float>(third));
  expectRoundTrip(GeLine3<float>(GePoint3<float>(third, 1, 2), GeVector3<float>(0, third, 1)));
  expectRoundTrip(GePlane3<double>(GeVector3<double>(0, tenth, 1), 1.0 / 3.0));
  expectRoundTrip(Rational(4096, 3112));
}

TEST(GeDumpRead, FieldsAreWrittenInTheirOrder) {
  std::ostringstream out;
  GeRectangle<int>(1, 5, 10, 30).dump(out);
  out << '|';
  GeAlignedBox3<int>(GeInterval<int>(1, 2), GeInterval<int>(3, 4), GeInterval<int>(5, 6)).dump(out);
  out << '|';
  GeQuaternion3<float>(1, 2, 3, 4).dump(out);
  out << '|';
  GeHomogeneousCoord3<float>(1, 2, 3, 4).dump(out);
  out << '|';
  GePlane3<float>(GeVector3<float>(1, 0, 0), 2.5f).dump(out);
  out << '|';
  GeInterval<float>(0.5f, 0.25f).dump(out);
  EXPECT_EQ(out.str(), "1 5 10 30|1 2 3 4 5 6|1 2 3 4|1 2 3 4|1 0 0 2.5|0.5 0.25");
}
