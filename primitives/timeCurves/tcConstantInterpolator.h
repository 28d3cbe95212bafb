#pragma once
// Step segment: the key's value until the next key.

#include <orn/primitives/timeCurves/tcInterpolator.h>

namespace Orn {

class TcConstantInterpolator : public TcInterpolator {
public:
  double evaluateKeys(double time, TmKeyframe const& key, TmKeyframe const& next) const override;
  // The horizontal run to the next key's time; the step is the start of the next polyline.
  void tessellate(RCShdPtr<TmKeyframe const> const& key, RCShdPtr<TmKeyframe const> const& next, double tolerance,
                  Vector<GePoint2<double>>& points) const override;
};

}  // namespace Orn
