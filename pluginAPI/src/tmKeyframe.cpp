#include <orn/pluginAPI/tmKeyframe.h>

namespace Orn {

// The destructor is the interface's only out-of-line member: it anchors the vtable here.
TmKeyframe::~TmKeyframe() = default;

}  // namespace Orn
