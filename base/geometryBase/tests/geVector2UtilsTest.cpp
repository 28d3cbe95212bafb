#include <orn/base/geometryBase/geVector2Utils.h>

#include <gtest/gtest.h>

#include <cmath>

using namespace Orn;

namespace {
using U = GeVector2Utils<float>;
using P = GePoint2<float>;
using V = GeVector2<float>;
}  // namespace

TEST(GeVector2Utils, SignedAngleFromAToB) {
  EXPECT_FLOAT_EQ(U::getAngle(V(1, 0), V(0, 1)), float(M_PI / 2));
  EXPECT_FLOAT_EQ(U::getAngle(V(0, 1), V(1, 0)), -float(M_PI / 2));
  EXPECT_FLOAT_EQ(U::getAngle(V(2, 0), V(3, 3)), float(M_PI / 4));
  EXPECT_FLOAT_EQ(U::getAngle(V(0, -1), V(-1, 0)), -float(M_PI / 2));
  EXPECT_NEAR(U::getAngle(V(1, 0), V(-1, -1e-3f)), -M_PI, 2e-3);
  EXPECT_FLOAT_EQ(U::distanceBetweenPoints(P(1, 1), P(4, 5)), 5.f);
}

TEST(GeVector2Utils, NearestPointOnASegmentIsClamped) {
  P const a(0, 0), b(2, 0);
  P nearest;
  EXPECT_FLOAT_EQ(U::getNearestPointOnSegment(P(1, 5), a, b, nearest), 0.5f);
  EXPECT_EQ(nearest, P(1, 0));
  EXPECT_FLOAT_EQ(U::getNearestPointOnSegment(P(-3, 1), a, b, nearest), 0.f);
  EXPECT_EQ(nearest, a);
  EXPECT_FLOAT_EQ(U::getNearestParameterOnSegment(P(9, -1), a, b), 1.f);
  EXPECT_EQ(U::getNearestPointOnSegment(P(9, -1), a, b), b);
  // A segment of one point.
  EXPECT_EQ(U::getNearestPointOnSegment(P(9, -1), a, a), a);
  EXPECT_FLOAT_EQ(U::getNearestParameterOnSegment(P(9, -1), a, a), 0.f);
}

TEST(GeVector2Utils, CrossingsGiveAnEvenOddInsideTestOnAConcaveOutline) {
  // A U open at the top: the notch 1 < x < 2, y > 1 is outside.
  Vector<P> const u = {P(0, 0), P(3, 0), P(3, 3), P(2, 3), P(2, 1), P(1, 1), P(1, 3), P(0, 3)};
  auto inside = [&u](P const& p) { return U::getCrossings(u, p) % 2 == 1; };
  EXPECT_FALSE(inside(P(1.5f, 2)));
  EXPECT_TRUE(inside(P(2.5f, 2)));
  EXPECT_TRUE(inside(P(0.5f, 2)));
  EXPECT_TRUE(inside(P(1.5f, 0.5f)));
  EXPECT_FALSE(inside(P(4, 1)));
  // The ray runs through two vertices and along the bottom of the notch.
  EXPECT_EQ(U::getCrossings(u, P(-1, 1)), 4);
  // Without the closing segment x = 0, one crossing fewer.
  EXPECT_EQ(U::getCrossings(u, P(-1, 2)), 4);
  EXPECT_EQ(U::getCrossings(u, P(-1, 2), false), 3);
  // Closing by repeating the first point counts the same.
  Vector<P> closed = u;
  closed.push_back(u.front());
  EXPECT_EQ(U::getCrossings(closed, P(-1, 2)), 4);
  EXPECT_EQ(U::getCrossings(closed, P(-1, 2), false), 4);
}

TEST(GeVector2Utils, PointsAndRectanglesAgainstSegments) {
  Vector<P> const line = {P(0, 0), P(3, 3), P(6, 0)};
  EXPECT_TRUE(U::pointIntersectsSegments(line, P(1, 1)));
  EXPECT_TRUE(U::pointIntersectsSegments(line, P(4, 2)));
  EXPECT_FALSE(U::pointIntersectsSegments(line, P(-1, -1)));  // on the line, beyond the end
  EXPECT_FALSE(U::pointIntersectsSegments(line, P(1.05f, 1)));
  EXPECT_TRUE(U::pointIntersectsSegments(line, P(1.05f, 1), 0.1f));

  Vector<P> const across = {P(-1, 0.5f), P(5, 0.5f)};
  GeRectangle<float> const unit(0, 1, 0, 1);
  EXPECT_TRUE(U::rectangleIntersectsSegments(across, unit));
  Vector<P> const around = {P(-1, -1), P(2, -1), P(2, 2)};
  EXPECT_FALSE(U::rectangleIntersectsSegments(around, unit));
  Vector<P> const inner = {P(0.2f, 0.2f), P(0.4f, 0.3f)};
  EXPECT_TRUE(U::rectangleIntersectsSegments(inner, unit));
  // Passing by the corner, then touching it: bounds are included.
  Vector<P> const corner = {P(2.5f, 0), P(0, 2.5f)};
  EXPECT_FALSE(U::rectangleIntersectsSegments(corner, unit));
  Vector<P> const touch = {P(2, 0), P(0, 2)};
  EXPECT_TRUE(U::rectangleIntersectsSegments(touch, unit));
  // The closing segment of a triangle around the rectangle's side.
  Vector<P> const triangle = {P(0.5f, 3), P(3, 3), P(0.5f, -2)};
  EXPECT_FALSE(U::rectangleIntersectsSegments(triangle, unit));
  EXPECT_TRUE(U::rectangleIntersectsSegments(triangle, unit, true));
}
