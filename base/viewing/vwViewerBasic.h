#pragma once
// Viewer that holds the size of its target: the viewport runs from (0, 0) to that size.

#include <orn/base/geometryBase/geVector2.h>
#include <orn/base/viewing/vwViewer.h>

namespace Orn {

class VwViewerBasic : public VwViewer {
public:
  // A 640 by 480 target.
  VwViewerBasic();
  ~VwViewerBasic() override;

  VwViewerBasic* clone() const override;
  // From (0, 0) to the target size rounded to whole pixels.
  GeRectangle<int> getViewport() const override;
  virtual void setTargetSize(GeVector2<float> const& size);
  virtual GeVector2<float> getTargetSize() const;

private:
  GeVector2<float> _targetSize;
};

}  // namespace Orn
