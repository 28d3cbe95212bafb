#pragma once
// How a scanline read pads one axis: the padding type and the fill colour of PADDING_COLOR.
// A float policy's fill is a single value, usually taken from a colour's alpha.

#include <orn/pluginAPI/ixScanlineTypes.h>

namespace Orn {

template <class T>
class IxPaddingPolicy {
public:
  IxPaddingPolicy(IxScanlineTypes::PaddingType type, T const& fillColor) : _type(type), _fillColor(fillColor) {}

  IxScanlineTypes::PaddingType getPaddingType() const { return _type; }
  T const& getFillColor() const { return _fillColor; }

  bool operator==(IxPaddingPolicy const& o) const { return _type == o._type && _fillColor == o._fillColor; }
  bool operator!=(IxPaddingPolicy const& o) const { return !(*this == o); }

private:
  IxScanlineTypes::PaddingType _type;
  T _fillColor;
};

}  // namespace Orn
