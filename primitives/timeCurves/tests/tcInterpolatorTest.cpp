#include <orn/base/rc/rcEx.h>
#include <orn/primitives/timeCurves/tcBezierInterpolator.h>
#include <orn/primitives/timeCurves/tcConstantInterpolator.h>
#include <orn/primitives/timeCurves/tcKeyframe.h>
#include <orn/primitives/timeCurves/tcLinearInterpolator.h>

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <functional>
#include <random>

using namespace Orn;

namespace {

using P = GePoint2<double>;
using Points = Vector<P>;

RCShdPtr<TmKeyframe> makeKey(P in, double t, double v, P out,
                             TmAnimTypes::InterpolationType type = TmAnimTypes::INTERPOLATION_BEZIER) {
  return new TcKeyframe(in, t, v, out, type, 0);
}

// Cubic Bezier through four scalars at parameter u, in Bernstein form.
double bernstein(double p0, double p1, double p2, double p3, double u) {
  double const w = 1.0 - u;
  return w * w * w * p0 + 3.0 * w * w * u * p1 + 3.0 * w * u * u * p2 + u * u * u * p3;
}

// Root of f in [lo, hi], f changing sign there.
double bisect(std::function<double(double)> const& f, double lo, double hi) {
  double const sLo = f(lo) < 0.0 ? -1.0 : 1.0;
  for (int i = 0; i < 200; ++i) {
    double const mid = 0.5 * (lo + hi);
    ((f(mid) < 0.0 ? -1.0 : 1.0) == sLo ? lo : hi) = mid;
  }
  return 0.5 * (lo + hi);
}

// Normalised time polynomial for handles at normalised times a and b.
double timeAt(double a, double b, double u) { return bernstein(0.0, a, b, 1.0, u); }

// A keyframe whose out handle, as cut for its neighbour, is always (1, 3).
class FixedOutKey : public TcKeyframe {
public:
  FixedOutKey() : TcKeyframe(P(-1, 0), 0.0, 0.0, P(5, 5), TmAnimTypes::INTERPOLATION_BEZIER, 0) {}
  P getOutTangent(RCShdPtr<TmKeyframe const> const&) const override { return P(1, 3); }
  using TcKeyframe::getOutTangent;
};

}  // namespace

TEST(TcInterpolatorTest, ConstantAndLinearSegments) {
  RCShdPtr<TmKeyframe> const k0 = makeKey(P(-1, 0), 1.0, 2.0, P(2, 9), TmAnimTypes::INTERPOLATION_CONSTANT);
  RCShdPtr<TmKeyframe> const k1 = makeKey(P(2, 0), 3.0, 6.0, P(4, 0), TmAnimTypes::INTERPOLATION_LINEAR);
  TcConstantInterpolator const constant;
  TcLinearInterpolator const linear;
  EXPECT_EQ(constant.evaluate(2.9, k0, k1), 2.0);
  EXPECT_EQ(constant.evaluate(-50.0, k0, k1), 2.0) << "the time is not looked at";
  EXPECT_EQ(linear.evaluate(5.0, k0, k1), 10.0);
  EXPECT_EQ(k0->evaluate(2.5, k1), 2.0) << "the key forwards to its own strategy";

  Points points;
  constant.tessellate(k0, k1, 0.1, points);
  linear.tessellate(k0, k1, 0.1, points);
  EXPECT_EQ(points, (Points{P(1, 2), P(3, 2), P(1, 2), P(3, 6)}));

  // Every strategy refuses a null key or a null next key, the constant one included.
  RCShdPtr<TmKeyframe> const none;
  TcBezierInterpolator const bezier;
  for (TcInterpolator const* s : {static_cast<TcInterpolator const*>(&constant),
                                  static_cast<TcInterpolator const*>(&linear),
                                  static_cast<TcInterpolator const*>(&bezier)}) {
    EXPECT_THROW(s->evaluate(1.5, k0, none), RCEx::ExNullPtr);
    EXPECT_THROW(s->evaluate(1.5, none, k1), RCEx::ExNullPtr);
    EXPECT_THROW(s->tessellate(k0, none, 0.1, points), RCEx::ExNullPtr);
  }
  EXPECT_THROW(k0->evaluate(1.5, none), RCEx::ExNullPtr);
}

TEST(TcInterpolatorTest, BezierMatchesTheCurveItDescribes) {
  std::mt19937 random(7);
  std::uniform_real_distribution<double> unit(0.0, 1.0);
  for (int trial = 0; trial < 200; ++trial) {
    double const t0 = -5.0 + 10.0 * unit(random);
    double const dt = 0.01 + 20.0 * unit(random);
    double const a = unit(random);
    double const b = unit(random);
    double const v[4] = {unit(random) * 8 - 4, unit(random) * 8 - 4, unit(random) * 8 - 4, unit(random) * 8 - 4};
    RCShdPtr<TmKeyframe> const k0 = makeKey(P(t0 - 1, 0), t0, v[0], P(t0 + a * dt, v[1]));
    RCShdPtr<TmKeyframe> const k1 = makeKey(P(t0 + b * dt, v[2]), t0 + dt, v[3], P(t0 + dt + 1, 0));
    for (double x : {0.013, 0.25, 0.5, 0.77, 0.996}) {
      double const u = bisect([&](double s) { return timeAt(a, b, s) - x; }, 0.0, 1.0);
      EXPECT_NEAR(k0->evaluate(t0 + x * dt, k1), bernstein(v[0], v[1], v[2], v[3], u), 1e-7)
          << "a=" << a << " b=" << b << " x=" << x;
    }
  }
}

TEST(TcInterpolatorTest, BezierTimeInversionEdges) {
  // Handles at the thirds of an interval that thirds don't divide exactly: time is linear in u
  // (taken without the solver, whose leading coefficient is only rounding noise here).
  double const t0 = 0.1;
  double const t1 = 0.7;
  double const dt = t1 - t0;
  RCShdPtr<TmKeyframe> const k0 = makeKey(P(0, 0), t0, 1.0, P(t0 + dt / 3.0, 5.0));
  RCShdPtr<TmKeyframe> const k1 = makeKey(P(t0 + 2.0 * dt / 3.0, -3.0), t1, 2.0, P(1, 0));
  for (double x : {0.1, 0.35, 0.6, 0.9}) {
    EXPECT_NEAR(k0->evaluate(t0 + x * dt, k1), bernstein(1.0, 5.0, -3.0, 2.0, x), 1e-12);
  }
  EXPECT_EQ(TcBezierInterpolator::solveParameter(1.0 / 3.0, 2.0 / 3.0, 0.4), 0.4);

  // The ends of the segment are found by exact comparison, not by the solver.
  EXPECT_EQ(TcBezierInterpolator::solveParameter(0.9, 0.05, 0.0), 0.0);
  EXPECT_EQ(TcBezierInterpolator::solveParameter(0.9, 0.05, 1.0), 1.0);

  // A segment shorter than the time tolerance is its end value.
  RCShdPtr<TmKeyframe> const a = makeKey(P(0, 0), 1.0, 3.0, P(1, 3));
  RCShdPtr<TmKeyframe> const b = makeKey(P(1, 3), 1.0 + 4e-9, 7.0, P(2, 0));
  EXPECT_EQ(a->evaluate(1.0 + 2e-9, b), 7.0);
}

TEST(TcInterpolatorTest, CubicRootCases) {
  // One real root (positive discriminant): monotone time.
  EXPECT_NEAR(TcBezierInterpolator::solveParameter(0.2, 0.9, 0.3),
              bisect([](double s) { return timeAt(0.2, 0.9, s) - 0.3; }, 0.0, 1.0), 1e-12);

  // Triple root: handles (1, 0) make x(u) - 1/2 = 4 (u - 1/2)^3, zero discriminant and zero q.
  EXPECT_NEAR(TcBezierInterpolator::solveParameter(1.0, 0.0, 0.5), 0.5, 1e-12);

  // Handles outside the interval (a = -1, b = 2) give x(u) = -8u^3 + 12u^2 - 3u, with minimum and
  // maximum at u = 1/2 -+ sqrt(1/8). At those levels the root is double (zero discriminant,
  // non-zero q) and the other root falls outside [0, 1].
  double const uMin = 0.5 - std::sqrt(0.125);
  double const uMax = 0.5 + std::sqrt(0.125);
  EXPECT_NEAR(TcBezierInterpolator::solveParameter(-1.0, 2.0, timeAt(-1.0, 2.0, uMin)), uMin, 1e-9);
  EXPECT_NEAR(TcBezierInterpolator::solveParameter(-1.0, 2.0, timeAt(-1.0, 2.0, uMax)), uMax, 1e-9);

  // Three real roots (negative discriminant). At x = 1/2 the roots are 1/2 and 1/2 +- sqrt(6)/4:
  // only one lies in [0, 1].
  EXPECT_NEAR(TcBezierInterpolator::solveParameter(-1.0, 2.0, 0.5), 0.5, 1e-12);
  // At x = -0.1 two roots lie in [0, 1] (one in (0, 0.1), one in (0.1, 0.5)); the larger wins.
  auto const f = [](double s) { return timeAt(-1.0, 2.0, s) + 0.1; };
  double const larger = bisect(f, 0.1, 0.5);
  ASSERT_GT(larger, bisect(f, 0.0, 0.1));
  EXPECT_NEAR(TcBezierInterpolator::solveParameter(-1.0, 2.0, -0.1), larger, 1e-12);
  // Below the minimum the root is single; it is used although it lies beyond 1.
  double const level = timeAt(-1.0, 2.0, uMin) - 0.15;
  EXPECT_NEAR(TcBezierInterpolator::solveParameter(-1.0, 2.0, level),
              bisect([&](double s) { return timeAt(-1.0, 2.0, s) - level; }, 1.0, 2.0), 1e-12);
  // Three roots -1, 2 and 3 (a = -1/6, b = 1/3, x = 3), none in [0, 1]: the parameter is -1.
  EXPECT_EQ(TcBezierInterpolator::solveParameter(-1.0 / 6.0, 1.0 / 3.0, 3.0), -1.0);
}

namespace {

// Three-real-root selection taking every cosine, as a reference for the solver's shortcut.
double largestRootInRange(double a, double b, double x) {
  double const c3 = (a - b) * 3.0 + 1.0, c2 = 3.0 * (b - 2.0 * a), c1 = 3.0 * a;
  double const p2 = c2 / c3, p1 = c1 / c3, p0 = -x / c3;
  double const p = (-1.0 / 3.0 * p2 * p2 + p1) * (1.0 / 3.0);
  double const q = ((0.07407407407407407 * p2 * p2 - p1 / 3.0) * p2 + p0) * 0.5;
  double const phi = std::acos(-q / std::sqrt(-p * p * p)) / 3.0;
  double const r = 2.0 * std::sqrt(-p);
  double const roots[3] = {r * std::cos(phi), -r * std::cos(phi + 1.0471975511965976),
                           -r * std::cos(phi - 1.0471975511965976)};
  double best = -1.0;
  for (double root : roots) {
    root -= p2 / 3.0;
    if (root >= 0.0 && root <= 1.0) best = best < 0.0 ? root : std::max(best, root);
  }
  return best;
}

}  // namespace

TEST(TcInterpolatorTest, ThreeRootSelectionKeepsEveryBit) {
  // Handles at 0.333 of a segment (automatic handles) and wide handles, over the whole range of x
  // and next to the levels where two roots meet.
  std::mt19937 random(7);
  std::uniform_real_distribution<double> unit(0.0, 1.0);
  int nbChecked = 0;
  auto const check = [&](double a, double b, double x) {
    double const c3 = (a - b) * 3.0 + 1.0, p2 = 3.0 * (b - 2.0 * a) / c3, p1 = 3.0 * a / c3;
    double const p = (-1.0 / 3.0 * p2 * p2 + p1) * (1.0 / 3.0);
    double const q = ((0.07407407407407407 * p2 * p2 - p1 / 3.0) * p2 - x / c3) * 0.5;
    if (!(q * q + p * p * p < -1.7763568394002505e-15) || x == 0.0 || x == 1.0) return;
    ++nbChecked;
    double const expected = largestRootInRange(a, b, x);
    double const actual = TcBezierInterpolator::solveParameter(a, b, x);
    ASSERT_EQ(std::bit_cast<std::uint64_t>(actual), std::bit_cast<std::uint64_t>(expected))
        << "a " << a << " b " << b << " x " << x;
  };
  for (int i = 0; i < 20000; ++i) {
    check(0.333, 0.667, unit(random));
    check(-1.0, 2.0, unit(random) * 1.4 - 0.2);
    check(unit(random) * 3.0 - 1.0, unit(random) * 3.0 - 1.0, unit(random) * 1.4 - 0.2);
  }
  double const uMin = 0.5 - std::sqrt(0.125);
  for (double e = 1e-3; e > 1e-15; e *= 0.5) {
    check(-1.0, 2.0, timeAt(-1.0, 2.0, uMin) + e);
    check(-1.0, 2.0, timeAt(-1.0, 2.0, 1.0 - uMin) - e);
  }
  EXPECT_GT(nbChecked, 20000);
}

TEST(TcInterpolatorTest, BezierUsesHandlesCutAtTheNeighbour) {
  // The out handle overshoots the next key: it is cut at t = 2 on its own line, to (2, 1.5); the
  // stored handle stays.
  RCShdPtr<TmKeyframe> const k0 = makeKey(P(-1, 0), 0.0, 0.0, P(4, 3));
  RCShdPtr<TmKeyframe> const k1 = makeKey(P(1, 2), 2.0, 2.0, P(3, 2));
  double const a = 1.0;  // the cut handle's normalised time
  double const b = 0.5;
  for (double x : {0.2, 0.5, 0.8}) {
    double const u = bisect([&](double s) { return timeAt(a, b, s) - x; }, 0.0, 1.0);
    EXPECT_NEAR(k0->evaluate(2.0 * x, k1), bernstein(0.0, 1.5, 2.0, 2.0, u), 1e-9);
  }
  EXPECT_EQ(k0->getOutTangent(), P(4, 3));

  // A keyframe class of its own cuts its handles its own way.
  RCShdPtr<TmKeyframe> const own = new FixedOutKey();
  RCShdPtr<TmKeyframe> const end = makeKey(P(2, 3), 3.0, 3.0, P(4, 3));
  double const u = bisect([](double s) { return timeAt(1.0 / 3.0, 2.0 / 3.0, s) - 0.5; }, 0.0, 1.0);
  EXPECT_NEAR(own->evaluate(1.5, end), bernstein(0.0, 3.0, 3.0, 3.0, u), 1e-12);
}

TEST(TcInterpolatorTest, BezierFlatteningCriterion) {
  // A straight segment whose inner points sit 0.01 off the chord of length 10. The first handle is
  // judged by its distance, the second by its distance times the squared chord length (1 here),
  // so the two mirror images flatten differently against a tolerance of 0.5.
  P const p0(0, 0);
  P const p3(10, 0);
  Points firstOff;
  TcBezierInterpolator::subdivide(p0, P(10.0 / 3, 0.01), P(20.0 / 3, 0), p3, 0.5f, false, firstOff);
  EXPECT_EQ(firstOff, (Points{p0, p3}));
  Points secondOff;
  TcBezierInterpolator::subdivide(p0, P(10.0 / 3, 0), P(20.0 / 3, 0.01), p3, 0.5f, false, secondOff);
  ASSERT_GT(secondOff.size(), 2u);

  // The flattening is a chain from end to end without repeated points, on the curve.
  EXPECT_EQ(secondOff.front(), p0);
  EXPECT_EQ(secondOff.back(), p3);
  for (std::size_t i = 1; i < secondOff.size(); ++i) {
    ASSERT_GT(secondOff[i].x, secondOff[i - 1].x);
    double const u = bisect([&](double s) { return bernstein(0, 10.0 / 3, 20.0 / 3, 10, s) - secondOff[i].x; },
                            0.0, 1.0);
    EXPECT_NEAR(secondOff[i].y, bernstein(0, 0, 0.01, 0, u), 1e-9);
  }

  // Through the keys: the polyline is appended after what is there, its first point merged with
  // an equal last point.
  RCShdPtr<TmKeyframe const> const k0 = makeKey(P(-1, 0), 0.0, 0.0, P(10.0 / 3, 0));
  RCShdPtr<TmKeyframe const> const k1 = makeKey(P(20.0 / 3, 0.01), 10.0, 0.0, P(11, 0));
  Points viaKey{p0};
  dynamic_cast<TcKeyframe const&>(*k0).tessellate(k1, 0.5, viaKey);
  EXPECT_EQ(viaKey, secondOff);
}
