#pragma once
// Viewing of a flat view: a pannable, zoomable window onto the plane.

#include <orn/base/viewing/vwViewing.h>

#include <string>

namespace Orn {

class VwViewing2DBasic : public VwViewing {
public:
  // Zoom (1, 1), pan (0, 0), ortho height 2: the viewport shows y from -1 to 1.
  VwViewing2DBasic();
  explicit VwViewing2DBasic(std::string name);
  ~VwViewing2DBasic() override;

  VwViewing2DBasic* clone() const override;
  GeVector2<float> getUserZoom() const override { return _userZoom; }
  GeVector2<float> getPan() const override { return _pan; }
  float getOrthoHeight() const override { return _orthoHeight; }

protected:
  void performSetUserZoom(GeVector2<float> const& zoom) override;
  void performSetPan(GeVector2<float> const& pan) override;
  void performSetOrthoHeight(float height) override;

private:
  GeVector2<float> _userZoom;
  GeVector2<float> _pan;
  float _orthoHeight;
};

}  // namespace Orn
