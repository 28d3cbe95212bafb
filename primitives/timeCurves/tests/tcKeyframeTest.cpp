#include <orn/base/except/assertions.h>
#include <orn/base/rc/rcEx.h>
#include <orn/primitives/timeCurves/tcBezierInterpolator.h>
#include <orn/primitives/timeCurves/tcConstantInterpolator.h>
#include <orn/primitives/timeCurves/tcKeyframe.h>
#include <orn/primitives/timeCurves/tcLinearInterpolator.h>

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <typeinfo>

using namespace Orn;

namespace {

using P = GePoint2<double>;
constexpr auto APPLY = TmKeyframe::APPLY_CONSTRAINTS;
constexpr auto IGNORE = TmKeyframe::IGNORE_CONSTRAINTS;

RCShdPtr<TcKeyframe> makeKey(P in, double t, double v, P out, int constraints = 0) {
  return new TcKeyframe(in, t, v, out, TmAnimTypes::INTERPOLATION_BEZIER, constraints);
}

#define EXPECT_POINT_NEAR(a, b, e)  \
  do {                               \
    P const pa = (a);                \
    P const pb = (b);                \
    EXPECT_NEAR(pa.x, pb.x, e);      \
    EXPECT_NEAR(pa.y, pb.y, e);      \
  } while (0)

// Aspect-space length of a handle.
double aspectLength(P const& h, TcKeyframe const& k, double aspect) {
  return std::hypot(h.x - k.getTime(), (h.y - k.getValue()) * aspect);
}

class KeyWithoutClone : public TcKeyframe {
public:
  KeyWithoutClone() : TcKeyframe(0.0, 0.0, TmAnimTypes::INTERPOLATION_LINEAR) {}
};

}  // namespace

TEST(TcKeyframeTest, ConstructionCopyAndConstraintPacking) {
  RCShdPtr<TcKeyframe> const k = new TcKeyframe(2.0, 5.0, TmAnimTypes::INTERPOLATION_LINEAR);
  EXPECT_EQ(k->getInTangent(), P(2.0 - 0.1, 5.0));
  EXPECT_EQ(k->getConstraintData(), TcKeyframe::AUTO_TANGENT | TcKeyframe::TANGENT_ORIENTATION_UNIFIED);
  EXPECT_NE(dynamic_cast<TcLinearInterpolator const*>(k->getInterpolator().get()), nullptr);

  // Every combination of the seven bits survives the round trip; higher bits are dropped.
  for (int bits = 0; bits < 128; ++bits) {
    TcKeyframe const packed(P(0, 0), 1.0, 1.0, P(2, 1), TmAnimTypes::INTERPOLATION_CONSTANT, bits | 128);
    ASSERT_EQ(packed.getConstraintData(), bits);
    EXPECT_EQ(packed.isTangentLengthUnified(), (bits & 64) != 0);
  }

  // Unknown types interpolate as Bezier but keep their number.
  RCShdPtr<TcKeyframe> const odd = new TcKeyframe(0, 0, TmAnimTypes::InterpolationType(7));
  EXPECT_EQ(odd->getInterpolationType(), 7);
  EXPECT_NE(dynamic_cast<TcBezierInterpolator const*>(odd->getInterpolator().get()), nullptr);

  // The cue mark is copied but not packed; strategies are never shared.
  k->setLinkedToCueMark(true);
  k->setValueLocked(true);
  RCShdPtr<TmKeyframe> const copy = k->clone();
  TcKeyframe const& c = dynamic_cast<TcKeyframe const&>(*copy);
  EXPECT_TRUE(c.isLinkedToCueMark());
  EXPECT_TRUE(c.isValueLocked());
  EXPECT_NE(c.getInterpolator().get(), k->getInterpolator().get());
  TcKeyframe assigned(9.0, 9.0, TmAnimTypes::INTERPOLATION_CONSTANT);
  assigned = *k;
  EXPECT_TRUE(assigned.isLinkedToCueMark());
  EXPECT_NE(assigned.getInterpolator().get(), k->getInterpolator().get());
  TcKeyframe const unpacked(c.getInTangent(), c.getTime(), c.getValue(), c.getOutTangent(), c.getInterpolationType(),
                            c.getConstraintData());
  EXPECT_FALSE(unpacked.isLinkedToCueMark());

  RCShdPtr<KeyWithoutClone> const sub = new KeyWithoutClone();
  try {
    delete sub->clone();
    FAIL() << "a subclass without its own clone must not be cloned";
  } catch (AssertionsEx::ExAssertionFailed const& e) {
    EXPECT_STREQ(e.getCondition(), "typeid( *this ) == typeid( TcKeyframe )");
  }
}

TEST(TcKeyframeTest, LocksAndMove) {
  RCShdPtr<TcKeyframe> const k = makeKey(P(0, 1), 1.0, 2.0, P(3, 4));
  k->setTime(1.5);
  k->setValue(2.5);
  EXPECT_EQ(k->getValue(), 2.5);
  EXPECT_EQ(k->getInTangent(), P(0, 1)) << "setTime and setValue leave the handles";

  k->setTimeLocked(true);
  k->setTime(7.0);
  EXPECT_EQ(k->getTime(), 1.5);
  k->move(9.0, 4.5);  // value moves by 2, time stays
  EXPECT_EQ(k->getTime(), 1.5);
  EXPECT_EQ(k->getValue(), 4.5);
  EXPECT_EQ(k->getInTangent(), P(0, 3));
  EXPECT_EQ(k->getOutTangent(), P(3, 6));

  k->setTimeLocked(false);
  k->setValueLocked(true);
  k->setValue(0.0);
  k->move(2.5, 100.0);
  EXPECT_EQ(k->getValue(), 4.5);
  EXPECT_EQ(k->getOutTangent(), P(4, 6));
}

TEST(TcKeyframeTest, HandlesAreCutAtTheNeighbour) {
  RCShdPtr<TcKeyframe> const k = makeKey(P(-2, 3), 0.0, 1.0, P(4, 3));
  RCShdPtr<TmKeyframe const> const near = makeKey(P(1, 0), 2.0, 0.0, P(3, 0));
  RCShdPtr<TmKeyframe const> const far = makeKey(P(9, 0), 10.0, 0.0, P(11, 0));
  RCShdPtr<TmKeyframe const> const before = makeKey(P(-2, 0), -1.0, 0.0, P(0, 0));

  // The cut point stays on the line from the key through the stored handle.
  EXPECT_EQ(k->getOutTangent(near), P(2.0, 1.0 + 2.0 * 2.0 / 4.0));
  EXPECT_EQ(k->getOutTangent(far), P(4, 3));
  EXPECT_EQ(k->getOutTangent(RCShdPtr<TmKeyframe const>()), P(4, 3));
  EXPECT_EQ(k->getInTangent(before), P(-1.0, 1.0 + 2.0 * 1.0 / 2.0));
  EXPECT_EQ(k->getInTangent(makeKey(P(-6, 0), -5.0, 0.0, P(-4, 0))), P(-2, 3)) << "a farther neighbour cuts nothing";
  EXPECT_EQ(k->getOutTangent(), P(4, 3)) << "the stored handle is kept";

  // A handle level with its key (relatively) is cut to the key's value without the division, which
  // would give 1 + 2^-52 here.
  double const justAbove = std::nextafter(1.0, 2.0);
  RCShdPtr<TcKeyframe> const flat = makeKey(P(-3, justAbove), 0.0, 1.0, P(3, justAbove));
  EXPECT_EQ(flat->getOutTangent(near), P(2.0, 1.0));
  EXPECT_EQ(flat->getInTangent(before), P(-1.0, 1.0));
}

TEST(TcKeyframeTest, SettingHandlesWithoutFlags) {
  RCShdPtr<TcKeyframe> const k = makeKey(P(-1, 0), 0.0, 0.0, P(1, 0));
  k->setInTangent(P(0.5, 2.0), APPLY, 1.0);
  EXPECT_EQ(k->getInTangent(), P(0.0, 2.0)) << "an in handle may not pass to the right of its key";
  k->setOutTangent(P(-0.5, -2.0), APPLY, 1.0);
  EXPECT_EQ(k->getOutTangent(), P(0.0, -2.0));
  k->setInTangent(P(-3.0, 1.0), APPLY, 5.0);
  EXPECT_EQ(k->getInTangent(), P(-3.0, 1.0));
  EXPECT_EQ(k->getOutTangent(), P(0.0, -2.0)) << "nothing is unified";
}

TEST(TcKeyframeTest, LocksOnHandles) {
  int const unified = TcKeyframe::TANGENT_ORIENTATION_UNIFIED | TcKeyframe::TANGENT_LENGTH_UNIFIED;
  RCShdPtr<TcKeyframe> const both = makeKey(P(-1, 1), 0.0, 0.0, P(2, -2),
                                            TcKeyframe::TANGENT_ORIENTATION_LOCKED | TcKeyframe::TANGENT_LENGTH_LOCKED |
                                                unified);
  both->setInTangent(P(-5, 5), APPLY, 1.0);
  both->setOutTangent(P(5, 5), APPLY, 1.0);
  EXPECT_EQ(both->getInTangent(), P(-1, 1));
  EXPECT_EQ(both->getOutTangent(), P(2, -2));
  // Ignoring the constraints changes exactly one handle, locks and unification notwithstanding.
  both->setInTangent(P(3, 7), IGNORE, 1.0);
  EXPECT_EQ(both->getInTangent(), P(3, 7));
  EXPECT_EQ(both->getOutTangent(), P(2, -2));

  // Orientation lock: direction kept in aspect space, length from the request (aspect 2).
  RCShdPtr<TcKeyframe> const oriented = makeKey(P(-1, 1), 0.0, 0.0, P(1, 0), TcKeyframe::TANGENT_ORIENTATION_LOCKED);
  oriented->setInTangent(P(-3, 2), APPLY, 2.0);
  double const requested = std::sqrt(9.0 + 16.0);
  EXPECT_POINT_NEAR(oriented->getInTangent(), P(-requested / std::sqrt(5.0), requested / std::sqrt(5.0)), 1e-14);
  // With no direction to keep, the in handle points left.
  RCShdPtr<TcKeyframe> const collapsed = makeKey(P(0, 0), 0.0, 0.0, P(0, 0), TcKeyframe::TANGENT_ORIENTATION_LOCKED);
  collapsed->setInTangent(P(3, 4), APPLY, 1.0);
  collapsed->setOutTangent(P(0, 2), APPLY, 1.0);
  EXPECT_EQ(collapsed->getInTangent(), P(-5, 0));
  EXPECT_EQ(collapsed->getOutTangent(), P(2, 0));

  // Length lock: length kept, direction from the request. The in handle takes the request as it
  // is, even right of the key; the out handle first pulls it onto its own side.
  RCShdPtr<TcKeyframe> const sized = makeKey(P(-2, 0), 0.0, 0.0, P(3, 0), TcKeyframe::TANGENT_LENGTH_LOCKED);
  sized->setInTangent(P(1, 0), APPLY, 1.0);
  EXPECT_EQ(sized->getInTangent(), P(2, 0));
  sized->setOutTangent(P(-1, 1), APPLY, 4.0);
  EXPECT_EQ(sized->getOutTangent(), P(0, 3.0 / 4.0));
  sized->setOutTangent(P(-1, 0), APPLY, 1.0);
  EXPECT_EQ(sized->getOutTangent(), P(0.75, 0)) << "a request with no direction left points right";
}

TEST(TcKeyframeTest, UnifiedHandles) {
  int const unified = TcKeyframe::TANGENT_ORIENTATION_UNIFIED | TcKeyframe::TANGENT_LENGTH_UNIFIED;
  RCShdPtr<TcKeyframe> const mirror = makeKey(P(-1, 0), 1.0, 2.0, P(3, 0), unified);
  mirror->setInTangent(P(0.3, 2.7), APPLY, 3.0);
  P const in = mirror->getInTangent();
  EXPECT_EQ(mirror->getOutTangent(), P(1.0 - (in.x - 1.0), 2.0 - (in.y - 2.0)));
  mirror->setOutTangent(P(1.0, 2.0), APPLY, 3.0);
  EXPECT_EQ(mirror->getInTangent(), P(1.0, 2.0)) << "a zero handle mirrors to a zero handle";
  EXPECT_EQ(mirror->getOutTangent(), P(1.0, 2.0));

  // Orientation only: the opposite handle turns to the mirrored direction (aspect space) and keeps
  // its length.
  RCShdPtr<TcKeyframe> const turned = makeKey(P(-1, 0), 0.0, 0.0, P(0.5, 0), TcKeyframe::TANGENT_ORIENTATION_UNIFIED);
  turned->setInTangent(P(-1, -2), APPLY, 2.0);
  double const n = std::sqrt(17.0);
  EXPECT_POINT_NEAR(turned->getOutTangent(), P(0.5 / n, 0.5 * 4.0 / n / 2.0), 1e-15);

  // Length only: the opposite handle keeps its direction and takes the new length.
  RCShdPtr<TcKeyframe> const stretched = makeKey(P(-1, 0), 0.0, 0.0, P(0, 1), TcKeyframe::TANGENT_LENGTH_UNIFIED);
  stretched->setInTangent(P(-3, 2), APPLY, 2.0);
  EXPECT_POINT_NEAR(stretched->getOutTangent(), P(0.0, 5.0 / 2.0), 1e-15);
  EXPECT_EQ(aspectLength(stretched->getInTangent(), *stretched, 2.0),
            aspectLength(stretched->getOutTangent(), *stretched, 2.0));
  // A zero opposite handle is sent to the default side.
  RCShdPtr<TcKeyframe> const fromZero = makeKey(P(0, 0), 0.0, 0.0, P(0, 0), TcKeyframe::TANGENT_LENGTH_UNIFIED);
  fromZero->setOutTangent(P(0, 3), APPLY, 1.0);
  EXPECT_EQ(fromZero->getInTangent(), P(-3, 0));
}
