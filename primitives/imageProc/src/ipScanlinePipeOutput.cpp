#include <orn/primitives/imageProc/ipScanlinePipeOutput.h>

#include <orn/pluginAPI/pxRequestMgr.h>

#include <type_traits>

namespace Orn {

namespace {

template <class T>
constexpr IxPixelFormat::Comps outputCompsOf() {
  return std::is_same_v<T, float> ? IxPixelFormat::ALPHA : IxPixelFormat::RGBA;
}

}  // namespace

template <class T>
IpScanlinePipeOutput<T>::IpScanlinePipeOutput(RCShdPtr<IpScanlinePipe> const& input, int neighX, int neighY)
    : IpScanlinePipe(input, neighX, neighY) {
  _outputComps = outputCompsOf<T>();
}

template <class T>
IpScanlinePipeOutput<T>::IpScanlinePipeOutput(RCShdPtr<IpScanlinePipe> const& input1,
                                              RCShdPtr<IpScanlinePipe> const& input2, int neighX, int neighY)
    : IpScanlinePipe(input1, input2, neighX, neighY) {
  _outputComps = outputCompsOf<T>();
}

template <class T>
IpScanlinePipeOutput<T>::~IpScanlinePipeOutput() = default;

template <class T>
void IpScanlinePipeOutput<T>::processOutputScanline(int y) {
  computeScanline(y, getOutputScanline(y, static_cast<T*>(nullptr)));
  PxRequestMgr::getInstance().poll();
}

template class IpScanlinePipeOutput<float>;
template class IpScanlinePipeOutput<CoRgbaColorTyped<float>>;

}  // namespace Orn
