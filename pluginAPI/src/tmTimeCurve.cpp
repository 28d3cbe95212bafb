#include <orn/pluginAPI/tmTimeCurve.h>

namespace Orn {

// The destructor is the interface's only out-of-line member: it anchors the vtable here.
TmTimeCurve::~TmTimeCurve() = default;

}  // namespace Orn
