#include <orn/primitives/imageProc/ipDestNode.h>

#include <orn/base/except/assertions.h>
#include <orn/primitives/imageProc/ipSourceNode.h>

#include <algorithm>
#include <climits>

namespace Orn {

IpDestNode::IpDestNode(RCShdPtr<IpScanlinePipe> const& input) : IpScanlinePipe(input, 0, 0), _dst(nullptr) {}

IpDestNode::~IpDestNode() = default;

void IpDestNode::setDstRegion(GeRectangle<int> const& region) {
  resetRegions();
  IpScanlinePipe::setDstRegion(region);
}

CoRgbaColorTyped<float> IpDestNode::getFillColor() const {
  ORN_ASSERT(false);
  return CoRgbaColorTyped<float>();
}

void IpDestNode::processOutputScanline(int y) {
  ORN_ASSERT(_inputs.size() == 1);
  ORN_ASSERT(! _inputs[0].isNull());
  ORN_ASSERT(_dstRegion.y1() <= y && y < _dstRegion.y2());
  ORN_ASSERT(_dst != nullptr);
  if (_outputComps == IxPixelFormat::RGB || _outputComps == IxPixelFormat::RGBA) {
    _inputs[0]->getOutputScanline(y, static_cast<CoRgbaColorTyped<float>*>(nullptr)).writeTo(*_dst, y);
  } else {
    ORN_ASSERT(_outputComps == IxPixelFormat::ALPHA);
    _inputs[0]->getOutputScanline(y, static_cast<float*>(nullptr)).writeTo(*_dst, y);
  }
}

void IpDestNode::process(IxWriteGuard& dst) {
  if (_dstRegion.isEmpty()) return;
  ORN_ASSERT(_inputs.size() == 1);
  _dst = &dst;
  _outputComps = dst.getTile().getPixelFormat().getComps();

  computeBufferSizes();
  initializeProcessing();
  _initialized = true;
  for (RCShdPtr<IpScanlinePipe> const& input : _inputs) input->checkInitializeProcessing();

  Vector<IpSourceNode*> sources;
  getAllInputs(sources);
  std::size_t const nInputs = sources.size();
  ORN_ASSERT(nInputs >= 1);

  int yMin = INT_MAX;
  int yMax = INT_MIN;
  for (IpSourceNode const* source : sources) {
    yMin = std::min(yMin, source->getSrcRegion().y1());
    yMax = std::max(yMax, source->getSrcRegion().y2());
  }
  // Each source line is pushed as far down the graph as it can go before the next is read.
  for (int y = yMin; y < yMax; ++y)
    for (IpSourceNode* source : sources)
      if (source->getSrcRegion().getSlab(1).contains(y)) source->inputIsAvailable();

  // The guard's tile is a value: give the guard a copy that carries the new fill colour.
  IxTile tile = dst.getTile();
  tile.setFillColor(_inputs[0]->getFillColor());
  dst = IxWriteGuard(tile);
  _dst = nullptr;
}

void IpDestNode::process(IxWriteGuard& dst, Vector<IxReadGuard> const& tiles) {
  Vector<IpSourceNode*> sources;
  getAllInputs(sources);
  std::size_t const nInputs = sources.size();
  ORN_ASSERT(nInputs == 1);
  sources.front()->setInput(tiles);
  process(dst);
}

}  // namespace Orn
