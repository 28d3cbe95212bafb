#include <orn/primitives/imageProc/ipSourceNode.h>

#include <orn/base/except/assertions.h>

#include <algorithm>

namespace Orn {

IpSourceNode::IpSourceNode() : IpScanlinePipe(0, 0) {}

IpSourceNode::IpSourceNode(Vector<IxReadGuard> const& tiles) : IpScanlinePipe(0, 0), _inputTiles(tiles) {}

IpSourceNode::~IpSourceNode() = default;

void IpSourceNode::getAllInputs(Vector<IpSourceNode*>& sources) {
  if (std::find(sources.begin(), sources.end(), this) == sources.end()) sources.push_back(this);
}

CoRgbaColorTyped<float> IpSourceNode::getFillColor() const {
  ORN_ASSERT(! _inputTiles.empty());
  return _inputTiles.front().getTile().getFillColor();
}

void IpSourceNode::processOutputScanline(int y) {
  if (_outputComps == IxPixelFormat::RGB || _outputComps == IxPixelFormat::RGBA) {
    getOutputScanline(y, static_cast<CoRgbaColorTyped<float>*>(nullptr)).readFrom(_inputTiles, y);
  } else {
    ORN_ASSERT(_outputComps == IxPixelFormat::ALPHA);
    getOutputScanline(y, static_cast<float*>(nullptr)).readFrom(_inputTiles, y);
  }
}

}  // namespace Orn
