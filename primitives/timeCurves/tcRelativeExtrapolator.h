#pragma once
// The keyed range repeated, each repetition offset by the value change over the range.

#include <orn/primitives/timeCurves/tcExtrapolator.h>

namespace Orn {

class TcRelativeExtrapolator : public TcExtrapolator {
public:
  double evaluate(double time, RCShdPtr<TmTimeCurve const> const& curve) const override;
  double getNextKeyTime(double time, RCShdPtr<TmTimeCurve const> const& curve) const override;
  bool isCyclic() const override { return true; }
  void tessellateBefore(double x, RCShdPtr<TmTimeCurve const> const& curve, Polylines const& base,
                        Polylines& out) const override;
  void tessellateAfter(double x, RCShdPtr<TmTimeCurve const> const& curve, Polylines const& base,
                       Polylines& out) const override;
};

}  // namespace Orn
