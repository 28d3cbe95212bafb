#include <orn/base/viewing/vwUtils.h>

#include <algorithm>

namespace Orn {

GePoint2<double> VwUtils::windowToWorldOrtho(GePoint2<double> const& window, VwView const& view) {
  GeRectangle<int> const viewport = view.getViewport();
  double const width = double(viewport.getWidth());
  double const height = double(viewport.getHeight());
  GeVector2<float> const zoom = view.getUserZoom();
  GeVector2<float> const pan = view.getPan();
  // Canonical coordinates: -1 to 1 across the viewport on both axes.
  double const cx = 2.0 * (window.x - viewport.x1()) / width - 1.0;
  double const cy = 2.0 * (window.y - viewport.y1()) / height - 1.0;
  double const halfHeight = 0.5 * double(view.getOrthoHeight());
  double const halfWidth = halfHeight * width / height;
  return GePoint2<double>(double(pan.x) + cx * halfWidth / double(zoom.x),
                          double(pan.y) + cy * halfHeight / double(zoom.y));
}

GeRectangle<double> VwUtils::windowToWorldOrtho(GeRectangle<int> const& window, VwView const& view) {
  GePoint2<double> const a = windowToWorldOrtho(GePoint2<double>(window.x1(), window.y1()), view);
  GePoint2<double> const b = windowToWorldOrtho(GePoint2<double>(window.x2(), window.y2()), view);
  return GeRectangle<double>(std::min(a.x, b.x), std::max(a.x, b.x), std::min(a.y, b.y), std::max(a.y, b.y));
}

}  // namespace Orn
