#include <orn/primitives/imageProc/ipScanlinePipe.h>

#include <orn/base/except/assertions.h>
#include <orn/pluginAPI/ixPaddingPolicy.h>

#include <algorithm>

namespace Orn {

namespace {

// The smallest rectangle holding both.
GeRectangle<int> unite(GeRectangle<int> const& a, GeRectangle<int> const& b) {
  return GeRectangle<int>(std::min(a.x1(), b.x1()), std::max(a.x2(), b.x2()), std::min(a.y1(), b.y1()),
                          std::max(a.y2(), b.y2()));
}

// Line y of a ring of n lines whose first line is y1. y must not lie above y1.
template <class Line>
Line& ringEntry(std::unique_ptr<std::unique_ptr<Line>[]> const& ring, int y, int y1, int n) {
  return *ring[(y - y1) % n];
}

template <class Line, class Fill>
void makeRing(std::unique_ptr<std::unique_ptr<Line>[]>& ring, int n, GeInterval<int> const& xs, Fill const& fill) {
  IxPaddingPolicy<Fill> const padding(IpScanlinePipe::getPaddingType(), fill);
  ring.reset(new std::unique_ptr<Line>[n]);
  for (int i = 0; i < n; ++i) ring[i].reset(new Line(xs, padding));
}

}  // namespace

IpScanlinePipe::IpScanlinePipe(int neighX, int neighY)
    : _outputComps(IxPixelFormat::RGBA), _neighX(neighX), _neighY(neighY) {
  initialize();
}

IpScanlinePipe::IpScanlinePipe(RCShdPtr<IpScanlinePipe> const& input, int neighX, int neighY)
    : IpScanlinePipe(neighX, neighY) {
  ORN_ASSERT(! input.isNull());
  _inputs.push_back(input);
  input->addOutput(this);
}

IpScanlinePipe::IpScanlinePipe(RCShdPtr<IpScanlinePipe> const& input1, RCShdPtr<IpScanlinePipe> const& input2,
                               int neighX, int neighY)
    : IpScanlinePipe(neighX, neighY) {
  ORN_ASSERT(! input1.isNull());
  ORN_ASSERT(! input2.isNull());
  _inputs.push_back(input1);
  _inputs.push_back(input2);
  input1->addOutput(this);
  input2->addOutput(this);
}

// Upstream nodes may outlive this one (a caller may hold them): they must not keep pointing here.
IpScanlinePipe::~IpScanlinePipe() {
  for (RCShdPtr<IpScanlinePipe> const& input : _inputs) {
    Vector<IpScanlinePipe*>& outputs = input->_outputs;
    outputs.erase(std::remove(outputs.begin(), outputs.end(), this), outputs.end());
  }
}

void IpScanlinePipe::initialize() {
  _accumulatedDelay = 0;
  _outputDelay = 0;
  _extraLinesBuffered = 0;
  _srcRegion = GeRectangle<int>();
  _dstRegion = GeRectangle<int>();
  _currentLine = 0;
  _bufferSize = 0;
  _initialized = false;
  releaseRings();
}

void IpScanlinePipe::releaseRings() {
  _outputCacheAlpha.reset();
  _outputCacheRgba.reset();
}

void IpScanlinePipe::addOutput(IpScanlinePipe* output) { _outputs.push_back(output); }

void IpScanlinePipe::setOutputDelay(int size) {
  ORN_ASSERT(size >= 0);
  _outputDelay = size;
}

void IpScanlinePipe::setExtraLinesBuffered(int size) {
  ORN_ASSERT(size >= 0);
  _extraLinesBuffered = size;
}

void IpScanlinePipe::getAllInputs(Vector<IpSourceNode*>& sources) {
  for (RCShdPtr<IpScanlinePipe> const& input : _inputs) input->getAllInputs(sources);
}

void IpScanlinePipe::setDstRegion(GeRectangle<int> const& region) {
  if (region.isEmpty()) return;
  // Several outputs ask for the union of their demands.
  if (!_dstRegion.isEmpty() && _dstRegion.contains(region)) return;
  _dstRegion = _dstRegion.isEmpty() ? region : unite(_dstRegion, region);

  GeRectangle<int> const needed(_dstRegion.x1() - _neighX, _dstRegion.x2() + _neighX, _dstRegion.y1() - _neighY,
                                _dstRegion.y2() + _neighY);
  if (!_srcRegion.isEmpty() && _srcRegion.contains(needed)) return;
  _srcRegion = _srcRegion.isEmpty() ? needed : unite(_srcRegion, needed);

  int inputDelay = 0;
  for (RCShdPtr<IpScanlinePipe> const& input : _inputs) {
    input->setDstRegion(_srcRegion);
    inputDelay = std::max(inputDelay, input->_accumulatedDelay);
  }
  _accumulatedDelay = std::max(_neighY, _outputDelay) + inputDelay;
}

void IpScanlinePipe::resetRegions() {
  _srcRegion = GeRectangle<int>();
  _dstRegion = GeRectangle<int>();
  _currentLine = 0;
  _bufferSize = 0;
  _initialized = false;
  releaseRings();
  for (RCShdPtr<IpScanlinePipe> const& input : _inputs) input->resetRegions();
}

// An input that is ahead of the slowest input of this node by some lines keeps those lines too.
// A node reached by several paths takes the largest of the sizes asked for.
void IpScanlinePipe::computeBufferSizes() {
  int maxDelay = 0;
  for (RCShdPtr<IpScanlinePipe> const& input : _inputs) maxDelay = std::max(maxDelay, input->_accumulatedDelay);
  for (RCShdPtr<IpScanlinePipe> const& input : _inputs) {
    IpScanlinePipe& node = *input;
    int const size =
        std::max(node._bufferSize, maxDelay - node._accumulatedDelay + node._extraLinesBuffered + 1);
    node._bufferSize = std::min(size, node._dstRegion.getHeight());
  }
  for (RCShdPtr<IpScanlinePipe> const& input : _inputs) input->computeBufferSizes();
}

void IpScanlinePipe::checkInitializeProcessing() {
  if (_initialized) return;
  initializeProcessing();
  _initialized = true;
  for (RCShdPtr<IpScanlinePipe> const& input : _inputs) input->checkInitializeProcessing();
}

void IpScanlinePipe::initializeProcessing() {
  _currentLine = _dstRegion.y1() - 1;
  releaseRings();
  if (_bufferSize <= 0) return;
  CoRgbaColorTyped<float> const fill = getFillColor();
  GeInterval<int> const& xs = _dstRegion.getSlab(0);
  if (_outputComps == IxPixelFormat::RGB || _outputComps == IxPixelFormat::RGBA) {
    makeRing(_outputCacheRgba, _bufferSize, xs, fill);
  } else {
    ORN_ASSERT(_outputComps == IxPixelFormat::ALPHA);
    makeRing(_outputCacheAlpha, _bufferSize, xs, fill.a);
  }
}

IxScanline<CoRgbaColorTyped<float>>& IpScanlinePipe::getOutputScanline(int y, CoRgbaColorTyped<float>*) {
  ORN_ASSERT_TEXT(_outputCacheRgba != nullptr, "! _outputCacheRgba.isNull()");
  return ringEntry(_outputCacheRgba, y, _dstRegion.y1(), _bufferSize);
}

IxScanline<float>& IpScanlinePipe::getOutputScanline(int y, float*) {
  ORN_ASSERT_TEXT(_outputCacheAlpha != nullptr, "! _outputCacheAlpha.isNull()");
  return ringEntry(_outputCacheAlpha, y, _dstRegion.y1(), _bufferSize);
}

void IpScanlinePipe::inputIsAvailable() {
  int const next = _currentLine + 1;
  if (next >= _dstRegion.y2()) return;
  // Every input must have produced the lines that line next reads.
  for (RCShdPtr<IpScanlinePipe> const& input : _inputs)
    if (_neighY + next > input->_currentLine) return;
  _currentLine = next;
  processOutputScanline(next);
  // Depth first: the line goes all the way down one output before the next output sees it.
  for (IpScanlinePipe* output : _outputs)
    if (output->_srcRegion.getSlab(1).contains(next)) output->inputIsAvailable();
}

}  // namespace Orn
