#include <orn/base/geometryBase/geAlignedBox3.h>
#include <orn/base/geometryBase/geLine3.h>
#include <orn/base/geometryBase/gePlane3.h>
#include <orn/base/geometryBase/geRectangle.h>

#include <gtest/gtest.h>

#include <limits>

using namespace Orn;

TEST(GeRectangle, FieldOrderIsXIntervalThenYInterval) {
  GeRectangle<int> const r(1, 5, 10, 30);
  EXPECT_EQ(r.x1(), 1);
  EXPECT_EQ(r.x2(), 5);
  EXPECT_EQ(r.y1(), 10);
  EXPECT_EQ(r.y2(), 30);
  EXPECT_EQ(r, GeRectangle<int>(GeInterval<int>(1, 5), GeInterval<int>(10, 30)));
  EXPECT_EQ(r.getSlab(0), GeInterval<int>(1, 5));
  EXPECT_EQ(r.getSlab(1), GeInterval<int>(10, 30));
  // Widths have no plus one.
  EXPECT_EQ(r.getWidth(), 4);
  EXPECT_EQ(r.getHeight(), 20);
  EXPECT_EQ(r.getDimensions(), GePoint2<int>(4, 20));
}

TEST(GeRectangle, HalfOpenContainmentAndEmptiness) {
  GeRectangle<int> const r(0, 4, 0, 3);
  EXPECT_TRUE(r.contains(0, 0));
  EXPECT_TRUE(r.contains(3, 2));
  EXPECT_FALSE(r.contains(4, 2));
  EXPECT_FALSE(r.contains(GePoint2<int>(3, 3)));
  // Rectangles: equal bounds are inside.
  EXPECT_TRUE(r.contains(r));
  EXPECT_TRUE(r.contains(GeRectangle<int>(1, 4, 0, 1)));
  EXPECT_FALSE(r.contains(GeRectangle<int>(1, 5, 0, 1)));

  EXPECT_TRUE(GeRectangle<int>(2, 2, 0, 5).isEmpty());
  EXPECT_TRUE(GeRectangle<int>(3, 2, 0, 5).isEmpty());
  EXPECT_FALSE(GeRectangle<int>(2, 3, 0, 5).isEmpty());

  GeRectangle<int> const clipped = r.getIntersection(GeRectangle<int>(2, 10, -5, 1));
  EXPECT_EQ(clipped, GeRectangle<int>(2, 4, 0, 1));
  EXPECT_TRUE(r.getIntersection(GeRectangle<int>(10, 20, 0, 3)).isEmpty());
}

TEST(GeAlignedBox3, DefaultBoxIsEmptyAndGrowsWithTheFirstPoint) {
  GeAlignedBox3<float> box;
  EXPECT_TRUE(box.isEmpty());
  box.extendBy(GePoint3<float>(1, 2, 3));
  EXPECT_FALSE(box.isEmpty());
  EXPECT_EQ(box, GeAlignedBox3<float>(GePoint3<float>(1, 2, 3)));
  box.extendBy(GePoint3<float>(-1, 5, 3));
  EXPECT_EQ(box.x1(), -1.f);
  EXPECT_EQ(box.x2(), 1.f);
  EXPECT_EQ(box.y1(), 2.f);
  EXPECT_EQ(box.y2(), 5.f);
  EXPECT_EQ(box.getSlab(2), GeInterval<float>(3, 3));

  // Two points in any order, three intervals.
  GeAlignedBox3<float> const a(GePoint3<float>(4, 0, 9), GePoint3<float>(1, 2, -1));
  GeAlignedBox3<float> const b(GeInterval<float>(1, 4), GeInterval<float>(0, 2), GeInterval<float>(-1, 9));
  EXPECT_EQ(a, b);
  EXPECT_TRUE(a.contains(GePoint3<float>(4, 2, 9)));
  EXPECT_FALSE(a.contains(GePoint3<float>(4.5f, 1, 0)));

  // An empty box does not change a box it extends.
  GeAlignedBox3<float> c = a;
  c.extendBy(GeAlignedBox3<float>());
  EXPECT_EQ(c, a);
}

TEST(GeAlignedBox3, IntersectLineGivesTheParametersInside) {
  GeAlignedBox3<float> const box(GePoint3<float>(0, 0, 0), GePoint3<float>(2, 2, 2));
  GeInterval<double> t = box.intersectLine(GePoint3<float>(-1, 1, 1), GeVector3<float>(1, 0, 0));
  EXPECT_DOUBLE_EQ(t.min, 1.0);
  EXPECT_DOUBLE_EQ(t.max, 3.0);
  // A direction against the axes gives the same interval from the other side.
  t = box.intersectLine(GePoint3<float>(3, 1, 1), GeVector3<float>(-2, 0, 0));
  EXPECT_DOUBLE_EQ(t.min, 0.5);
  EXPECT_DOUBLE_EQ(t.max, 1.5);
  // Diagonal through a corner region: enters by x at 1, leaves by y at 2.
  t = box.intersectLine(GePoint3<float>(-1, 0, 1), GeVector3<float>(1, 1, 0));
  EXPECT_DOUBLE_EQ(t.min, 1.0);
  EXPECT_DOUBLE_EQ(t.max, 2.0);
  // A miss, and a line parallel to a slab outside it.
  EXPECT_GT(box.intersectLine(GePoint3<float>(-1, 5, 1), GeVector3<float>(1, 1, 0)).min,
            box.intersectLine(GePoint3<float>(-1, 5, 1), GeVector3<float>(1, 1, 0)).max);
  EXPECT_TRUE(box.intersectLine(GePoint3<float>(-1, 3, 1), GeVector3<float>(1, 0, 0)).isEmpty());
  EXPECT_TRUE(GeAlignedBox3<float>().intersectLine(GePoint3<float>(), GeVector3<float>(1, 0, 0)).isEmpty());
}

TEST(GePlane3, IntersectRayAndTheParallelCase) {
  GePlane3<float> const plane(GeVector3<float>(0, 0, 1), GePoint3<float>(0, 0, 5));
  EXPECT_EQ(plane.getOffset(), 5.f);
  float t = -7.f;
  EXPECT_TRUE(plane.intersectRay(GePoint3<float>(1, 1, 1), GeVector3<float>(0, 0, 2), t));
  EXPECT_FLOAT_EQ(t, 2.f);
  // Behind the origin: still a hit, with a negative parameter.
  EXPECT_TRUE(plane.intersectRay(GePoint3<float>(1, 1, 9), GeVector3<float>(0, 0, 1), t));
  EXPECT_FLOAT_EQ(t, -4.f);
  t = -7.f;
  EXPECT_FALSE(plane.intersectRay(GePoint3<float>(1, 1, 1), GeVector3<float>(1, 3, 0), t));
  EXPECT_EQ(t, -7.f);
  EXPECT_FLOAT_EQ(plane.getSignedDistance(GePoint3<float>(3, 3, 2)), -3.f);

  GeLine3<float> const line(GePoint3<float>(0, 0, 0), GeVector3<float>(2, 0, 0));
  EXPECT_FLOAT_EQ(line.getNearestParameter(GePoint3<float>(3, 4, 0)), 1.5f);
  EXPECT_FLOAT_EQ(line.getDistance(GePoint3<float>(3, 4, 0)), 4.f);
}
