#pragma once
// Pixel format of the image store: component count and bits per component.

#include <orn/base/except/assertions.h>

#include <ostream>

namespace Orn {

class ImPixelFormat {
public:
  ImPixelFormat(int comps, int bitsPerComponent) : _comps(comps), _bitsPerComponent(bitsPerComponent) {
    ORN_ASSERT(comps > 0 && bitsPerComponent > 0);
  }

  int getComps() const { return _comps; }
  int getBitsPerComponent() const { return _bitsPerComponent; }
  // Bytes of one pixel, rounded up to whole bytes when the components do not fill them.
  int getSize() const { return (_comps * _bitsPerComponent + 7) / 8; }

  bool operator==(ImPixelFormat const& o) const {
    return _comps == o._comps && _bitsPerComponent == o._bitsPerComponent;
  }
  bool operator!=(ImPixelFormat const& o) const { return !(*this == o); }

  void dump(std::ostream& out) const { out << _comps << 'x' << _bitsPerComponent << " bits"; }

private:
  int _comps;
  int _bitsPerComponent;
};

}  // namespace Orn
