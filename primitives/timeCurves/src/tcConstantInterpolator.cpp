#include <orn/primitives/timeCurves/tcConstantInterpolator.h>

namespace Orn {

double TcConstantInterpolator::evaluateKeys(double, TmKeyframe const& key, TmKeyframe const&) const {
  return key.getValue();
}

void TcConstantInterpolator::tessellate(RCShdPtr<TmKeyframe const> const& key,
                                        RCShdPtr<TmKeyframe const> const& next, double,
                                        Vector<GePoint2<double>>& points) const {
  double const value = key->getValue();
  points.push_back(GePoint2<double>(key->getTime(), value));
  points.push_back(GePoint2<double>(next->getTime(), value));
}

}  // namespace Orn
