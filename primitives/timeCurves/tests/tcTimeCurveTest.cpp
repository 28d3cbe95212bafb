#include <orn/base/containers/constIteratorSTL.h>
#include <orn/base/except/assertions.h>
#include <orn/base/rc/rcEx.h>
#include <orn/primitives/timeCurves/tcConstants.h>
#include <orn/primitives/timeCurves/tcTimeCurve.h>

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <memory>
#include <string>

using namespace Orn;

namespace {

using P = GePoint2<double>;
constexpr double kTol = TcConstants::kTimeTolerance;

RCShdPtr<TcTimeCurve> makeCurve(std::initializer_list<P> keys,
                                TmAnimTypes::InterpolationType type = TmAnimTypes::INTERPOLATION_LINEAR) {
  RCShdPtr<TcTimeCurve> curve = new TcTimeCurve(type);
  for (P const& k : keys) curve->addKeyframe(k.x, k.y);
  return curve;
}

#define EXPECT_POINT_NEAR(a, b, e)  \
  do {                               \
    P const pa = (a);                \
    P const pb = (b);                \
    EXPECT_NEAR(pa.x, pb.x, e);      \
    EXPECT_NEAR(pa.y, pb.y, e);      \
  } while (0)

TcKeyframe const& keyAt(TcTimeCurve const& curve, double time) {
  TcTimeCurve::KeyIterator const it = curve.findKeyframe(time);
  EXPECT_NE(it, curve.end()) << "no key at " << time;
  return dynamic_cast<TcKeyframe const&>(**it);
}

// A keyframe of another class: a bare point with fixed handles.
class ForeignKey : public TmKeyframe {
public:
  explicit ForeignKey(double time) : _time(time), _handle(time, 0.0) {}
  TmKeyframe* clone() const override { return new ForeignKey(_time); }
  double evaluate(double, RCShdPtr<TmKeyframe> const&) const override { return 0.0; }
  double getTime() const override { return _time; }
  double getValue() const override { return 0.0; }
  TmAnimTypes::InterpolationType getInterpolationType() const override { return TmAnimTypes::INTERPOLATION_LINEAR; }
  void setTime(double time) override { _time = time; }
  void setValue(double) override {}
  void setInterpolationType(TmAnimTypes::InterpolationType) override {}
  void move(double time, double) override { _time = time; }
  void setInTangent(P const&, ContraintOptions, double) override {}
  void setOutTangent(P const&, ContraintOptions, double) override {}
  P const& getInTangent() const override { return _handle; }
  P getInTangent(RCShdPtr<TmKeyframe const> const&) const override { return _handle; }
  P const& getOutTangent() const override { return _handle; }
  P getOutTangent(RCShdPtr<TmKeyframe const> const&) const override { return _handle; }

private:
  double _time;
  P _handle;
};

class CurveWithoutClone : public TcTimeCurve {};

}  // namespace

TEST(TcTimeCurveTest, EvaluationAtTheEdges) {
  for (int type = 0; type < 7; ++type) {
    RCShdPtr<TcTimeCurve> const curve = new TcTimeCurve();
    curve->setExtrapolationType(TmAnimTypes::ExtrapolationType(type));
    EXPECT_EQ(curve->getExtrapolationType(), type);
    EXPECT_EQ(curve->evaluate(3.0), 0.0);
    curve->addKeyframe(2.0, 7.0);
    for (double t : {-100.0, 2.0, 1e6}) EXPECT_EQ(curve->evaluate(t), 7.0) << "type " << type;
  }

  // Keys (0, 1), (10, 4), linear, looped. Within the tolerance above the last key the curve gives
  // the last value (the loop would give the first); just below the first key it asks the loop.
  RCShdPtr<TcTimeCurve> const curve = makeCurve({P(0, 1), P(10, 4)});
  curve->setExtrapolationType(TmAnimTypes::EXTRAPOLATION_LOOP);
  EXPECT_EQ(curve->evaluate(10.0 + 5e-9), 4.0);
  EXPECT_NEAR(curve->evaluate(10.0 + 6e-9), 1.0, 1e-8);
  EXPECT_EQ(curve->evaluate(-4e-9), 4.0);
  EXPECT_EQ(curve->evaluate(4e-9), 1.0);
  EXPECT_DOUBLE_EQ(curve->evaluate(2.5), 1.75);
  EXPECT_DOUBLE_EQ(curve->evaluate(12.5), 1.75);
  // A key found within the tolerance gives its value exactly.
  curve->addKeyframe(5.0, 9.0);
  EXPECT_EQ(curve->evaluate(5.0 - 5e-9), 9.0);
  EXPECT_EQ(curve->evaluate(5.0 + 5e-9), 9.0);
  EXPECT_EQ(kTol, 5.208333333333334e-09);
}

TEST(TcTimeCurveTest, Queries) {
  RCShdPtr<TcTimeCurve> const curve = makeCurve({P(0, 0), P(10, 5), P(20, 0)});
  EXPECT_EQ(curve->size(), 3);
  EXPECT_TRUE(curve->hasKeyframe(10.0 + 5e-9));
  EXPECT_FALSE(curve->hasKeyframe(10.0 + 6e-9));
  EXPECT_EQ(curve->retrieveKeyframe(20.0 - 5e-9).item()->getTime(), 20.0);
  EXPECT_TRUE(curve->retrieveKeyframe(15.0).atEnd());

  EXPECT_EQ(curve->getNextKeyframe(10.0)->getTime(), 20.0) << "strictly after";
  EXPECT_EQ(curve->getPreviousKeyframe(10.0)->getTime(), 0.0) << "strictly before";
  EXPECT_TRUE(curve->getNextKeyframe(20.0).isNull());
  EXPECT_TRUE(RCShdPtr<TcTimeCurve const>(new TcTimeCurve())->getLastKeyframe().isNull());

  // Nearest key in time: a tie goes to the later key, and it must be closer than the tolerance.
  EXPECT_EQ((*curve->getNearestKeyframe(P(5.0, 99.0), 6.0))->getTime(), 10.0);
  EXPECT_EQ(curve->getNearestKeyframe(P(5.0, 0.0), 5.0), curve->end());
  EXPECT_EQ((*curve->getNearestKeyframe(P(10.0, 0.0), 1e-9))->getTime(), 10.0);
  EXPECT_TRUE(curve->retrieveNearestKeyframe(P(50.0, 0.0), 6.0).atEnd());
  EXPECT_EQ(curve->getKeyframes().last().item()->getTime(), 20.0);

  // Types: of the key before between keys, the default before the first.
  curve->setKeyframeInterpolation(10.0, TmAnimTypes::INTERPOLATION_CONSTANT);
  curve->setDefaultInterpolationType(TmAnimTypes::INTERPOLATION_BEZIER);
  EXPECT_EQ(curve->getInterpolationType(15.0), TmAnimTypes::INTERPOLATION_CONSTANT);
  EXPECT_EQ(curve->getInterpolationType(25.0), TmAnimTypes::INTERPOLATION_LINEAR);
  EXPECT_EQ(curve->getInterpolationType(-1.0), TmAnimTypes::INTERPOLATION_BEZIER);

  // Handles through the curve are cut at the neighbours; flags of a missing key read false.
  curve->setAutoTangent(10.0, false);
  dynamic_cast<TcKeyframe&>(*curve->getNextKeyframe(5.0)).setOutTangent(P(30, 10), TmKeyframe::IGNORE_CONSTRAINTS, 1.0);
  P handle;
  ASSERT_TRUE(curve->getOutTangent(10.0, handle));
  EXPECT_EQ(handle, P(20, 7.5));
  EXPECT_FALSE(curve->getInTangent(11.0, handle));
  EXPECT_TRUE(curve->isTangentOrientationUnified(20.0));
  EXPECT_FALSE(curve->isTangentOrientationUnified(21.0));
}

TEST(TcTimeCurveTest, AddingKeys) {
  RCShdPtr<TcTimeCurve> const curve = makeCurve({P(0, 0), P(10, 10)});
  curve->setKeyframeInterpolation(0.0, TmAnimTypes::INTERPOLATION_CONSTANT);

  // Within the tolerance of a key: its value changes, its time stays.
  curve->addKeyframe(10.0 + 5e-9, 3.0);
  EXPECT_EQ(curve->getLastKeyframe()->getTime(), 10.0);
  EXPECT_EQ(curve->getLastKeyframe()->getValue(), 3.0);
  curve->setValueLocked(10.0, true);
  curve->addKeyframe(10.0, 4.0);
  EXPECT_EQ(curve->getLastKeyframe()->getValue(), 3.0);

  // A new key continues the kind of the segment it falls in.
  curve->addKeyframe(5.0, 1.0);
  curve->addKeyframe(15.0, 1.0);
  curve->addKeyframe(-5.0, 1.0);
  EXPECT_EQ(curve->getInterpolationType(5.0), TmAnimTypes::INTERPOLATION_CONSTANT);
  EXPECT_EQ(curve->getInterpolationType(15.0), TmAnimTypes::INTERPOLATION_LINEAR);
  EXPECT_EQ(curve->getInterpolationType(-5.0), TmAnimTypes::INTERPOLATION_LINEAR);

  // A key object replaces the key at its time and is kept as it is.
  RCShdPtr<TmKeyframe> const key = new TcKeyframe(5.0 + 1e-9, 42.0, TmAnimTypes::INTERPOLATION_BEZIER);
  curve->addKeyframe(key);
  EXPECT_EQ(curve->size(), 5);
  EXPECT_EQ(*curve->findKeyframe(5.0), key);
  EXPECT_THROW(curve->addKeyframe(RCShdPtr<TmKeyframe>()), RCEx::ExNullPtr);
}

TEST(TcTimeCurveTest, AutoTangents) {
  // Interior key: along the neighbours' chord, a third (0.333) of the shorter side long. End keys:
  // flat, 0.333 of their segment.
  RCShdPtr<TcTimeCurve> const curve = makeCurve({P(0, 0), P(10, 5), P(40, 20)}, TmAnimTypes::INTERPOLATION_BEZIER);
  double const h = 10.0 * 0.333;
  double const slope = 20.0 / 40.0;
  TcKeyframe const& middle = keyAt(*curve, 10.0);
  EXPECT_POINT_NEAR(middle.getInTangent(), P(10.0 - h, 5.0 - h * slope), 1e-12);
  EXPECT_POINT_NEAR(middle.getOutTangent(), P(10.0 + h, 5.0 + h * slope), 1e-12);
  EXPECT_POINT_NEAR(keyAt(*curve, 0.0).getInTangent(), P(-10.0 * 0.333, 0.0), 1e-12);
  EXPECT_POINT_NEAR(keyAt(*curve, 40.0).getOutTangent(), P(40.0 + 30.0 * 0.333, 20.0), 1e-12);

  // Neighbours closer than 0.0001 collapse the handles onto the key; at 0.0001 they do not.
  RCShdPtr<TcTimeCurve> const tight = makeCurve({P(0, 0), P(0.00004, 1), P(0.00009, 0)});
  EXPECT_EQ(keyAt(*tight, 0.00004).getInTangent(), P(0.00004, 1));
  RCShdPtr<TcTimeCurve> const edge = makeCurve({P(0, 0), P(0.00005, 1), P(0.0001, 0)});
  EXPECT_NEAR(keyAt(*edge, 0.00005).getOutTangent().x, 0.00005 + 0.00005 * 0.333, 1e-15);

  // Setting a handle turns the key's auto tangents off; turning them on recomputes the handles.
  ASSERT_TRUE(curve->setOutTangent(10.0, P(12, 9), 1.0));
  EXPECT_FALSE(curve->isAutoTangent(10.0));
  curve->addKeyframe(30.0, 0.0);  // a new neighbour of a key without auto tangents
  EXPECT_EQ(middle.getOutTangent(), P(12, 9));
  ASSERT_TRUE(curve->setAutoTangent(10.0, true));
  EXPECT_NEAR(middle.getOutTangent().y, 5.0, 1e-12) << "the neighbours 0 and 30 are level";
  EXPECT_FALSE(curve->computeAutoTangent(11.0, TcTimeCurve::BOTH_TANGENTS));

  // A single key gets both handles on itself.
  RCShdPtr<TcTimeCurve> const single = makeCurve({P(3, 2)});
  ASSERT_TRUE(single->computeAutoTangent(3.0, TcTimeCurve::BOTH_TANGENTS));
  EXPECT_EQ(keyAt(*single, 3.0).getOutTangent(), P(3, 2));
}

TEST(TcTimeCurveTest, RemovingKeys) {
  RCShdPtr<TcTimeCurve> const curve = makeCurve({P(0, 0), P(10, 5), P(20, 0), P(30, 5)});
  ASSERT_TRUE(curve->setInTangent(10.0, P(8, 1), 1.0));
  ASSERT_TRUE(curve->setOutTangent(10.0, P(12, 1), 1.0));
  curve->setTimeLocked(10.0, true);
  curve->setValueLocked(10.0, true);

  // Removing the first key rewrites the in handle of the new first key by the first-key rule,
  // auto tangents or not; its out handle stays.
  EXPECT_TRUE(curve->removeKeyframe(0.0));
  TcKeyframe const& first = keyAt(*curve, 10.0);
  EXPECT_POINT_NEAR(first.getInTangent(), P(10.0 - 10.0 * 0.333, 5.0), 1e-12);
  EXPECT_EQ(first.getOutTangent(), P(12, 1));

  // An interior removal: the previous key's out handle and the next key's in handle.
  curve->setOutTangent(30.0, P(33, 7), 1.0);
  EXPECT_TRUE(curve->removeKeyframe(20.0));
  EXPECT_POINT_NEAR(first.getOutTangent(), P(10.0 + 20.0 * 0.333, 5.0), 1e-12);
  EXPECT_POINT_NEAR(keyAt(*curve, 30.0).getInTangent(), P(30.0 - 20.0 * 0.333, 5.0), 1e-12);
  EXPECT_EQ(keyAt(*curve, 30.0).getOutTangent(), P(33, 7));

  EXPECT_TRUE(curve->removeKeyframe(10.0)) << "locks don't prevent removal";
  EXPECT_FALSE(curve->removeKeyframe(10.0));
  EXPECT_EQ(curve->size(), 1);
}

TEST(TcTimeCurveTest, MovingKeys) {
  RCShdPtr<TcTimeCurve> const curve = makeCurve({P(0, 0), P(10, 5), P(20, 0)});
  constexpr auto NOTIFY = TmTimeCurve::NOTIFY;

  // Onto another key: refused, nothing moves. No key at the old time: null as well.
  EXPECT_TRUE(curve->moveKeyframe(10.0, 20.0 + 1e-9, 1.0, NOTIFY).isNull());
  EXPECT_TRUE(curve->moveKeyframe(11.0, 15.0, 1.0, NOTIFY).isNull());
  EXPECT_EQ(keyAt(*curve, 10.0).getValue(), 5.0);

  // Handles travel with the key.
  curve->setAutoTangent(10.0, false);
  P const in = keyAt(*curve, 10.0).getInTangent();
  RCShdPtr<TmKeyframe> const moved = curve->moveKeyframe(10.0, 12.0, 6.0, NOTIFY);
  ASSERT_FALSE(moved.isNull());
  EXPECT_EQ(moved->getInTangent(), P(in.x + 2.0, in.y + 1.0));

  // Without the limit a key can cross its neighbours; order follows time.
  curve->moveKeyframe(12.0, 25.0, 6.0, NOTIFY);
  EXPECT_EQ(curve->getLastKeyframe()->getTime(), 25.0);
  curve->setLimitToNeighbours(true);
  curve->moveKeyframe(25.0, -3.0, 6.0, NOTIFY);
  EXPECT_DOUBLE_EQ(curve->getLastKeyframe()->getTime(), 20.0 + 0.001);
  curve->moveKeyframe(0.0, 50.0, 0.0, NOTIFY);
  EXPECT_DOUBLE_EQ(curve->getFirstKeyframe()->getTime(), 20.0 - 0.001);

  // A time-locked key changes its value only; a time within the tolerance is no move.
  RCShdPtr<TcTimeCurve> const locked = makeCurve({P(0, 0), P(10, 5)});
  locked->setTimeLocked(10.0, true);
  EXPECT_EQ(locked->moveKeyframe(10.0, 14.0, 7.0, NOTIFY)->getTime(), 10.0);
  EXPECT_EQ(keyAt(*locked, 10.0).getValue(), 7.0);
  locked->setTimeLocked(10.0, false);
  locked->setValueLocked(10.0, true);
  EXPECT_EQ(locked->moveKeyframe(10.0, 10.0 + 5e-9, 8.0, NOTIFY)->getTime(), 10.0);
  EXPECT_EQ(keyAt(*locked, 10.0).getValue(), 7.0);

  // Shifting all keys: a time-locked key stays where it is.
  locked->setTimeLocked(0.0, true);
  locked->moveAllKeyframes(3.0);
  EXPECT_EQ(locked->getFirstKeyframe()->getTime(), 0.0);
  EXPECT_EQ(locked->getLastKeyframe()->getTime(), 13.0);
}

TEST(TcTimeCurveTest, ScalingTime) {
  RCShdPtr<TcTimeCurve> const curve = makeCurve({P(2, 0), P(4, 1), P(8, 0)});
  curve->setAutoTangent(4.0, false);
  P const in = keyAt(*curve, 4.0).getInTangent();
  EXPECT_FALSE(curve->scaleTime(1.0));
  EXPECT_TRUE(curve->scaleTime(2.0));
  EXPECT_EQ(curve->getLastKeyframe()->getTime(), 14.0);
  // Handles move with their key and keep their extent.
  EXPECT_EQ(keyAt(*curve, 6.0).getInTangent(), P(in.x + 2.0, in.y));
  EXPECT_TRUE(curve->scaleTime(0.0));
  EXPECT_EQ(curve->getFirstKeyframe()->getTime(), 2.0);
  EXPECT_DOUBLE_EQ(curve->getLastKeyframe()->getTime(), 2.0 + 12.0 * kTol);
}

TEST(TcTimeCurveTest, EvaluationFollowsKeysMovedInPlace) {
  // A copy sorts its keys afresh: it is the reference after every move in place.
  RCShdPtr<TcTimeCurve> const curve =
      makeCurve({P(0, 0), P(1, 2), P(2, -1), P(3, 1), P(4, 0)}, TmAnimTypes::INTERPOLATION_BEZIER);
  auto const expectAsCopy = [&](char const* what) {
    RCShdPtr<TcTimeCurve const> const copy = new TcTimeCurve(*curve);
    for (double t = -1.0; t < 12.0; t += 0.0625) ASSERT_EQ(curve->evaluate(t), copy->evaluate(t)) << what << " " << t;
  };
  // By the key's holder, behind the curve's back, within the neighbours and onto a neighbour's slot.
  curve->getNextKeyframe(1.5)->move(2.6, 3.0);
  expectAsCopy("moved by its holder");
  curve->getFirstKeyframe()->move(0.5, 0.0);
  expectAsCopy("first moved by its holder");
  curve->moveAllKeyframes(-0.75);
  expectAsCopy("all moved left");
  curve->moveAllKeyframes(2.0);
  expectAsCopy("all moved right");
  curve->scaleTime(1.7);
  expectAsCopy("scaled up");
  curve->scaleTime(0.3);
  expectAsCopy("scaled down");
  curve->removeKeyframe(curve->getLastKeyframe()->getTime());
  curve->addKeyframe(1.3, 4.0);
  expectAsCopy("removed and added");
}

TEST(TcTimeCurveTest, FlagsAndInterpolationEdits) {
  RCShdPtr<TcTimeCurve> const curve = makeCurve({P(0, 0), P(10, 5)});
  EXPECT_TRUE(curve->setKeyframeInterpolation(0.0, TmAnimTypes::INTERPOLATION_CONSTANT));
  EXPECT_FALSE(curve->setKeyframeInterpolation(1.0, TmAnimTypes::INTERPOLATION_CONSTANT));
  EXPECT_EQ(curve->evaluate(9.0), 0.0);

  EXPECT_TRUE(curve->setTangentOrientationLocked(10.0, true));
  EXPECT_TRUE(curve->setTangentLengthLocked(10.0, true));
  EXPECT_TRUE(curve->isTangentLengthLocked(10.0));
  P const out = keyAt(*curve, 10.0).getOutTangent();
  EXPECT_TRUE(curve->setOutTangent(10.0, P(13, 9), 1.0));
  EXPECT_EQ(keyAt(*curve, 10.0).getOutTangent(), out) << "both locks: the handle stays";
  EXPECT_FALSE(curve->isAutoTangent(10.0));

  // Unified lengths and orientations through the curve, with an aspect.
  curve->setTangentOrientationLocked(10.0, false);
  curve->setTangentLengthLocked(10.0, false);
  EXPECT_TRUE(curve->setTangentLengthUnified(10.0, true));
  EXPECT_TRUE(curve->isTangentLengthUnified(10.0));
  EXPECT_TRUE(curve->setInTangent(10.0, P(7, 3), 2.0));
  EXPECT_EQ(keyAt(*curve, 10.0).getOutTangent(), P(13, 7));
  EXPECT_FALSE(curve->setValueLocked(3.0, true));
  EXPECT_FALSE(curve->setInTangent(3.0, P(0, 0), 1.0));

  // Flag setters need TcKeyframes.
  curve->addKeyframe(RCShdPtr<TmKeyframe>(new ForeignKey(20.0)));
  EXPECT_THROW(curve->setValueLocked(20.0, true), RCEx::ExCastFailed);
  EXPECT_FALSE(curve->isValueLocked(20.0));
}

TEST(TcTimeCurveTest, CopiesAndPackedForm) {
  RCShdPtr<TcTimeCurve> const curve = makeCurve({P(0, 0), P(10, 5), P(20, 0)}, TmAnimTypes::INTERPOLATION_BEZIER);
  curve->setKeyframeInterpolation(10.0, TmAnimTypes::INTERPOLATION_CONSTANT);
  curve->setInTangent(10.0, P(9, 7), 1.0);
  curve->setValueLocked(20.0, true);
  curve->setExtrapolationType(TmAnimTypes::EXTRAPOLATION_PING_PONG);
  curve->setId(77);
  curve->setLimitToNeighbours(true);
  dynamic_cast<TcKeyframe&>(*curve->getFirstKeyframe()).setLinkedToCueMark(true);

  RCProxyPvtEngPtr<Vector<double>> const keys = curve->getKeyframesData();
  RCProxyPvtEngPtr<Vector<int>> const types = curve->getInterpolationsData();
  RCProxyPvtEngPtr<Vector<int>> const flags = curve->getConstraintsData();
  ASSERT_EQ(keys->size(), 18u);
  P const in = keyAt(*curve, 10.0).getInTangent();
  P const out = keyAt(*curve, 10.0).getOutTangent();
  EXPECT_EQ(Vector<double>(keys->begin() + 6, keys->begin() + 12), (Vector<double>{in.x, in.y, 10.0, 5.0, out.x, out.y}));
  EXPECT_EQ((*types)[1], TmAnimTypes::INTERPOLATION_CONSTANT);
  EXPECT_EQ((*flags)[2], keyAt(*curve, 20.0).getConstraintData());

  RCShdPtr<TcTimeCurve> const rebuilt = new TcTimeCurve(keys, types, flags, TmAnimTypes::EXTRAPOLATION_PING_PONG,
                                                        TmAnimTypes::INTERPOLATION_LINEAR);
  EXPECT_EQ(*rebuilt->getKeyframesData(), *keys);
  EXPECT_EQ(*rebuilt->getInterpolationsData(), *types);
  EXPECT_EQ(*rebuilt->getConstraintsData(), *flags);
  for (double t : {-13.0, 3.0, 10.0, 17.5, 33.0}) EXPECT_EQ(rebuilt->evaluate(t), curve->evaluate(t));
  EXPECT_FALSE(keyAt(*rebuilt, 0.0).isLinkedToCueMark()) << "the cue mark is not packed";

  // The arrays are shared until written.
  RCProxyPvtEngPtr<Vector<double>> copy = keys;
  copy.getMutable()->at(3) = -1.0;
  EXPECT_EQ((*keys)[3], 0.0);

  // Copies clone the keys and keep everything but the handlers.
  RCShdPtr<TmTimeCurve> const cloned = curve->clone();
  TcTimeCurve const& c = dynamic_cast<TcTimeCurve const&>(*cloned);
  EXPECT_EQ(c.getId(), 77);
  EXPECT_TRUE(c.isLimitToNeighbours());
  EXPECT_NE(c.getFirstKeyframe().get(), curve->getFirstKeyframe().get());
  EXPECT_TRUE(keyAt(c, 0.0).isLinkedToCueMark());
  EXPECT_EQ(c.evaluate(-13.0), curve->evaluate(-13.0));

  RCShdPtr<TcTimeCurve> const assigned = new TcTimeCurve();
  *assigned = *curve;
  EXPECT_EQ(assigned->getId(), 77);

  // setKeyframes takes clones, also of the curve's own keys.
  assigned->setKeyframes(curve->getKeyframes());
  EXPECT_NE(assigned->getFirstKeyframe().get(), curve->getFirstKeyframe().get());
  assigned->setKeyframes(assigned->getKeyframes());
  EXPECT_EQ(*assigned->getKeyframesData(), *keys);
  assigned->setKeyframes(ConstIterator<RCShdPtr<TmKeyframe>>());
  EXPECT_TRUE(assigned->empty());
}

TEST(TcTimeCurveTest, BadInput) {
  auto const condition = [](auto const& f) -> std::string {
    try {
      f();
    } catch (AssertionsEx::ExAssertionFailed const& e) {
      return e.getCondition();
    }
    return "no assertion";
  };
  RCProxyPvtEngPtr<Vector<double>> const keys(new Vector<double>(12, 0.0));
  RCProxyPvtEngPtr<Vector<int>> const two(new Vector<int>(2, 0));
  RCProxyPvtEngPtr<Vector<int>> const three(new Vector<int>(3, 0));
  auto const make = [](auto k, auto i, auto c) {
    RCShdPtr<TcTimeCurve> const curve(
        new TcTimeCurve(k, i, c, TmAnimTypes::EXTRAPOLATION_CONSTANT, TmAnimTypes::INTERPOLATION_BEZIER));
  };
  EXPECT_EQ(condition([&] { make(RCProxyPvtEngPtr<Vector<double>>(), two, two); }), "!keyframes.isNull()");
  EXPECT_EQ(condition([&] { make(keys, RCProxyPvtEngPtr<Vector<int>>(), two); }), "!interpolations.isNull()");
  EXPECT_EQ(condition([&] { make(keys, two, RCProxyPvtEngPtr<Vector<int>>()); }), "!constraints.isNull()");
  EXPECT_EQ(condition([&] { make(keys, three, two); }), "keyframes->size() == interpolations->size() * 6");
  EXPECT_EQ(condition([&] { make(keys, two, three); }), "keyframes->size() == constraints->size() * 6");

  RCShdPtr<CurveWithoutClone> const sub = new CurveWithoutClone();
  EXPECT_EQ(condition([&] { RCShdPtr<TmTimeCurve> c(sub->clone()); }), "typeid( *this ) == typeid( TcTimeCurve )");
}

TEST(TcTimeCurveTest, TimePath) {
  RCShdPtr<TcTimeCurve> const curve = makeCurve({P(0, 0), P(10, 5)});
  RCShdPtr<PiTimePath const> const path = new PiTimePath(10.0, 15.0);
  curve->setTimePath(path, true);
  EXPECT_TRUE(curve->hasTimeTransform());
  EXPECT_EQ(curve->getFirstKeyframe()->getTime(), 5.0);
  // Same offset again: nothing happens.
  curve->setTimePath(new PiTimePath(0.0, 5.0 + 1e-9), true);
  EXPECT_EQ(curve->getTimePath(), path);
  EXPECT_EQ(curve->getFirstKeyframe()->getTime(), 5.0);
  // A new offset moves the keys by the difference.
  curve->setTimePath(new PiTimePath(2.0, 10.0), true);
  EXPECT_EQ(curve->getFirstKeyframe()->getTime(), 8.0);
  // Not applied: stored, no transform, no shift.
  curve->setTimePath(new PiTimePath(0.0, 1.0), false);
  EXPECT_FALSE(curve->hasTimeTransform());
  EXPECT_EQ(curve->getFirstKeyframe()->getTime(), 8.0);
  curve->resetTimePath();
  EXPECT_EQ(curve->getFirstKeyframe()->getTime(), 0.0);
  EXPECT_TRUE(curve->getTimePath().isNull());
  // A path without a head is only stored.
  curve->setTimePath(new PiTimePath(), true);
  EXPECT_FALSE(curve->hasTimeTransform());
  EXPECT_EQ(curve->getFirstKeyframe()->getTime(), 0.0);
}

namespace {

struct Recorder : TcTimeCurve::ChangedHandler {
  using TcTimeCurve::ChangedHandler::call;
  void call(RCShdPtr<TcTimeCurve> const& curve) override {
    ++calls;
    last = curve.get();
    if (onCall) onCall();
  }
  int calls = 0;
  TcTimeCurve const* last = nullptr;
  std::function<void()> onCall;
};

}  // namespace

TEST(TcTimeCurveTest, EveryEditNotifies) {
  RCShdPtr<TcTimeCurve> const curve = makeCurve({P(0, 0), P(10, 5), P(20, 0)});
  Recorder r;
  curve->addCurveChangedHandler(&r);
  curve->addCurveChangedHandler(&r);
  EXPECT_EQ(curve->getNbCurveChangedHandlers(), 1);
  int expected = 0;
  auto const check = [&](char const* what, bool notifies) {
    if (notifies) ++expected;
    EXPECT_EQ(r.calls, expected) << what;
  };

  curve->addKeyframe(30.0, 1.0); check("new key", true);
  EXPECT_EQ(r.last, curve.get());
  curve->setValueLocked(30.0, true); check("flag", true);
  curve->addKeyframe(30.0, 2.0); check("value of a locked key", true);
  curve->moveKeyframe(30.0, 30.0, 1.0, TmTimeCurve::NOTIFY);
  check("move that changes nothing, notification asked", true);
  curve->moveKeyframe(30.0, 31.0, 1.0, TmTimeCurve::DONT_NOTIFY); check("silent move", false);
  curve->moveKeyframe(31.0, 32.0, 1.0, TmTimeCurve::NotifyType(7)); check("only 1 notifies", false);
  curve->moveKeyframe(32.0, 33.0, 1.0, TmTimeCurve::NOTIFY); check("move", true);
  curve->setKeyframeInterpolation(33.0, TmAnimTypes::INTERPOLATION_LINEAR); check("same interpolation", false);
  curve->setKeyframeInterpolation(33.0, TmAnimTypes::INTERPOLATION_BEZIER); check("interpolation", true);
  curve->setInTangent(33.0, P(32, 1), 1.0); check("handle", true);
  curve->setAutoTangent(33.0, true); check("auto tangent", true);
  curve->removeKeyframe(33.0); check("removal", true);
  curve->moveAllKeyframes(1.0); check("shift", true);
  curve->scaleTime(2.0); check("scale", true);
  curve->scaleTime(1.0); check("unit scale", false);
  curve->setExtrapolationType(TmAnimTypes::EXTRAPOLATION_LOOP); check("extrapolation", true);
  curve->setDefaultInterpolationType(TmAnimTypes::INTERPOLATION_CONSTANT); check("default interpolation", true);
  curve->setKeyframes(curve->getKeyframes()); check("keys replaced", true);
  curve->setTimePath(new PiTimePath(0.0, 4.0), true);
  curve->resetTimePath(); check("time path", false);
  curve->removeKeyframe(99.0);
  curve->setTimeLocked(99.0, true);
  curve->moveKeyframe(99.0, 1.0, 1.0, TmTimeCurve::NOTIFY); check("missing keys", false);

  // Copies don't take the handlers.
  RCShdPtr<TcTimeCurve> const copy = new TcTimeCurve(*curve);
  copy->addKeyframe(100.0, 1.0);
  check("copy", false);
  curve->removeCurveChangedHandler(&r);
  curve->addKeyframe(100.0, 1.0); check("removed handler", false);
}

TEST(TcTimeCurveTest, HandlersChangingDuringNotification) {
  RCShdPtr<TcTimeCurve> curve = makeCurve({P(0, 0)});
  Recorder a, b, c;
  auto d = std::make_unique<Recorder>();
  curve->addCurveChangedHandler(&a);
  curve->addCurveChangedHandler(&b);
  curve->addCurveChangedHandler(d.get());
  curve->addCurveChangedHandler(&c);

  // a removes b and itself and destroys d: only c is called after it, and never the destroyed d.
  a.onCall = [&] {
    curve->removeCurveChangedHandler(&b);
    curve->removeCurveChangedHandler(&a);
    d.reset();
  };
  curve->addKeyframe(1.0, 1.0);
  EXPECT_EQ(a.calls, 1);
  EXPECT_EQ(b.calls, 0);
  EXPECT_EQ(c.calls, 1);
  EXPECT_EQ(curve->getNbCurveChangedHandlers(), 1);

  // A handler added during the call waits for the next one.
  c.onCall = [&] { curve->addCurveChangedHandler(&b); };
  curve->addKeyframe(2.0, 1.0);
  EXPECT_EQ(b.calls, 0);
  c.onCall = nullptr;

  // The curve outlives the notification in which its last outside handle is dropped.
  TcTimeCurve* const raw = curve.get();
  b.onCall = [&] { curve.reset(); };
  raw->addKeyframe(4.0, 1.0);
  EXPECT_TRUE(curve.isNull());
  EXPECT_EQ(c.calls, 3) << "the walk goes on after the drop";
}
