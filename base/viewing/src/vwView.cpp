#include <orn/base/viewing/vwView.h>

namespace Orn {

VwView::VwView() = default;

VwView::VwView(RCShdPtr<VwViewer> const& viewer, RCShdPtr<VwViewing> const& viewing)
    : _viewer(viewer), _viewing(viewing) {}

}  // namespace Orn
