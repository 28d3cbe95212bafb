#pragma once
// State of the camera of a view, with change notification. Setters compare the new value with the
// stored one exactly and tell the observers, once, only when it differs; observers attach a
// CbHandler<VwViewing const*> to getChangedDispatcher().
//
// The planar state used by orthographic views: the ortho height is the world height that the
// viewport shows at a user zoom of 1; the user zoom scales each axis on its own, and the pan is
// the world point at the viewport's centre.

#include <orn/base/callbacks/cbDispatcher.h>
#include <orn/base/geometryBase/geVector2.h>
#include <orn/base/rc/lkCounter.h>
#include <orn/base/rc/rcBase.h>

#include <string>

namespace Orn {

class VwViewing : public RCBase<LkCounter<int>> {
public:
  explicit VwViewing(std::string name);
  // A copy has the same name and state and no observers.
  VwViewing(VwViewing const& other);
  ~VwViewing() override;

  virtual VwViewing* clone() const = 0;
  std::string const& getName() const { return _name; }
  CbDispatcher<VwViewing const*>& getChangedDispatcher() { return _changedDispatcher; }

  virtual GeVector2<float> getUserZoom() const = 0;
  virtual GeVector2<float> getPan() const = 0;
  virtual float getOrthoHeight() const = 0;

  void setUserZoom(GeVector2<float> const& zoom) { performSetUserZoom(zoom); }
  void setPan(GeVector2<float> const& pan) { performSetPan(pan); }
  void setOrthoHeight(float height) { performSetOrthoHeight(height); }

protected:
  // Calls the observers with this viewing.
  void changed();

  virtual void performSetUserZoom(GeVector2<float> const& zoom) = 0;
  virtual void performSetPan(GeVector2<float> const& pan) = 0;
  virtual void performSetOrthoHeight(float height) = 0;

private:
  VwViewing& operator=(VwViewing const&) = delete;

  std::string _name;
  CbDispatcher<VwViewing const*> _changedDispatcher;
};

}  // namespace Orn
