#include <orn/primitives/imageProc/ipScanlinePipe2In.h>

#include <orn/base/except/assertions.h>

namespace Orn {

template <class T>
IpScanlinePipe2In<T>::IpScanlinePipe2In(RCShdPtr<IpScanlinePipe> const& input1, RCShdPtr<IpScanlinePipe> const& input2)
    : IpScanlinePipeOutput<T>(input1, input2, 0, 0) {}

template <class T>
IpScanlinePipe2In<T>::~IpScanlinePipe2In() = default;

template <class T>
CoRgbaColorTyped<float> IpScanlinePipe2In<T>::getFillColor() const {
  return transformFillColor(_inputs[0]->getFillColor(), _inputs[1]->getFillColor());
}

template <class T>
void IpScanlinePipe2In<T>::computeScanline(int y, IxScanline<T>& out) {
  ORN_ASSERT(_inputs.size() == 2);
  IxScanline<T> const& input1 = this->getInputScanline(0, y);
  IxScanline<T> const& input2 = this->getInputScanline(1, y);
  ORN_ASSERT_TEXT(input1.getInterval().contains(_srcRegion.getSlab(0)),
                  "input1.getInterval().contains( _srcRegion.getSlab(0) )");
  ORN_ASSERT_TEXT(input2.getInterval().contains(_srcRegion.getSlab(0)),
                  "input2.getInterval().contains( _srcRegion.getSlab(0) )");
  computeScanline(out, input1, input2);
}

template class IpScanlinePipe2In<float>;
template class IpScanlinePipe2In<CoRgbaColorTyped<float>>;

}  // namespace Orn
