#include <orn/primitives/imageProc/ixScanlineImp.h>

#include <orn/base/except/assertions.h>
#include <orn/pluginAPI/ixSingleTilePtrFetcher.h>
#include <orn/pluginAPI/ixTilePtrVectorFetcher.h>
#include <orn/primitives/imageProc/ixConvertUtil.h>
#include <orn/primitives/imageProc/ixTilingUtil.h>

#include <cstdint>
#include <numeric>

namespace Orn {

template <class T>
std::size_t IxScanlineImp<T>::computeBufferSize(int nbPixels) {
  IxPixelFormat const& format = IxScanline<T>::PIXEL_FORMAT;
  int const MIN_LINE_ALIGN = IxScanline<T>::MIN_LINE_ALIGN;
  std::size_t const pixelSize = std::size_t(format.getSize());
  std::size_t const multiple = std::lcm(pixelSize, std::size_t(MIN_LINE_ALIGN));
  std::size_t nbBytes = std::size_t(nbPixels) * pixelSize + 256;
  nbBytes = (nbBytes + multiple - 1) / multiple * multiple;
  ORN_ASSERT(nbBytes % format.getSize() == 0);
  ORN_ASSERT(nbBytes % MIN_LINE_ALIGN == 0);
  return nbBytes;
}

template <class T>
IxScanlineImp<T>::IxScanlineImp(int nbPixels, IxScanline<T>& instance) : _buffer(nullptr), _instance(instance) {
  ORN_ASSERT(nbPixels >= 0);
  if (nbPixels == 0) return;
  std::size_t const nbBytes = computeBufferSize(nbPixels);
  // 15 extra bytes: the first 16-byte boundary at or after the start of any allocation is at
  // most 15 bytes in, so nbBytes from there always lie inside it.
  std::size_t const align = std::size_t(IxScanline<T>::MIN_LINE_ALIGN);
  _allocation.reset(new unsigned char[nbBytes + align - 1]());
  std::uintptr_t const start = reinterpret_cast<std::uintptr_t>(_allocation.get());
  std::size_t const skip = (align - start % align) % align;
  _buffer = reinterpret_cast<T*>(_allocation.get() + skip);
}

template <class T>
IxScanlineImp<T>::~IxScanlineImp() = default;

template <class T>
void IxScanlineImp<T>::readFrom(IxScanlineTypes::TileFetcher& fetcher, int y) {
  IxTilingUtil::readLine(_instance.getOrigin(), _instance.getInterval(), y, fetcher, _instance.getPaddingPolicyX(),
                         _instance.getPaddingPolicyY());
}

template <class T>
void IxScanlineImp<T>::readFrom(Vector<IxReadGuard> const& guards, int y) {
  Vector<IxReadGuard const*> pointers;
  pointers.reserve(guards.size());
  for (IxReadGuard const& guard : guards) pointers.push_back(&guard);
  IxTilePtrVectorFetcher fetcher(pointers);
  readFrom(static_cast<IxScanlineTypes::TileFetcher&>(fetcher), y);
}

template <class T>
void IxScanlineImp<T>::readFrom(IxReadGuard const& guard, int y) {
  IxSingleTilePtrFetcher fetcher(&guard);
  readFrom(static_cast<IxScanlineTypes::TileFetcher&>(fetcher), y);
}

template <class T>
void IxScanlineImp<T>::writeTo(IxWriteGuard const& dst, int y) const {
  ORN_ASSERT(dst.getPixelRegion().getSlab( 0 ).contains( _instance.getInterval() ));
  GeInterval<int> const& interval = _instance.getInterval();
  if (interval.max <= interval.min) return;
  GeRectangle<int> const& region = dst.getPixelRegion();
  IxPixelFormat const& format = dst.getTile().getPixelFormat();
  // Integer arithmetic: the row is not checked against the tile.
  std::int64_t const offset = std::int64_t(y - region.y1()) * dst.getTile().getRowBytes() +
                              std::int64_t(interval.min - region.x1()) * format.getSize();
  unsigned char* const address =
      reinterpret_cast<unsigned char*>(reinterpret_cast<std::uintptr_t>(dst.getBaseAddress()) + std::uintptr_t(offset));
  IxConvertUtil::writeTo(address, _instance.getBegin(), unsigned(interval.max - interval.min), format);
}

template <class T>
typename IxScanlineImp<T>::Base* IxScanlineImp<T>::create(int nbPixels, IxScanline<T>& instance) {
  return new IxScanlineImp<T>(nbPixels, instance);
}

void IxScanlineImpFactories::install() {
  IxScanline<float>::setImplementationFactory(&IxScanlineImp<float>::create);
  IxScanline<CoRgbaColorTyped<float>>::setImplementationFactory(&IxScanlineImp<CoRgbaColorTyped<float>>::create);
  IxScanline<std::complex<float>>::setImplementationFactory(&IxScanlineImp<std::complex<float>>::create);
}

template class IxScanlineImp<float>;
template class IxScanlineImp<CoRgbaColorTyped<float>>;
template class IxScanlineImp<std::complex<float>>;

}  // namespace Orn
