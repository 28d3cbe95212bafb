#include <orn/primitives/imageProc/ipCrop.h>

#include <orn/pluginAPI/coRgbaColorTyped.h>
#include <orn/pluginAPI/ixPaddingPolicy.h>
#include <orn/pluginAPI/pxRequestMgr.h>
#include <orn/primitives/imageProc/ixConvertUtil.h>
#include <orn/primitives/imageProc/ixTilingUtil.h>

#include <complex>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <new>

namespace Orn {

namespace {

using Rgba = CoRgbaColorTyped<float>;

// The padding colour in each line form: one-component forms take the colour's alpha.
template <class T>
T lineFill(Rgba const& color);
template <>
float lineFill<float>(Rgba const& color) {
  return color.a;
}
template <>
Rgba lineFill<Rgba>(Rgba const& color) {
  return color;
}
template <>
std::complex<float> lineFill<std::complex<float>>(Rgba const& color) {
  return std::complex<float>(color.a, 0.f);
}

struct FreeDeleter {
  void operator()(void* p) const { std::free(p); }
};

template <class T>
void cropRows(IxWriteGuard const& dst, IxScanlineTypes::TileFetcher& fetcher, IxScanlineTypes::PaddingType paddingX,
              IxScanlineTypes::PaddingType paddingY) {
  GeRectangle<int> const& region = dst.getPixelRegion();
  if (region.isEmpty()) return;
  T const fill = lineFill<T>(dst.getTile().getFillColor());
  IxPaddingPolicy<T> const policyX(paddingX, fill);
  IxPaddingPolicy<T> const policyY(paddingY, fill);
  GeInterval<int> const xs = region.getSlab(0);
  unsigned int const width = unsigned(xs.max - xs.min);

  // One row of the line form, 16-byte aligned as the block converters want it.
  std::unique_ptr<T, FreeDeleter> const line(
      static_cast<T*>(std::aligned_alloc(16, (std::size_t(width) * sizeof(T) + 15) / 16 * 16)));
  if (!line) throw std::bad_alloc();
  T* const origin = reinterpret_cast<T*>(reinterpret_cast<std::uintptr_t>(line.get()) -
                                         std::uintptr_t(std::intptr_t(xs.min) * std::intptr_t(sizeof(T))));
  IxPixelFormat const& dstFormat = dst.getTile().getPixelFormat();
  int const rowBytes = dst.getTile().getRowBytes();
  PxRequestMgr& requests = PxRequestMgr::getInstance();
  for (int y = region.y1(); y < region.y2(); ++y) {
    IxTilingUtil::readLine(origin, xs, y, fetcher, policyX, policyY);
    unsigned char* const row = dst.getBaseAddress() + std::ptrdiff_t(y - region.y1()) * rowBytes;
    IxConvertUtil::writeTo(row, line.get(), width, dstFormat);
    requests.poll();
  }
}

}  // namespace

void ipCrop(IxWriteGuard const& dst, IxScanlineTypes::TileFetcher& fetcher, IxPixelFormat const& format,
            IxScanlineTypes::PaddingType paddingX, IxScanlineTypes::PaddingType paddingY) {
  if (format.getDepth() == IxPixelFormat::COMPLEX)
    cropRows<std::complex<float>>(dst, fetcher, paddingX, paddingY);
  else if (format.getComps() == IxPixelFormat::ALPHA)
    cropRows<float>(dst, fetcher, paddingX, paddingY);
  else
    cropRows<Rgba>(dst, fetcher, paddingX, paddingY);
}

}  // namespace Orn
