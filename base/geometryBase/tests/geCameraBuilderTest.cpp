#include <orn/base/geometryBase/geCameraBuilder.h>

#include <gtest/gtest.h>

#include <cmath>

using namespace Orn;

namespace {

using B = GeCameraBuilder<double>;

GePoint3<double> project(GeProjectiveMatrix3<double> const& m, double x, double y, double z) {
  return (GePoint3<double>(x, y, z) * m).getPoint();
}

void expectNear(GePoint3<double> const& p, double x, double y, double z) {
  EXPECT_NEAR(p.x, x, 1e-12);
  EXPECT_NEAR(p.y, y, 1e-12);
  EXPECT_NEAR(p.z, z, 1e-12);
}

}  // namespace

TEST(GeCameraBuilder, PerspectiveMapsTheFrustumToTheUnitCube) {
  // A right angle across, a picture half as high as wide: at distance d the window is
  // 2d wide and d high.
  GeProjectiveMatrix3<double> const m = B::makePerspectiveOffset(M_PI / 2, 1, 10, 0.5, 0, 0, 100);
  expectNear(project(m, 1, 0.5, -1), 1, 1, -1);
  expectNear(project(m, -10, -5, -10), -1, -1, 1);
  expectNear(project(m, 0, 0, -10), 0, 0, 1);
  EXPECT_NE(m(1, 1), 0);
  EXPECT_NE(m(2, 2), 0);
  EXPECT_DOUBLE_EQ((GePoint3<double>(0, 0, -4) * m).w, 4);

  // The offset is measured on the focal plane: that point lands in the middle of the picture.
  GeProjectiveMatrix3<double> const shifted = B::makePerspectiveOffset(M_PI / 2, 1, 10, 0.5, 2, 1, 4);
  GePoint3<double> const centre = project(shifted, 2, 1, -4);
  EXPECT_NEAR(centre.x, 0, 1e-12);
  EXPECT_NEAR(centre.y, 0, 1e-12);
  // Depth doesn't move with the offset.
  EXPECT_NEAR(centre.z, project(m, 0, 0, -4).z, 1e-12);
}

TEST(GeCameraBuilder, OrthographicWithHeight) {
  GeProjectiveMatrix3<double> const m = B::makeOrthographicWithHeight(10, 1, 21, 0.5);
  expectNear(project(m, 10, 5, -1), 1, 1, -1);
  expectNear(project(m, -10, 0, -21), -1, 0, 1);
  expectNear(project(m, 0, -5, -11), 0, -1, 0);
  EXPECT_DOUBLE_EQ((GePoint3<double>(3, 4, -7) * m).w, 1);
}
