#pragma once
// What a caller draws through: a viewer (the window) and a viewing (the camera state). A view
// is a value; it shares the two objects. A default view is null, and asking a null view for
// anything raises RCEx::ExNullPtr.

#include <orn/base/geometryBase/geRectangle.h>
#include <orn/base/geometryBase/geVector2.h>
#include <orn/base/rc/rcShdPtr.h>
#include <orn/base/viewing/vwViewer.h>
#include <orn/base/viewing/vwViewing.h>

namespace Orn {

class VwView {
public:
  VwView();
  VwView(RCShdPtr<VwViewer> const& viewer, RCShdPtr<VwViewing> const& viewing);

  // True unless both the viewer and the viewing are set.
  bool isNull() const { return _viewer.isNull() || _viewing.isNull(); }
  RCShdPtr<VwViewer> const& getViewer() const { return _viewer; }
  RCShdPtr<VwViewing> const& getViewing() const { return _viewing; }

  GeRectangle<int> getViewport() const { return _viewer->getViewport(); }
  GeVector2<float> getUserZoom() const { return _viewing->getUserZoom(); }
  GeVector2<float> getPan() const { return _viewing->getPan(); }
  float getOrthoHeight() const { return _viewing->getOrthoHeight(); }

private:
  RCShdPtr<VwViewer> _viewer;
  RCShdPtr<VwViewing> _viewing;
};

}  // namespace Orn
