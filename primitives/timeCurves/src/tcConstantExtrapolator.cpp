#include <orn/primitives/timeCurves/tcConstantExtrapolator.h>
#include <orn/primitives/timeCurves/tcConstants.h>

namespace Orn {

double TcConstantExtrapolator::evaluate(double time, RCShdPtr<TmTimeCurve const> const& curve) const {
  Ends const ends = getEnds(curve);
  return ends.t0 > time ? ends.v0 : ends.v1;
}

double TcConstantExtrapolator::getNextKeyTime(double time, RCShdPtr<TmTimeCurve const> const& curve) const {
  double const t0 = getEnds(curve).t0;
  return t0 > time ? t0 : TcConstants::kFarTime;
}

void TcConstantExtrapolator::tessellateBefore(double x, RCShdPtr<TmTimeCurve const> const& curve, Polylines const&,
                                              Polylines& out) const {
  tessellateBeforeAsLine(x, curve, out);
}

void TcConstantExtrapolator::tessellateAfter(double x, RCShdPtr<TmTimeCurve const> const& curve, Polylines const&,
                                             Polylines& out) const {
  tessellateAfterAsLine(x, curve, out);
}

}  // namespace Orn
