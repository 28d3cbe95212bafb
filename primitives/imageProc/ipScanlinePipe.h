#pragma once
// A node of a scanline pipe: a graph of filters that streams an image row by row.
//
// A graph is built from IpSourceNode leaves, filter nodes and one IpDestNode root; each node keeps
// its upstream nodes alive (_inputs) and knows its downstream nodes by plain pointers (outputs).
// IpDestNode::setDstRegion propagates the regions up the graph, IpDestNode::process sizes the
// rings, initialises the nodes and pushes the sources' lines through every node that has all the
// lines it needs, depth first.
//
// Each node produces its lines into a ring of scanlines: float lines when its output comps are
// ALPHA, RGBA float lines otherwise. A node whose output at (x, y) reads its inputs around (x, y)
// declares the radii neighX and neighY; a node that lags behind its inputs declares an output delay.

#include <orn/base/containers/vector.h>
#include <orn/base/geometryBase/geRectangle.h>
#include <orn/base/rc/lkCounter.h>
#include <orn/base/rc/rcBase.h>
#include <orn/base/rc/rcShdPtr.h>
#include <orn/pluginAPI/coRgbaColorTyped.h>
#include <orn/pluginAPI/ixPixelFormat.h>
#include <orn/pluginAPI/ixScanline.h>
#include <orn/pluginAPI/ixScanlineTypes.h>

#include <memory>

namespace Orn {

class IpSourceNode;

class IpScanlinePipe : public RCBase<LkCounter<int>> {
public:
  // A node without inputs.
  IpScanlinePipe(int neighX, int neighY);
  // A node reading one or two upstream nodes; it registers itself as their output.
  IpScanlinePipe(RCShdPtr<IpScanlinePipe> const& input, int neighX, int neighY);
  IpScanlinePipe(RCShdPtr<IpScanlinePipe> const& input1, RCShdPtr<IpScanlinePipe> const& input2, int neighX,
                 int neighY);
  ~IpScanlinePipe() override;

  IpScanlinePipe(IpScanlinePipe const&) = delete;
  IpScanlinePipe& operator=(IpScanlinePipe const&) = delete;

  // Appends the sources reachable from this node, each once, in depth-first order of the inputs.
  virtual void getAllInputs(Vector<IpSourceNode*>& sources);
  // Adds region to what this node must produce and propagates the grown demand to the inputs.
  virtual void setDstRegion(GeRectangle<int> const& region);
  // Called when an input has produced a line: produces the next line here if every input has
  // the lines it needs, then tells the outputs.
  virtual void inputIsAvailable();
  // The colour of the image outside its tiles, as it leaves this node.
  virtual CoRgbaColorTyped<float> getFillColor() const = 0;
  // Line y of the ring; the pointer argument only selects the element type and is passed as null.
  // y must lie in this node's region and still be in the ring, which isn't checked.
  virtual IxScanline<CoRgbaColorTyped<float>>& getOutputScanline(int y, CoRgbaColorTyped<float>*);
  virtual IxScanline<float>& getOutputScanline(int y, float*);
  // Called once per run before the first line: sets the current line and makes the ring.
  // Overrides call this first, then build their own working memory.
  virtual void initializeProcessing();
  // Produces line y into the ring (or, in the destination, into the tile).
  virtual void processOutputScanline(int y) = 0;

  // All lines of pipes pad by repeating the edge.
  static IxScanlineTypes::PaddingType getPaddingType() { return IxScanlineTypes::PADDING_REPEAT_EDGE; }

  IxPixelFormat::Comps getOutputComps() const { return _outputComps; }
  void setOutputComps(IxPixelFormat::Comps comps) { _outputComps = comps; }
  int getNeighX() const { return _neighX; }
  int getNeighY() const { return _neighY; }
  // Lines by which this node's output lags behind the sources.
  int getAccumulatedDelay() const { return _accumulatedDelay; }
  int getOutputDelay() const { return _outputDelay; }
  void setOutputDelay(int size);
  // Lines kept in the ring beyond what the delays ask for (for an output reading several lines).
  int getExtraLinesBuffered() const { return _extraLinesBuffered; }
  void setExtraLinesBuffered(int size);
  int getBufferSize() const { return _bufferSize; }
  // The last line produced here.
  int getCurrentLine() const { return _currentLine; }
  GeRectangle<int> const& getSrcRegion() const { return _srcRegion; }
  GeRectangle<int> const& getDstRegion() const { return _dstRegion; }
  Vector<RCShdPtr<IpScanlinePipe>> const& getInputs() const { return _inputs; }
  Vector<IpScanlinePipe*> const& getOutputs() const { return _outputs; }

protected:
  // Clears regions, current line, buffer size, ring and initialised flag here and upstream.
  void resetRegions();
  // Sizes the rings of the inputs from their delays and extra lines, then recurses upstream.
  void computeBufferSizes();
  // Initialises this node unless it already is, then its inputs.
  void checkInitializeProcessing();

  IxPixelFormat::Comps _outputComps;
  int _neighX;
  int _neighY;
  int _accumulatedDelay;
  int _outputDelay;
  GeRectangle<int> _srcRegion;
  GeRectangle<int> _dstRegion;
  Vector<RCShdPtr<IpScanlinePipe>> _inputs;
  Vector<IpScanlinePipe*> _outputs;
  bool _initialized;
  std::unique_ptr<std::unique_ptr<IxScanline<float>>[]> _outputCacheAlpha;
  std::unique_ptr<std::unique_ptr<IxScanline<CoRgbaColorTyped<float>>>[]> _outputCacheRgba;
  int _extraLinesBuffered;
  int _bufferSize;
  int _currentLine;

private:
  // The destination drives the run over the whole graph.
  friend class IpDestNode;

  void addOutput(IpScanlinePipe* output);
  // The state of a node just made: no regions, no ring, no delays, no extra lines.
  void initialize();
  void releaseRings();
};

}  // namespace Orn
