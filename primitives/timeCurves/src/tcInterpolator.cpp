#include <orn/primitives/timeCurves/tcInterpolator.h>

namespace Orn {

TcInterpolator::~TcInterpolator() = default;

double TcInterpolator::evaluate(double time, RCShdPtr<TmKeyframe> const& key, RCShdPtr<TmKeyframe> const& next) const {
  return evaluateKeys(time, *key, *next);
}

}  // namespace Orn
