#pragma once
// A pointwise pipe node of two inputs: output line y is a function of line y of each input.
// Subclasses implement the line operation and the same operation on the two fill colours.

#include <orn/primitives/imageProc/ipScanlinePipeOutput.h>

namespace Orn {

template <class T>
class IpScanlinePipe2In : public IpScanlinePipeOutput<T> {
public:
  IpScanlinePipe2In(RCShdPtr<IpScanlinePipe> const& input1, RCShdPtr<IpScanlinePipe> const& input2);
  ~IpScanlinePipe2In() override;

  // The inputs' fill colours through transformFillColor.
  CoRgbaColorTyped<float> getFillColor() const override;
  // Takes line y of both inputs and hands them to the line operation.
  void computeScanline(int y, IxScanline<T>& out) override;

  // The filter's work: out spans this node's region in x, in1 and in2 cover at least its source
  // region.
  virtual void computeScanline(IxScanline<T>& out, IxScanline<T> const& in1, IxScanline<T> const& in2) = 0;
  // The filter applied to one pair of colours.
  virtual CoRgbaColorTyped<float> transformFillColor(CoRgbaColorTyped<float> const& inputFill1,
                                                     CoRgbaColorTyped<float> const& inputFill2) const = 0;

protected:
  using IpScanlinePipe::_inputs;
  using IpScanlinePipe::_srcRegion;
};

extern template class IpScanlinePipe2In<float>;
extern template class IpScanlinePipe2In<CoRgbaColorTyped<float>>;

}  // namespace Orn
