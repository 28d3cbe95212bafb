#include <orn/primitives/timeCurves/tcConstants.h>
#include <orn/primitives/timeCurves/tcKeyLinearExtrapolator.h>

#include <cmath>

namespace Orn {

// Follows the chord from the end key to its neighbour, whatever the handles.
double TcKeyLinearExtrapolator::evaluate(double time, RCShdPtr<TmTimeCurve const> const& curve) const {
  Ends const ends = getEnds(curve);
  if (ends.t0 > time) {
    RCShdPtr<TmKeyframe const> const next = curve->getNextKeyframe(ends.t0);
    double const tn = next->getTime();
    double const vn = next->getValue();
    double const length = std::sqrt((tn - ends.t0) * (tn - ends.t0) + (vn - ends.v0) * (vn - ends.v0));
    if (FloatUtil::isAbsZero(length, TcConstants::kTangentZero)) return ends.v0;
    return vn + (ends.v0 - vn) * (tn - time) / (tn - ends.t0);
  }
  RCShdPtr<TmKeyframe const> const previous = curve->getPreviousKeyframe(ends.t1);
  double const tp = previous->getTime();
  double const vp = previous->getValue();
  double const length = std::sqrt((ends.t1 - tp) * (ends.t1 - tp) + (ends.v1 - vp) * (ends.v1 - vp));
  if (FloatUtil::isAbsZero(length, TcConstants::kTangentZero)) return ends.v1;
  return vp + (ends.v1 - vp) * (time - tp) / (ends.t1 - tp);
}

double TcKeyLinearExtrapolator::getNextKeyTime(double time, RCShdPtr<TmTimeCurve const> const& curve) const {
  double const t0 = getEnds(curve).t0;
  return t0 > time ? t0 : TcConstants::kFarTime;
}

void TcKeyLinearExtrapolator::tessellateBefore(double x, RCShdPtr<TmTimeCurve const> const& curve,
                                               Polylines const&, Polylines& out) const {
  tessellateBeforeAsLine(x, curve, out);
}

void TcKeyLinearExtrapolator::tessellateAfter(double x, RCShdPtr<TmTimeCurve const> const& curve, Polylines const&,
                                              Polylines& out) const {
  tessellateAfterAsLine(x, curve, out);
}

}  // namespace Orn
