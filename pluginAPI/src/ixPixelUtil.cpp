#include <orn/pluginAPI/ixPixelUtil.h>

#include <orn/base/except/assertions.h>
#include <orn/pluginAPI/ixPixel.h>

#include <cstdint>

namespace Orn {

namespace {

template <class Comp>
CoRgbaColorTyped<float> colorOf(unsigned char const* address, int comps) {
  switch (comps) {
    case IxPixelFormat::ALPHA: {
      auto const& p = *reinterpret_cast<IxPixel<Comp, 1> const*>(address);
      return CoRgbaColorTyped<float>(0.f, 0.f, 0.f, p[0].get());
    }
    case IxPixelFormat::RGB: {
      auto const& p = *reinterpret_cast<IxPixel<Comp, 3> const*>(address);
      return CoRgbaColorTyped<float>(p[0].get(), p[1].get(), p[2].get(), 1.f);
    }
    case IxPixelFormat::RGBA: {
      auto const& p = *reinterpret_cast<IxPixel<Comp, 4> const*>(address);
      return CoRgbaColorTyped<float>(p[0].get(), p[1].get(), p[2].get(), p[3].get());
    }
    default:
      break;
  }
  ORN_ABORT(nullptr);
}

}  // namespace

CoRgbaColorTyped<float> IxPixelUtil::getPixelColor(IxReadGuard const& guard, int x, int y) {
  ORN_ASSERT(guard.getPixelRegion().contains( x, y ));
  IxPixelFormat const& format = guard.getTile().getPixelFormat();
  GeRectangle<int> const& region = guard.getPixelRegion();
  // From the base address, which lies inside the memory block, unlike the origin.
  unsigned char const* const address = guard.getBaseAddress() +
                                       std::int64_t(y - region.y1()) * guard.getTile().getRowBytes() +
                                       std::int64_t(x - region.x1()) * format.getSize();
  switch (format.getDepth()) {
    case IxPixelFormat::UINT8:
      return colorOf<IxPixelCompUInt8>(address, format.getComps());
    case IxPixelFormat::FLOAT16:
      return colorOf<IxPixelCompFloat16>(address, format.getComps());
    case IxPixelFormat::FLOAT32:
      return colorOf<IxPixelCompFloat32>(address, format.getComps());
    default:
      break;
  }
  ORN_ABORT(nullptr);
}

}  // namespace Orn
