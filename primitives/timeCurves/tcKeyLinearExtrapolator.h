#pragma once
// Straight on along the chord of the first or last segment.

#include <orn/primitives/timeCurves/tcExtrapolator.h>

namespace Orn {

class TcKeyLinearExtrapolator : public TcExtrapolator {
public:
  double evaluate(double time, RCShdPtr<TmTimeCurve const> const& curve) const override;
  double getNextKeyTime(double time, RCShdPtr<TmTimeCurve const> const& curve) const override;
  void tessellateBefore(double x, RCShdPtr<TmTimeCurve const> const& curve, Polylines const& base,
                        Polylines& out) const override;
  void tessellateAfter(double x, RCShdPtr<TmTimeCurve const> const& curve, Polylines const& base,
                       Polylines& out) const override;
};

}  // namespace Orn
