#pragma once
// The window a view draws into, as far as the library needs it: its viewport in pixels.

#include <orn/base/geometryBase/geRectangle.h>
#include <orn/base/rc/lkCounter.h>
#include <orn/base/rc/rcBase.h>

namespace Orn {

class VwViewer : public RCBase<LkCounter<int>> {
public:
  ~VwViewer() override;

  virtual VwViewer* clone() const = 0;
  // Pixel rectangle of the drawing area; window coordinates have their origin at its lower-left
  // corner and y pointing up.
  virtual GeRectangle<int> getViewport() const = 0;
};

}  // namespace Orn
