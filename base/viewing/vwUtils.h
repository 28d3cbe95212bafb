#pragma once
// Conversions between the coordinates of a view. Window coordinates are pixels with the origin at
// the viewport's lower-left corner and y up; an orthographic view shows the world rectangle
// centred on the pan, getOrthoHeight() / zoom.y high and as wide as the viewport's proportions
// make it, divided by zoom.x.

#include <orn/base/geometryBase/gePoint2.h>
#include <orn/base/geometryBase/geRectangle.h>
#include <orn/base/viewing/vwView.h>

namespace Orn {

class VwUtils {
public:
  // World point under a window point of an orthographic view.
  static GePoint2<double> windowToWorldOrtho(GePoint2<double> const& window, VwView const& view);
  // World rectangle covered by a window rectangle, with x1 <= x2 and y1 <= y2.
  static GeRectangle<double> windowToWorldOrtho(GeRectangle<int> const& window, VwView const& view);
};

}  // namespace Orn
