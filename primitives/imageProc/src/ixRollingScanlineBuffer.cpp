#include <orn/primitives/imageProc/ixRollingScanlineBuffer.h>

#include <orn/base/except/assertions.h>

#include <memory>

namespace Orn {

template <class T>
typename IxRollingScanlineBuffer<T>::ImplementationFactory IxRollingScanlineBuffer<T>::_implementationFactory =
    nullptr;

template <class T>
IxRollingScanlineBuffer<T>::IxRollingScanlineBuffer(Vector<IxReadGuard> const& tiles, GeRectangle<int> const& region,
                                                    int nbLines, IxPaddingPolicy<T> const& policy, Functor* functor)
    : _imp(nullptr) {
  ORN_ASSERT(_implementationFactory);
  std::unique_ptr<Imp> imp(_implementationFactory(tiles, region, nbLines, policy, functor));
  ORN_ASSERT(imp);
  imp->initialize();
  _imp = imp.release();
}

template <class T>
IxRollingScanlineBuffer<T>::~IxRollingScanlineBuffer() {
  delete _imp;
}

template <class T>
void IxRollingScanlineBuffer<T>::setImplementationFactory(ImplementationFactory factory) {
  _implementationFactory = factory;
}

template class IxRollingScanlineBuffer<float>;
template class IxRollingScanlineBuffer<CoRgbaColorTyped<float>>;

}  // namespace Orn
