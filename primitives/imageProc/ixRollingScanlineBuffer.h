#pragma once
// A sliding window of consecutive rows of a source, for filters that look at a few rows around
// the current one. Each getNext() moves the window down by one row; the line that leaves the
// window is refilled with the row that enters it and moved to the end, so no pixels move.
//
// The work is done by an implementation that a factory makes; the factories are installed when
// the image processing package starts (IxScanlineCacheImpFactories).

#include <orn/base/containers/vector.h>
#include <orn/base/geometryBase/geRectangle.h>
#include <orn/pluginAPI/coRgbaColorTyped.h>
#include <orn/pluginAPI/ixPaddingPolicy.h>
#include <orn/pluginAPI/ixReadGuard.h>
#include <orn/pluginAPI/ixScanline.h>

namespace Orn {

class IxScanlineCacheImpFactories;

// T: float, CoRgbaColorTyped<float>.
template <class T>
class IxRollingScanlineBuffer {
public:
  // Turns each row as it enters the window: out is the window's line, in the row as read.
  class Functor {
  public:
    virtual void operator()(IxScanline<T>& out, IxScanline<T> const& in) = 0;
    virtual ~Functor() = default;
  };

  // Reaches the lines of a window around one of them: Accessor(lines, 1) on a window of three
  // makes [-1], [0] and [1] the rows above, at and below the centre.
  class Accessor {
  public:
    Accessor(IxScanline<T> const* const* lines, int offset) : _lines(lines + offset) {}
    IxScanline<T> const& operator[](int line) const { return *_lines[line]; }
    // The pixel at image position x of a line.
    T const* operator()(int x, int line) const { return _lines[line]->getOrigin() + x; }

  private:
    IxScanline<T> const* const* _lines;
  };

  class Imp {
  public:
    virtual ~Imp() = default;
    // Called once, straight after the factory.
    virtual void initialize() = 0;
    virtual IxScanline<T> const* const* getNext() = 0;
  };
  using ImplementationFactory = Imp* (*)(Vector<IxReadGuard> const& tiles, GeRectangle<int> const& region,
                                         int nbLines, IxPaddingPolicy<T> const& policy, Functor* functor);

  // Windows of nbLines rows over region's x extent, centred on the region's rows from the
  // first one down, read from the tiles with the policy. The functor, which may be null, is
  // not owned.
  IxRollingScanlineBuffer(Vector<IxReadGuard> const& tiles, GeRectangle<int> const& region, int nbLines,
                          IxPaddingPolicy<T> const& policy, Functor* functor);
  ~IxRollingScanlineBuffer();
  IxRollingScanlineBuffer(IxRollingScanlineBuffer const&) = delete;
  IxRollingScanlineBuffer& operator=(IxRollingScanlineBuffer const&) = delete;

  // The lines of the next window, oldest row first: the first call gives the window around the
  // region's first row, each further call the window one row lower.
  IxScanline<T> const* const* getNext() { return _imp->getNext(); }

private:
  friend class IxScanlineCacheImpFactories;
  static void setImplementationFactory(ImplementationFactory factory);

  static ImplementationFactory _implementationFactory;

  Imp* _imp;
};

extern template class IxRollingScanlineBuffer<float>;
extern template class IxRollingScanlineBuffer<CoRgbaColorTyped<float>>;

}  // namespace Orn
