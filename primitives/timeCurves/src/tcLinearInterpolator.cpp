#include <orn/primitives/timeCurves/tcLinearInterpolator.h>

namespace Orn {

double TcLinearInterpolator::evaluateKeys(double time, TmKeyframe const& key, TmKeyframe const& next) const {
  double const t0 = key.getTime();
  double const v0 = key.getValue();
  double const t1 = next.getTime();
  double const v1 = next.getValue();
  return v0 + (time - t0) * (v1 - v0) / (t1 - t0);
}

void TcLinearInterpolator::tessellate(RCShdPtr<TmKeyframe const> const& key, RCShdPtr<TmKeyframe const> const& next,
                                      double, Vector<GePoint2<double>>& points) const {
  points.push_back(GePoint2<double>(key->getTime(), key->getValue()));
  points.push_back(GePoint2<double>(next->getTime(), next->getValue()));
}

}  // namespace Orn
