#include <orn/base/except/assertions.h>
#include <orn/base/viewing/vwViewerBasic.h>
#include <orn/base/viewing/vwViewing2DBasic.h>
#include <orn/primitives/timeCurves/tcConstants.h>
#include <orn/primitives/timeCurves/tcTimeCurve.h>

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <fstream>
#include <string>

using namespace Orn;

namespace {

using P = GePoint2<double>;
using Polyline = TcTimeCurve::Polyline;
using Polylines = TcTimeCurve::Polylines;

// A 512 x 256 pixel view of times 0 to 32 and values -4 to 4: 16 pixels a time unit, 32 a value
// unit, all exact in float.
VwView makeView(float panX = 16.0f) {
  RCShdPtr<VwViewerBasic> const viewer = new VwViewerBasic();
  viewer->setTargetSize(GeVector2<float>(512.0f, 256.0f));
  RCShdPtr<VwViewing2DBasic> const viewing = new VwViewing2DBasic();
  viewing->setUserZoom(GeVector2<float>(0.125f, 0.25f));
  viewing->setPan(GeVector2<float>(panX, 0.0f));
  return VwView(viewer, viewing);
}

P toWindow(P const& world) { return P(world.x * 16.0, (world.y + 4.0) * 32.0); }

RCShdPtr<TcTimeCurve> makeCurve(std::initializer_list<P> keys,
                                TmAnimTypes::InterpolationType type = TmAnimTypes::INTERPOLATION_LINEAR) {
  RCShdPtr<TcTimeCurve> curve = new TcTimeCurve(type);
  for (P const& k : keys) curve->addKeyframe(k.x, k.y);
  return curve;
}

}  // namespace

TEST(TcTimeCurveDisplayTest, TessellationTolerance) {
  VwView const view = makeView();
  GeRectangle<double> rect;
  EXPECT_EQ(TcTimeCurve::computeTessellationData(view, 1.0, rect), 8.0 / 256.0);
  EXPECT_EQ(rect, GeRectangle<double>(0.0, 32.0, -4.0, 4.0));
  view.getViewing()->setUserZoom(GeVector2<float>(1e6f, 1e6f));
  EXPECT_EQ(TcTimeCurve::computeTessellationData(view, 1.0, rect), 5e-07);
  for (double bad : {0.0, -1.0}) {
    try {
      TcTimeCurve::computeTessellationData(view, bad, rect);
      ADD_FAILURE() << "accepted " << bad;
    } catch (AssertionsEx::ExAssertionFailed const& e) {
      EXPECT_STREQ(e.getCondition(), "windowTolerance > 0.");
    }
  }
}

TEST(TcTimeCurveDisplayTest, TessellationCoversTheRange) {
  GeRectangle<double> const all(-5.0, 45.0, -1.0, 1.0);
  EXPECT_EQ(*RCShdPtr<TcTimeCurve>(new TcTimeCurve())->tessellate(all, 0.1), (Polylines{Polyline{P(-5, 0), P(45, 0)}}));
  EXPECT_EQ(*makeCurve({P(3, 2)})->tessellate(all, 0.1), (Polylines{Polyline{P(-5, 2), P(45, 2)}}));

  RCShdPtr<TcTimeCurve> const curve = makeCurve({P(0, 0), P(10, 1), P(20, 0), P(30, 1), P(40, 0)});
  // The keys just outside the range take part, no more.
  EXPECT_EQ(*curve->tessellate(GeRectangle<double>(12.0, 25.0, 0.0, 1.0), 0.1),
            (Polylines{Polyline{P(10, 1), P(20, 0)}, Polyline{P(20, 0), P(30, 1)}}));
  EXPECT_EQ(curve->tessellate(GeRectangle<double>(10.0, 30.0, 0.0, 1.0), 0.1)->size(), 4u);

  Polylines const constant = *curve->tessellate(all, 0.1);
  ASSERT_EQ(constant.size(), 6u);
  EXPECT_EQ(constant.front(), (Polyline{P(-5, 0), P(0, 0)}));
  EXPECT_EQ(constant.back(), (Polyline{P(40, 0), P(45, 0)}));

  // Looping repeats the keyed polylines once per cycle that reaches the end of the range.
  curve->setExtrapolationType(TmAnimTypes::EXTRAPOLATION_LOOP);
  Polylines const looped = *curve->tessellate(GeRectangle<double>(0.0, 95.0, 0.0, 1.0), 0.1);
  ASSERT_EQ(looped.size(), 4u + 2u * 4u);
  EXPECT_EQ(looped.back(), (Polyline{P(110, 1), P(120, 0)}));

  // Bezier segments: every point lies on the curve.
  RCShdPtr<TcTimeCurve> const smooth = makeCurve({P(0, 0), P(3, 2), P(5, -1), P(9, 0)}, TmAnimTypes::INTERPOLATION_BEZIER);
  Polylines const pieces = *smooth->tessellate(GeRectangle<double>(0.0, 9.0, -2.0, 2.0), 0.01);
  ASSERT_EQ(pieces.size(), 3u);
  for (Polyline const& piece : pieces) {
    EXPECT_GT(piece.size(), 4u);
    for (P const& p : piece) EXPECT_NEAR(smooth->evaluate(p.x), p.y, 1e-9);
  }
}

TEST(TcTimeCurveDisplayTest, Sampling) {
  RCShdPtr<TcTimeCurve> const curve = makeCurve({P(0, 0), P(10.5, 3), P(20, 1)});
  // 16 pixels are one time unit: samples at 0, 1, ... 31, the last short of the view's end.
  Polyline const samples = *curve->sample(makeView(), 16.0);
  ASSERT_EQ(samples.size(), 32u);
  for (std::size_t i = 0; i < samples.size(); ++i) EXPECT_EQ(samples[i], P(double(i), curve->evaluate(double(i))));

  // A view starting before the keys extrapolates there.
  curve->setExtrapolationType(TmAnimTypes::EXTRAPOLATION_KEY_LINEAR);
  Polyline const shifted = *curve->sample(makeView(8.0f), 8.0);
  ASSERT_EQ(shifted.size(), 64u);
  EXPECT_EQ(shifted.front(), P(-8.0, curve->evaluate(-8.0)));
  EXPECT_DOUBLE_EQ(shifted.front().y, -8.0 * 3.0 / 10.5);
  for (P const& p : shifted) EXPECT_EQ(p.y, curve->evaluate(p.x));

  EXPECT_EQ(*RCShdPtr<TcTimeCurve>(new TcTimeCurve())->sample(makeView(), 1.0), (Polyline{P(0, 0), P(32, 0)}));
  EXPECT_EQ(*makeCurve({P(5, 2)})->sample(makeView(), 1.0), (Polyline{P(0, 2), P(32, 2)}));
}

TEST(TcTimeCurveDisplayTest, Picking) {
  VwView const view = makeView();
  GeVector2<double> tolerance;
  EXPECT_EQ(TcTimeCurve::computePickData(view, P(256, 128), tolerance), P(16, 0));
  EXPECT_EQ(tolerance, GeVector2<double>(5.0 / 16.0, 5.0 / 32.0));

  RCShdPtr<TcTimeCurve> const curve = makeCurve({P(0, 0), P(10, 2), P(20, 0), P(30, 2)});
  TcTimeCurve::KeyIterator key;
  P hit;
  // On the segment from (0, 0) to (10, 2), midway: the tie between the keys goes to the later.
  ASSERT_TRUE(curve->pick(toWindow(P(5, 1)) + GeVector2<double>(0, 3), view, key, &hit));
  EXPECT_EQ((*key)->getTime(), 10.0);
  EXPECT_NEAR(hit.y, 0.2 * hit.x, 1e-12);
  EXPECT_NEAR(hit.x, 5.0, 0.1);
  ASSERT_TRUE(curve->pick(toWindow(P(27, 1.4)), view, key));
  EXPECT_EQ((*key)->getTime(), 30.0);
  EXPECT_FALSE(curve->pick(toWindow(P(5, 1)) + GeVector2<double>(0, 6), view, key));

  RCShdPtr<TcTimeCurve> const single = makeCurve({P(10, 2)});
  EXPECT_TRUE(single->pick(toWindow(P(10, 2)) + GeVector2<double>(4, -4), view, key));
  EXPECT_FALSE(single->pick(toWindow(P(10, 2)) + GeVector2<double>(6, 0), view, key));

  // Rectangles: keys inside, bounds included; the curve crossing counts as a hit without keys.
  TcTimeCurve::Keys keys;
  EXPECT_TRUE(curve->pickRect(GeRectangle<int>(144, 160, 176, 192), view, keys));
  ASSERT_EQ(keys.size(), 1u);
  EXPECT_EQ(keys[0]->getTime(), 10.0);
  keys.clear();
  EXPECT_TRUE(curve->pickRect(GeRectangle<int>(70, 90, 150, 170), view, keys));
  EXPECT_TRUE(keys.empty());
  EXPECT_FALSE(curve->pickRect(GeRectangle<int>(70, 90, 200, 220), view, keys));

  // Circles: strictly inside the ellipse that the window circle makes.
  keys.clear();
  EXPECT_TRUE(curve->pickKeyframesCircle(toWindow(P(10, 2)) + GeVector2<double>(6, 6), 9.0, view, keys));
  EXPECT_EQ(keys.size(), 1u);
  keys.clear();
  EXPECT_FALSE(curve->pickKeyframesCircle(toWindow(P(10, 2)) - GeVector2<double>(0, 10), 10.0, view, keys));
  EXPECT_TRUE(curve->pickKeyframesCircle(toWindow(P(10, 2)) - GeVector2<double>(0, 10), 10.01, view, keys));

  // Handles, cut at the neighbours.
  curve->setOutTangent(10.0, P(12, 3), 1.0);
  curve->setTangentOrientationUnified(10.0, false);
  TcTimeCurve::TangentSide side = TcTimeCurve::IN_TANGENT;
  ASSERT_TRUE(curve->pickTangent(toWindow(P(12, 3)) + GeVector2<double>(1, -1), view, key, side));
  EXPECT_EQ((*key)->getTime(), 10.0);
  EXPECT_EQ(side, TcTimeCurve::OUT_TANGENT);
  dynamic_cast<TcKeyframe&>(**curve->findKeyframe(20.0))
      .setInTangent(P(5, 0), TmKeyframe::IGNORE_CONSTRAINTS, 1.0);  // cut to (10, 0)
  ASSERT_TRUE(curve->pickTangent(toWindow(P(10, 0)), view, key, side));
  EXPECT_EQ((*key)->getTime(), 20.0);
  EXPECT_EQ(side, TcTimeCurve::IN_TANGENT);
  EXPECT_FALSE(curve->pickTangent(toWindow(P(5, 0)), view, key, side));
}

TEST(TcTimeCurveDisplayTest, DataDump) {
  RCShdPtr<TcTimeCurve> const curve = makeCurve({P(0, 0), P(4, 2)});
  std::string const path = ::testing::TempDir() + "tcTimeCurveDump.txt";
  curve->dataDump(-1.0, 5.0, 0.5, path);
  std::ifstream in(path);
  double t = 0.0;
  double v = 0.0;
  int lines = 0;
  for (; in >> t >> v; ++lines) EXPECT_EQ(P(t, v), P(-1.0 + 0.5 * lines, curve->evaluate(t)));
  EXPECT_EQ(lines, 13);
  std::remove(path.c_str());
  EXPECT_THROW(curve->dataDump(0.0, 1.0, 0.0, path), AssertionsEx::ExAssertionFailed);
}
