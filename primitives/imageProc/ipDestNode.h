#pragma once
// The root of a scanline pipe: writes the lines of its one input to a tile and drives the run.
//
//   RCShdPtr<IpScanlinePipe> source = new IpSourceNode(tiles);
//   RCShdPtr<IpScanlinePipe> filter = MyFilter::create(source);
//   RCShdPtr<IpDestNode> dest = new IpDestNode(filter);
//   dest->setDstRegion(region);  // before each process
//   dest->process(dstGuard);

#include <orn/pluginAPI/ixReadGuard.h>
#include <orn/pluginAPI/ixWriteGuard.h>
#include <orn/primitives/imageProc/ipScanlinePipe.h>

namespace Orn {

class IpDestNode : public IpScanlinePipe {
public:
  explicit IpDestNode(RCShdPtr<IpScanlinePipe> const& input);
  ~IpDestNode() override;

  // Clears the regions of the whole graph, then propagates region through it anew.
  void setDstRegion(GeRectangle<int> const& region) override;
  // The destination has no fill colour of its own: raises.
  CoRgbaColorTyped<float> getFillColor() const override;
  // Writes the input's line y to the tile of the current run.
  void processOutputScanline(int y) override;

  // Runs the graph over the region last set, with the tiles the sources hold, writing rows of the
  // region to dst, whose comps choose float or RGBA lines. Sets dst's fill colour to the colour
  // that comes out of the graph.
  void process(IxWriteGuard& dst);
  // The same for a graph of exactly one source, which is given tiles first.
  void process(IxWriteGuard& dst, Vector<IxReadGuard> const& tiles);

private:
  // Valid during process only.
  IxWriteGuard* _dst;
};

}  // namespace Orn
