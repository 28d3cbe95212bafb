#include <orn/primitives/imageProc/ipScanlinePipe1In.h>

#include <orn/base/except/assertions.h>

namespace Orn {

template <class T>
IpScanlinePipe1In<T>::IpScanlinePipe1In(RCShdPtr<IpScanlinePipe> const& input) : IpScanlinePipeOutput<T>(input, 0, 0) {}

template <class T>
IpScanlinePipe1In<T>::~IpScanlinePipe1In() = default;

template <class T>
CoRgbaColorTyped<float> IpScanlinePipe1In<T>::getFillColor() const {
  return transformFillColor(_inputs[0]->getFillColor());
}

template <class T>
void IpScanlinePipe1In<T>::computeScanline(int y, IxScanline<T>& out) {
  ORN_ASSERT(_inputs.size() == 1);
  IxScanline<T> const& inputScanline = this->getInputScanline(0, y);
  ORN_ASSERT_TEXT(inputScanline.getInterval().contains(_srcRegion.getSlab(0)),
                  "inputScanline.getInterval().contains( _srcRegion.getSlab(0) )");
  computeScanline(out, inputScanline);
}

template class IpScanlinePipe1In<float>;
template class IpScanlinePipe1In<CoRgbaColorTyped<float>>;

}  // namespace Orn
