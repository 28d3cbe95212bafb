#pragma once
// A pointwise pipe node of one input: output line y is a function of input line y alone.
// Subclasses implement the line operation and the same operation on the fill colour, so that the
// colour outside the image goes through the filter as the image does.

#include <orn/primitives/imageProc/ipScanlinePipeOutput.h>

namespace Orn {

template <class T>
class IpScanlinePipe1In : public IpScanlinePipeOutput<T> {
public:
  explicit IpScanlinePipe1In(RCShdPtr<IpScanlinePipe> const& input);
  ~IpScanlinePipe1In() override;

  // The input's fill colour through transformFillColor.
  CoRgbaColorTyped<float> getFillColor() const override;
  // Takes the input's line y and hands it to the line operation.
  void computeScanline(int y, IxScanline<T>& out) override;

  // The filter's work: out spans this node's region in x, in covers at least its source region.
  virtual void computeScanline(IxScanline<T>& out, IxScanline<T> const& in) = 0;
  // The filter applied to one colour.
  virtual CoRgbaColorTyped<float> transformFillColor(CoRgbaColorTyped<float> const& inputFill) const = 0;

protected:
  using IpScanlinePipe::_inputs;
  using IpScanlinePipe::_srcRegion;
};

extern template class IpScanlinePipe1In<float>;
extern template class IpScanlinePipe1In<CoRgbaColorTyped<float>>;

}  // namespace Orn
