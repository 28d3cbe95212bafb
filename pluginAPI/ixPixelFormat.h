#pragma once
// Format of a pixel: component count, component depth, pixel aspect ratio and channel order.

#include <orn/base/geometryBase/rational.h>

#include <cstdint>
#include <ostream>

namespace Orn {

class IxPixelFormat {
public:
  enum Comps : std::int32_t { ALPHA = 1, RGB = 3, RGBA = 4 };
  enum Depth : std::int32_t { UINT8 = 8, FLOAT16 = 16, FLOAT32 = 32, COMPLEX = 64 };
  enum ChannelOrder : std::int32_t { ORDER_RGBA = 0, ORDER_BGRA = 1 };

  // Checks comps, depth and a positive aspect ratio.
  IxPixelFormat(Comps comps, Depth depth, Rational aspectRatio = Rational(1, 1));
  IxPixelFormat(Comps comps, Depth depth, Rational aspectRatio, int channelOrder);

  Comps getComps() const { return _comps; }
  Depth getDepth() const { return _depth; }
  Rational const& getAspectRatio() const { return _aspectRatio; }
  int getChannelOrder() const { return _channelOrder; }
  // Bytes of one pixel: comps times depth / 8 (a complex component is 8 bytes).
  int getSize() const { return int(_comps) * (int(_depth) >> 3); }

  // Depth, comps and aspect ratio; the channel order is not compared.
  bool operator==(IxPixelFormat const& o) const {
    return _depth == o._depth && _comps == o._comps && _aspectRatio == o._aspectRatio;
  }
  bool operator!=(IxPixelFormat const& o) const { return !(*this == o); }

  void dump(std::ostream& out) const;

private:
  void check() const;

  Comps _comps;
  Depth _depth;
  Rational _aspectRatio;
  std::int32_t _channelOrder;
};

}  // namespace Orn
