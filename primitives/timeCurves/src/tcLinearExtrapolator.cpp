#include <orn/primitives/timeCurves/tcConstants.h>
#include <orn/primitives/timeCurves/tcLinearExtrapolator.h>

#include <cmath>

namespace Orn {

// The slope is that of the stored end handle, not of the handle cut at the neighbour, so the
// segment type next to the end does not change it.
double TcLinearExtrapolator::evaluate(double time, RCShdPtr<TmTimeCurve const> const& curve) const {
  Ends const ends = getEnds(curve);
  if (ends.t0 > time) {
    GePoint2<double> const h = curve->getFirstKeyframe()->getInTangent();
    double const length = std::sqrt((h.x - ends.t0) * (h.x - ends.t0) + (h.y - ends.v0) * (h.y - ends.v0));
    if (FloatUtil::isAbsZero(length, TcConstants::kTangentZero)) return ends.v0;
    return ends.v0 + (h.y - ends.v0) * (ends.t0 - time) / (ends.t0 - h.x);
  }
  GePoint2<double> const h = curve->getLastKeyframe()->getOutTangent();
  double const length = std::sqrt((h.x - ends.t1) * (h.x - ends.t1) + (h.y - ends.v1) * (h.y - ends.v1));
  if (FloatUtil::isAbsZero(length, TcConstants::kTangentZero)) return ends.v1;
  return ends.v1 + (h.y - ends.v1) * (time - ends.t1) / (h.x - ends.t1);
}

double TcLinearExtrapolator::getNextKeyTime(double time, RCShdPtr<TmTimeCurve const> const& curve) const {
  double const t0 = getEnds(curve).t0;
  return t0 > time ? t0 : TcConstants::kFarTime;
}

void TcLinearExtrapolator::tessellateBefore(double x, RCShdPtr<TmTimeCurve const> const& curve, Polylines const&,
                                            Polylines& out) const {
  tessellateBeforeAsLine(x, curve, out);
}

void TcLinearExtrapolator::tessellateAfter(double x, RCShdPtr<TmTimeCurve const> const& curve, Polylines const&,
                                           Polylines& out) const {
  tessellateAfterAsLine(x, curve, out);
}

}  // namespace Orn
