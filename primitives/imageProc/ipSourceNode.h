#pragma once
// A leaf of a scanline pipe: reads its lines from a set of tiles, padding outside them by
// repeating the edge, so that filters downstream may look beyond the image.

#include <orn/pluginAPI/ixReadGuard.h>
#include <orn/primitives/imageProc/ipScanlinePipe.h>

namespace Orn {

class IpSourceNode : public IpScanlinePipe {
public:
  IpSourceNode();
  explicit IpSourceNode(Vector<IxReadGuard> const& tiles);
  ~IpSourceNode() override;

  // Adds this source unless it is listed already.
  void getAllInputs(Vector<IpSourceNode*>& sources) override;
  // The fill colour of the first tile.
  CoRgbaColorTyped<float> getFillColor() const override;
  // Reads row y of the tiles into the ring, as float lines for ALPHA output, RGBA lines otherwise.
  void processOutputScanline(int y) override;

  void setInput(Vector<IxReadGuard> const& tiles) { _inputTiles = tiles; }
  Vector<IxReadGuard> const& getInput() const { return _inputTiles; }

private:
  Vector<IxReadGuard> _inputTiles;
};

}  // namespace Orn
