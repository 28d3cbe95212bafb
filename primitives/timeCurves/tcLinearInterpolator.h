#pragma once
// Straight segment from a key to the next.

#include <orn/primitives/timeCurves/tcInterpolator.h>

namespace Orn {

class TcLinearInterpolator : public TcInterpolator {
public:
  double evaluateKeys(double time, TmKeyframe const& key, TmKeyframe const& next) const override;
  void tessellate(RCShdPtr<TmKeyframe const> const& key, RCShdPtr<TmKeyframe const> const& next, double tolerance,
                  Vector<GePoint2<double>>& points) const override;
};

}  // namespace Orn
