#pragma once
// A pipe node that computes its lines: the output is a ring of IxScanline<T>, T = float (ALPHA
// output) or CoRgbaColorTyped<float> (RGBA output).
//
// Filters with a neighbourhood derive from this class with their radii, implement
// computeScanline(y, out) by reading getInputScanline(i, y + k) for k within the radius, implement
// getFillColor(), and ask the input for the lines they read with setExtraLinesBuffered. Pointwise
// filters derive from IpScanlinePipe1In or IpScanlinePipe2In instead.

#include <orn/primitives/imageProc/ipScanlinePipe.h>

namespace Orn {

template <class T>
class IpScanlinePipeOutput : public IpScanlinePipe {
public:
  IpScanlinePipeOutput(RCShdPtr<IpScanlinePipe> const& input, int neighX, int neighY);
  IpScanlinePipeOutput(RCShdPtr<IpScanlinePipe> const& input1, RCShdPtr<IpScanlinePipe> const& input2, int neighX,
                       int neighY);
  ~IpScanlinePipeOutput() override;

  // Computes line y into its ring entry, then polls the request manager (which may throw to
  // abandon the run).
  void processOutputScanline(int y) override;
  // Computes line y of this node into out, which spans the x interval of the node's region.
  virtual void computeScanline(int y, IxScanline<T>& out) = 0;

protected:
  // Line y of input i, in this node's element type.
  IxScanline<T>& getInputScanline(int i, int y) { return _inputs[i]->getOutputScanline(y, static_cast<T*>(nullptr)); }
};

extern template class IpScanlinePipeOutput<float>;
extern template class IpScanlinePipeOutput<CoRgbaColorTyped<float>>;

}  // namespace Orn
