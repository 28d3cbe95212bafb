#include <orn/pluginAPI/ixScanline.h>

#include <orn/base/except/assertions.h>

#include <cstdint>

namespace Orn {

namespace {

template <class T>
IxPixelFormat pixelFormatOf() {
  if constexpr (std::is_same_v<T, float>)
    return IxPixelFormat(IxPixelFormat::ALPHA, IxPixelFormat::FLOAT32);
  else if constexpr (std::is_same_v<T, CoRgbaColorTyped<float>>)
    return IxPixelFormat(IxPixelFormat::RGBA, IxPixelFormat::FLOAT32);
  else
    return IxPixelFormat(IxPixelFormat::ALPHA, IxPixelFormat::COMPLEX);
}

}  // namespace

template <class T>
const IxPixelFormat IxScanline<T>::PIXEL_FORMAT = pixelFormatOf<T>();

template <class T>
typename IxScanline<T>::ImplementationFactory IxScanline<T>::_implementationFactory = nullptr;

template <class T>
IxScanline<T>::IxScanline(GeInterval<int> const& interval, IxPaddingPolicy<T> const& padding)
    : _interval(interval), _paddingX(padding), _paddingY(padding), _begin(nullptr), _end(nullptr),
      _origin(nullptr), _imp(nullptr) {
  initialize(interval.getWidth() > 0 ? interval.getWidth() : 0, nullptr);
}

template <class T>
IxScanline<T>::IxScanline(GeInterval<int> const& interval, T* pixels, IxPaddingPolicy<T> const& padding)
    : _interval(interval), _paddingX(padding), _paddingY(padding), _begin(nullptr), _end(nullptr),
      _origin(nullptr), _imp(nullptr) {
  ORN_ASSERT(pixels != nullptr || interval.isEmpty());
  initialize(0, pixels);
}

template <class T>
IxScanline<T>::IxScanline(IxWriteGuard const& guard, int y)
  requires std::is_same_v<T, float>
    : _interval(guard.getPixelRegion().getSlab(0)), _paddingX(IxScanlineTypes::PADDING_COLOR, 0.f),
      _paddingY(IxScanlineTypes::PADDING_COLOR, 0.f), _begin(nullptr), _end(nullptr), _origin(nullptr),
      _imp(nullptr) {
  IxPixelFormat const& format = guard.getTile().getPixelFormat();
  ORN_ASSERT(format.getComps() == IxPixelFormat::ALPHA && format.getDepth() == IxPixelFormat::FLOAT32);
  ORN_ASSERT(guard.getPixelRegion().getSlab( 1 ).contains( y ));
  unsigned char* const row = guard.getBaseAddress() +
                             std::int64_t(y - guard.getPixelRegion().y1()) * guard.getTile().getRowBytes();
  initialize(0, reinterpret_cast<float*>(row));
}

template <class T>
IxScanline<T>::~IxScanline() {
  delete _imp;
}

template <class T>
void IxScanline<T>::setImplementationFactory(ImplementationFactory factory) {
  _implementationFactory = factory;
}

template <class T>
void IxScanline<T>::initialize(int nbPixels, T* pixels) {
  ORN_ASSERT_TEXT(_implementationFactory != nullptr,
                  "_implementationFactory != nullptr (scanline factories are installed by "
                  "IxScanlineImpFactories::install at image processing start-up)");
  _imp = _implementationFactory(nbPixels, *this);
  ORN_ASSERT(_imp != nullptr);
  _begin = pixels ? pixels : _imp->getBuffer();
  int const width = _interval.getWidth() > 0 ? _interval.getWidth() : 0;
  _end = _begin + width;
  // Integer arithmetic: the origin usually lies outside the buffer, where pointer arithmetic is
  // undefined.
  _origin = reinterpret_cast<T*>(reinterpret_cast<std::uintptr_t>(_begin) -
                                 std::uintptr_t(std::intptr_t(_interval.min) * std::intptr_t(sizeof(T))));
}

template class IxScanline<float>;
template class IxScanline<CoRgbaColorTyped<float>>;
template class IxScanline<std::complex<float>>;

}  // namespace Orn
