#include <orn/base/viewing/vwViewer.h>

namespace Orn {

VwViewer::~VwViewer() = default;

}  // namespace Orn
