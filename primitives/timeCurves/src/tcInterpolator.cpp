#include <orn/primitives/timeCurves/tcInterpolator.h>

namespace Orn {

TcInterpolator::~TcInterpolator() = default;

}  // namespace Orn
