#include <orn/base/viewing/vwViewerBasic.h>

#include <cmath>

namespace Orn {

VwViewerBasic::VwViewerBasic() : _targetSize(640.0f, 480.0f) {}

VwViewerBasic::~VwViewerBasic() = default;

VwViewerBasic* VwViewerBasic::clone() const { return new VwViewerBasic(*this); }

GeRectangle<int> VwViewerBasic::getViewport() const {
  return GeRectangle<int>(0, int(std::lround(_targetSize.x)), 0, int(std::lround(_targetSize.y)));
}

void VwViewerBasic::setTargetSize(GeVector2<float> const& size) { _targetSize = size; }

GeVector2<float> VwViewerBasic::getTargetSize() const { return _targetSize; }

}  // namespace Orn
