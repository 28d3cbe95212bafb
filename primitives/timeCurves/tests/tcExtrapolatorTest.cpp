#include <orn/base/rc/rcEx.h>
#include <orn/primitives/timeCurves/tcConstantExtrapolator.h>
#include <orn/primitives/timeCurves/tcConstants.h>
#include <orn/primitives/timeCurves/tcKeyLinearExtrapolator.h>
#include <orn/primitives/timeCurves/tcLinearExtrapolator.h>
#include <orn/primitives/timeCurves/tcLoopExtrapolator.h>
#include <orn/primitives/timeCurves/tcPingPongExtrapolator.h>
#include <orn/primitives/timeCurves/tcRelativeExtrapolator.h>
#include <orn/primitives/timeCurves/tcTimeCurve.h>

#include <gtest/gtest.h>

#include <ostream>

using namespace Orn;

namespace {

using P = GePoint2<double>;
using Polyline = TcExtrapolator::Polyline;
using Polylines = TcExtrapolator::Polylines;

// Linear segments through (time, value) pairs; each key's handles run 2 time units out along
// the given slopes.
RCShdPtr<TmTimeCurve const> makeCurve(std::initializer_list<P> keys, double inSlope = 0.0, double outSlope = 0.0) {
  Vector<double>* data = new Vector<double>();
  Vector<int>* types = new Vector<int>();
  Vector<int>* constraints = new Vector<int>();
  for (P const& k : keys) {
    data->insert(data->end(), {k.x - 2.0, k.y - 2.0 * inSlope, k.x, k.y, k.x + 2.0, k.y + 2.0 * outSlope});
    types->push_back(TmAnimTypes::INTERPOLATION_LINEAR);
    constraints->push_back(0);
  }
  return new TcTimeCurve(data, types, constraints, TmAnimTypes::EXTRAPOLATION_CONSTANT,
                         TmAnimTypes::INTERPOLATION_LINEAR);
}

// mapTime's result, cycle count and mirroring as one comparable value.
struct Mapped {
  double time;
  int cycle;
  bool mirrored;
  bool operator==(Mapped const& o) const { return time == o.time && cycle == o.cycle && mirrored == o.mirrored; }
};

std::ostream& operator<<(std::ostream& out, Mapped const& m) {
  return out << m.time << " cycle " << m.cycle << (m.mirrored ? " mirrored" : "");
}

Mapped map(TcExtrapolator const& e, double time, RCShdPtr<TmTimeCurve const> const& curve) {
  Mapped m{0.0, -1, true};
  m.time = e.mapTime(time, curve, m.cycle, m.mirrored);
  return m;
}

}  // namespace

TEST(TcExtrapolatorTest, MapTimeCountsWholePeriods) {
  RCShdPtr<TmTimeCurve const> const curve = makeCurve({P(0, 1), P(10, 4)});
  TcLoopExtrapolator const loop;
  EXPECT_EQ(map(loop, 10.5, curve), (Mapped{0.5, 1, false}));
  EXPECT_EQ(map(loop, -0.5, curve), (Mapped{9.5, 1, false}));
  EXPECT_EQ(map(loop, -25.0, curve), (Mapped{5.0, 3, false}));
  // Folding the seam onto the start is tested on entry only.
  EXPECT_EQ(map(loop, 20.0, curve), (Mapped{10.0, 1, false}));
  EXPECT_EQ(map(loop, 10.0 + 5e-9, curve), (Mapped{0.0, 0, false}));

  TcPingPongExtrapolator const pingPong;
  EXPECT_EQ(map(pingPong, 12.0, curve), (Mapped{8.0, 1, true}));
  EXPECT_EQ(map(pingPong, 22.0, curve), (Mapped{2.0, 2, false}));
  EXPECT_EQ(map(pingPong, -3.0, curve), (Mapped{3.0, 1, true}));
  EXPECT_EQ(map(pingPong, 10.0, curve), (Mapped{0.0, 0, false}));
  EXPECT_EQ(map(pingPong, 4.0, curve), (Mapped{4.0, 0, false}));
}

TEST(TcExtrapolatorTest, ValuesAtBothEnds) {
  // Keys (0, 1) and (10, 4): the curve is 1 + 0.3 t in between.
  RCShdPtr<TmTimeCurve const> const curve = makeCurve({P(0, 1), P(10, 4)}, 0.5, 0.25);

  TcConstantExtrapolator const constant;
  EXPECT_EQ(constant.evaluate(-3.0, curve), 1.0);
  EXPECT_EQ(constant.evaluate(13.0, curve), 4.0);
  EXPECT_EQ(constant.evaluate(5.0, curve), 4.0) << "any time not before the first key takes the last value";

  // Along the stored end handles: slope 0.5 before, 0.25 after.
  TcLinearExtrapolator const linear;
  EXPECT_DOUBLE_EQ(linear.evaluate(-4.0, curve), 1.0 - 2.0);
  EXPECT_DOUBLE_EQ(linear.evaluate(14.0, curve), 4.0 + 1.0);
  RCShdPtr<TmTimeCurve const> const flat = makeCurve({P(0, 1), P(10, 4)});
  EXPECT_EQ(linear.evaluate(-40.0, flat), 1.0);
  RCShdPtr<TmTimeCurve> const zero = new TcTimeCurve(*dynamic_cast<TcTimeCurve const*>(flat.get()));
  zero->getLastKeyframe()->setOutTangent(P(10, 4), TmKeyframe::IGNORE_CONSTRAINTS, 1.0);
  EXPECT_EQ(linear.evaluate(50.0, zero), 4.0) << "a zero-length handle gives the key's value";

  TcLoopExtrapolator const loop;
  EXPECT_DOUBLE_EQ(loop.evaluate(10.5, curve), curve->evaluate(0.5));
  EXPECT_DOUBLE_EQ(loop.evaluate(-0.5, curve), curve->evaluate(9.5));
  EXPECT_EQ(loop.evaluate(20.0, curve), 4.0);

  TcPingPongExtrapolator const pingPong;
  EXPECT_DOUBLE_EQ(pingPong.evaluate(12.0, curve), curve->evaluate(8.0));
  EXPECT_DOUBLE_EQ(pingPong.evaluate(22.0, curve), curve->evaluate(2.0));
  EXPECT_DOUBLE_EQ(pingPong.evaluate(-3.0, curve), curve->evaluate(3.0));

  // Each repetition is raised by the value change over the keys (3).
  TcRelativeExtrapolator const relative;
  EXPECT_DOUBLE_EQ(relative.evaluate(25.0, curve), curve->evaluate(5.0) + 2 * 3.0);
  EXPECT_DOUBLE_EQ(relative.evaluate(-5.0, curve), curve->evaluate(5.0) - 1 * 3.0);
  EXPECT_DOUBLE_EQ(relative.evaluate(-25.0, curve), curve->evaluate(5.0) - 3 * 3.0);

  // Along the chords of the end segments, whatever the handles.
  RCShdPtr<TmTimeCurve const> const three = makeCurve({P(0, 1), P(10, 4), P(20, 0)}, 5.0, 5.0);
  TcKeyLinearExtrapolator const keyLinear;
  EXPECT_DOUBLE_EQ(keyLinear.evaluate(-10.0, three), 1.0 - 3.0);
  EXPECT_DOUBLE_EQ(keyLinear.evaluate(30.0, three), 0.0 - 4.0);
  RCShdPtr<TmTimeCurve const> const coincident = makeCurve({P(0, 1), P(1e-16, 1)});
  EXPECT_EQ(keyLinear.evaluate(-5.0, coincident), 1.0);

  EXPECT_FALSE(constant.isCyclic() || linear.isCyclic() || keyLinear.isCyclic());
  EXPECT_TRUE(loop.isCyclic() && pingPong.isCyclic() && relative.isCyclic());

  EXPECT_THROW(loop.evaluate(12.0, RCShdPtr<TmTimeCurve const>()), RCEx::ExNullPtr);
  EXPECT_THROW(constant.evaluate(12.0, new TcTimeCurve()), RCEx::ExNullPtr);
}

TEST(TcExtrapolatorTest, NextKeyTime) {
  RCShdPtr<TmTimeCurve const> const curve = makeCurve({P(0, 0), P(4, 1), P(10, 0)});
  for (TcExtrapolator const* e : {static_cast<TcExtrapolator const*>(new TcConstantExtrapolator()),
                                  static_cast<TcExtrapolator const*>(new TcLinearExtrapolator()),
                                  static_cast<TcExtrapolator const*>(new TcKeyLinearExtrapolator())}) {
    RCShdPtr<TcExtrapolator const> const owner(e);
    EXPECT_EQ(e->getNextKeyTime(-5.0, curve), 0.0);
    EXPECT_EQ(e->getNextKeyTime(15.0, curve), TcConstants::kFarTime);
  }
  TcLoopExtrapolator const loop;
  TcRelativeExtrapolator const relative;
  EXPECT_DOUBLE_EQ(loop.getNextKeyTime(12.0, curve), 14.0);
  EXPECT_DOUBLE_EQ(relative.getNextKeyTime(-7.0, curve), -6.0);
  EXPECT_DOUBLE_EQ(loop.getNextKeyTime(20.0, curve), 24.0) << "a mapped time at the last key counts as the first";

  // Mirrored cycles run the keys backwards: from 10 to 20 the key images are 10, 16 and 20.
  TcPingPongExtrapolator const pingPong;
  EXPECT_DOUBLE_EQ(pingPong.getNextKeyTime(12.0, curve), 16.0);
  EXPECT_DOUBLE_EQ(pingPong.getNextKeyTime(22.0, curve), 24.0);
  // At 20 the mirrored image is the first key, taken as the last: the step is the last segment's.
  EXPECT_DOUBLE_EQ(pingPong.getNextKeyTime(20.0, curve), 26.0);
}

TEST(TcExtrapolatorTest, TessellationOutsideTheKeys) {
  RCShdPtr<TmTimeCurve const> const curve = makeCurve({P(0, 1), P(10, 4)}, 0.5, 0.25);
  Polylines const base{Polyline{P(0, 1), P(10, 4)}};

  Polylines out;
  TcConstantExtrapolator().tessellateAfter(15.0, curve, base, out);
  TcConstantExtrapolator().tessellateAfter(10.0, curve, base, out);
  TcConstantExtrapolator().tessellateBefore(0.0, curve, base, out);
  TcLinearExtrapolator().tessellateBefore(-4.0, curve, base, out);
  TcKeyLinearExtrapolator().tessellateAfter(20.0, curve, base, out);
  EXPECT_EQ(out, (Polylines{Polyline{P(10, 4), P(15, 4)}, Polyline{P(-4, -1), P(0, 1)},
                            Polyline{P(10, 4), P(20, 7)}}));

  // One copy of the base per cycle that reaches x.
  out.clear();
  TcLoopExtrapolator().tessellateAfter(35.0, curve, base, out);
  EXPECT_EQ(out, (Polylines{Polyline{P(10, 1), P(20, 4)}, Polyline{P(20, 1), P(30, 4)},
                            Polyline{P(30, 1), P(40, 4)}}));
  out.clear();
  TcLoopExtrapolator().tessellateBefore(-15.0, curve, base, out);
  EXPECT_EQ(out, (Polylines{Polyline{P(-10, 1), P(0, 4)}, Polyline{P(-20, 1), P(-10, 4)}}));

  out.clear();
  TcRelativeExtrapolator().tessellateAfter(25.0, curve, base, out);
  TcRelativeExtrapolator().tessellateBefore(-5.0, curve, base, out);
  EXPECT_EQ(out, (Polylines{Polyline{P(10, 4), P(20, 7)}, Polyline{P(20, 7), P(30, 10)},
                            Polyline{P(-10, -2), P(0, 1)}}));

  // Odd cycles are mirrored in time.
  out.clear();
  TcPingPongExtrapolator().tessellateAfter(25.0, curve, base, out);
  TcPingPongExtrapolator().tessellateBefore(-5.0, curve, base, out);
  EXPECT_EQ(out, (Polylines{Polyline{P(20, 1), P(10, 4)}, Polyline{P(20, 1), P(30, 4)},
                            Polyline{P(0, 1), P(-10, 4)}}));

  // A period of at most 1e-05 repeats nothing; a curve without keys gives nothing.
  out.clear();
  RCShdPtr<TmTimeCurve const> const tiny = makeCurve({P(0, 1), P(1e-05, 4)});
  TcLoopExtrapolator().tessellateAfter(1.0, tiny, base, out);
  TcConstantExtrapolator().tessellateAfter(1.0, new TcTimeCurve(), base, out);
  TcLoopExtrapolator().tessellateBefore(-1.0, new TcTimeCurve(), base, out);
  EXPECT_TRUE(out.empty());
}
