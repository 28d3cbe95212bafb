#pragma once
// The implementation behind IxRollingScanlineBuffer<T>: nbLines scanlines over the region's x
// extent, read lazily: the first getNext() reads the whole window around the region's first
// row, each further one reads just the row that enters.
//
// Rows are read with the policy in x. In y a NOOP policy (which promises nothing about rows) is
// read as PADDING_REPEAT_EDGE, so that the rows of a window that reach above or below the tiles
// repeat the nearest row of the tiles instead of reading outside them; the other types apply
// as they are.

#include <orn/pluginAPI/ixTilePtrVectorFetcher.h>
#include <orn/primitives/imageProc/ixRollingScanlineBuffer.h>

#include <memory>
#include <vector>

namespace Orn {

template <class T>
class IxRollingScanlineBufferImp : public IxRollingScanlineBuffer<T>::Imp {
public:
  using Base = typename IxRollingScanlineBuffer<T>::Imp;
  using Functor = typename IxRollingScanlineBuffer<T>::Functor;

  IxRollingScanlineBufferImp(Vector<IxReadGuard> const& tiles, GeRectangle<int> const& region, int nbLines,
                             IxPaddingPolicy<T> const& policy, Functor* functor);

  void initialize() override;
  IxScanline<T> const* const* getNext() override;

  // The factory installed for IxRollingScanlineBuffer<T>.
  static Base* create(Vector<IxReadGuard> const& tiles, GeRectangle<int> const& region, int nbLines,
                      IxPaddingPolicy<T> const& policy, Functor* functor);

private:
  // Reads row y into line, through the functor if there is one.
  void fill(IxScanline<T>& line, int y);

  Vector<IxReadGuard> _tiles;
  Vector<IxReadGuard const*> _tilePointers;
  std::unique_ptr<IxTilePtrVectorFetcher> _fetcher;
  GeRectangle<int> _region;
  int _nbLines;
  IxPaddingPolicy<T> _policyX;
  IxPaddingPolicy<T> _policyY;
  Functor* _functor;
  std::vector<std::unique_ptr<IxScanline<T>>> _lines;  // oldest row first
  std::unique_ptr<IxScanline<T>> _input;               // the row as read, when there is a functor
  std::vector<IxScanline<T> const*> _window;
  int _firstRow;  // row of the window's first line
  bool _started;
};

extern template class IxRollingScanlineBufferImp<float>;
extern template class IxRollingScanlineBufferImp<CoRgbaColorTyped<float>>;

}  // namespace Orn
