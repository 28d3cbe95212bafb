#include <orn/base/viewing/vwViewing2DBasic.h>

#include <utility>

namespace Orn {

VwViewing2DBasic::VwViewing2DBasic() : VwViewing2DBasic("VwViewing2DBasic") {}

VwViewing2DBasic::VwViewing2DBasic(std::string name)
    : VwViewing(std::move(name)), _userZoom(1.0f, 1.0f), _pan(0.0f, 0.0f), _orthoHeight(2.0f) {}

VwViewing2DBasic::~VwViewing2DBasic() = default;

VwViewing2DBasic* VwViewing2DBasic::clone() const { return new VwViewing2DBasic(*this); }

// Each setter stores and notifies only when the value differs, component by component; NaN
// differs from everything, itself included.
void VwViewing2DBasic::performSetUserZoom(GeVector2<float> const& zoom) {
  if (zoom.x == _userZoom.x && zoom.y == _userZoom.y) return;
  _userZoom = zoom;
  changed();
}

void VwViewing2DBasic::performSetPan(GeVector2<float> const& pan) {
  if (pan.x == _pan.x && pan.y == _pan.y) return;
  _pan = pan;
  changed();
}

void VwViewing2DBasic::performSetOrthoHeight(float height) {
  if (height == _orthoHeight) return;
  _orthoHeight = height;
  changed();
}

}  // namespace Orn
