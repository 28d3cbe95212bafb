#include <orn/primitives/imageProc/ixScanlineCache.h>

#include <orn/base/except/assertions.h>

#include <memory>

namespace Orn {

template <class T>
typename IxScanlineCache<T>::ImplementationFactory IxScanlineCache<T>::_implementationFactory = nullptr;

template <class T>
IxScanlineCache<T>::IxScanlineCache(GeRectangle<int> dstRegion, GeRectangle<int> srcRegion) : _imp(nullptr) {
  ORN_ASSERT(_implementationFactory);
  std::unique_ptr<Imp> imp(_implementationFactory(dstRegion, srcRegion));
  imp->initialize(dstRegion, srcRegion);
  _imp = imp.release();
}

template <class T>
IxScanlineCache<T>::~IxScanlineCache() {
  delete _imp;
}

template <class T>
void IxScanlineCache<T>::setImplementationFactory(ImplementationFactory factory) {
  _implementationFactory = factory;
}

template class IxScanlineCache<float>;
template class IxScanlineCache<CoRgbaColorTyped<float>>;
template class IxScanlineCache<std::complex<float>>;

}  // namespace Orn
