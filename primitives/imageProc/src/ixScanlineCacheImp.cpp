#include <orn/primitives/imageProc/ixScanlineCacheImp.h>

#include <orn/base/except/assertions.h>
#include <orn/primitives/imageProc/ixRollingScanlineBufferImp.h>

#include <algorithm>
#include <cstdint>

namespace Orn {

namespace {

template <class T>
IxTile makeBuffer(GeRectangle<int> const& region) {
  return IxTile(IxScanline<T>::PIXEL_FORMAT, region, CoRgbaColorTyped<float>());
}

// Row y of a buffer tile.
template <class T>
T* rowOf(IxTile const& tile, int y) {
  return reinterpret_cast<T*>(tile.getBaseAddress() +
                              std::ptrdiff_t(y - tile.getPixelRegion().y1()) * tile.getRowBytes());
}

}  // namespace

template <class T>
void IxScanlineCacheImp<T>::initialize(GeRectangle<int> const& dstRegion, GeRectangle<int> const& srcRegion) {
  _dstRegion = dstRegion;
  _srcRegion = srcRegion;
  _horizontal.setTile(makeBuffer<T>(GeRectangle<int>(dstRegion.x1(), dstRegion.x2(), srcRegion.y1(), srcRegion.y2())));
  _vertical = makeBuffer<T>(dstRegion);
  IxPaddingPolicy<T> const padding(IxScanlineTypes::NOOP, T());
  int const nbLines = std::clamp(dstRegion.getWidth(), 0, BATCH);
  _firsts.clear();
  _seconds.clear();
  for (int i = 0; i < nbLines; ++i) {
    _firsts.push_back(std::make_unique<IxScanline<T>>(srcRegion.getSlab(1), padding));
    _seconds.push_back(std::make_unique<IxScanline<T>>(dstRegion.getSlab(1), padding));
  }
  _batchStart = dstRegion.x1();
  _batchSize = _batchNext = _nbStored = 0;
}

template <class T>
void IxScanlineCacheImp<T>::getNext(IxScanline<T>*& first, IxScanline<T>*& second) {
  ORN_ASSERT(hasNext());
  if (_batchNext == _batchSize) {
    storeBatch();
    loadBatch(_batchStart + _batchSize);
  }
  first = _firsts[std::size_t(_batchNext)].get();
  second = _seconds[std::size_t(_batchNext)].get();
  ++_batchNext;
}

template <class T>
void IxScanlineCacheImp<T>::loadBatch(int start) {
  _batchStart = start;
  _batchSize = std::min(BATCH, _dstRegion.x2() - start);
  _batchNext = _nbStored = 0;
  IxTile const& tile = _horizontal.getGuard().getTile();
  int const column = start - _dstRegion.x1();
  for (int y = _srcRegion.y1(); y < _srcRegion.y2(); ++y) {
    T const* const row = rowOf<T>(tile, y) + column;
    int const i = y - _srcRegion.y1();
    for (int k = 0; k < _batchSize; ++k) _firsts[std::size_t(k)]->getBegin()[i] = row[k];
  }
}

template <class T>
void IxScanlineCacheImp<T>::storeBatch() {
  if (_nbStored == _batchNext) return;
  int const column = _batchStart - _dstRegion.x1();
  for (int y = _dstRegion.y1(); y < _dstRegion.y2(); ++y) {
    T* const row = rowOf<T>(_vertical, y) + column;
    int const i = y - _dstRegion.y1();
    for (int k = _nbStored; k < _batchNext; ++k) row[k] = _seconds[std::size_t(k)]->getBegin()[i];
  }
  _nbStored = _batchNext;
}

template <class T>
typename IxScanlineCacheImp<T>::Base* IxScanlineCacheImp<T>::create(GeRectangle<int> const&,
                                                                     GeRectangle<int> const&) {
  return new IxScanlineCacheImp<T>();
}

void IxScanlineCacheImpFactories::install() {
  IxScanlineCache<float>::setImplementationFactory(&IxScanlineCacheImp<float>::create);
  IxScanlineCache<CoRgbaColorTyped<float>>::setImplementationFactory(
      &IxScanlineCacheImp<CoRgbaColorTyped<float>>::create);
  IxScanlineCache<std::complex<float>>::setImplementationFactory(&IxScanlineCacheImp<std::complex<float>>::create);
  IxRollingScanlineBuffer<float>::setImplementationFactory(&IxRollingScanlineBufferImp<float>::create);
  IxRollingScanlineBuffer<CoRgbaColorTyped<float>>::setImplementationFactory(
      &IxRollingScanlineBufferImp<CoRgbaColorTyped<float>>::create);
}

template class IxScanlineCacheImp<float>;
template class IxScanlineCacheImp<CoRgbaColorTyped<float>>;
template class IxScanlineCacheImp<std::complex<float>>;

}  // namespace Orn
