#pragma once
// The implementation behind IxScanlineCache<T>: two tiles and a transposition in batches of
// columns.
//
// The horizontal buffer covers the destination's columns and the source's rows; the vertical
// buffer is the destination region. Column x (x in the destination's x extent, left to right)
// is handed out as a line over the source's rows, and its result line covers the
// destination's rows. Columns are copied out of the horizontal buffer BATCH at a time, which
// reads each row of the buffer in one short contiguous piece, and their results are stored to
// the vertical buffer the same way when the batch is done (or at flush).

#include <orn/pluginAPI/ixTile.h>
#include <orn/primitives/imageProc/ixScanlineCache.h>

#include <memory>
#include <optional>
#include <vector>

namespace Orn {

template <class T>
class IxScanlineCacheImp : public IxScanlineCache<T>::Imp {
public:
  using Base = typename IxScanlineCache<T>::Imp;
  // Columns transposed together: 64 bytes of each row of float pixels.
  static constexpr int BATCH = 16;

  IxScanlineCacheImp() = default;

  void initialize(GeRectangle<int> const& dstRegion, GeRectangle<int> const& srcRegion) override;
  IxWriteGuardProxy const& getHorizontalBufferProxy() const override { return _horizontal; }
  IxWriteGuard getVerticalBuffer() const override { return IxWriteGuard(_vertical); }
  bool hasNext() const override { return _batchStart + _batchNext < _dstRegion.x2(); }
  void getNext(IxScanline<T>*& first, IxScanline<T>*& second) override;
  void flush() override { storeBatch(); }

  // The factory installed for IxScanlineCache<T>.
  static Base* create(GeRectangle<int> const& dstRegion, GeRectangle<int> const& srcRegion);

private:
  // Stands for write access to a tile, acquired on first use.
  class TileProxy : public IxWriteGuardProxy {
  public:
    void setTile(IxTile const& tile) {
      _tile = tile;
      _guard.reset();
    }
    IxWriteGuard const& getGuard() const override {
      if (!_guard) _guard.emplace(_tile);
      return *_guard;
    }

  private:
    IxTile _tile;
    mutable std::optional<IxWriteGuard> _guard;
  };

  // Copies columns [start, start + batch size) of the horizontal buffer into the first lines.
  void loadBatch(int start);
  // Stores the results of the columns handed out and not yet stored.
  void storeBatch();

  GeRectangle<int> _dstRegion{0, 0, 0, 0};
  GeRectangle<int> _srcRegion{0, 0, 0, 0};
  TileProxy _horizontal;
  IxTile _vertical;
  std::vector<std::unique_ptr<IxScanline<T>>> _firsts;
  std::vector<std::unique_ptr<IxScanline<T>>> _seconds;
  int _batchStart = 0;  // column of the first line of the batch
  int _batchSize = 0;   // columns in the batch
  int _batchNext = 0;   // lines of the batch handed out
  int _nbStored = 0;    // lines of the batch whose results are stored
};

// Installs the factories of IxScanlineCache<T> (T = float, CoRgbaColorTyped<float>,
// std::complex<float>) and of IxRollingScanlineBuffer<T> (T = float, CoRgbaColorTyped<float>).
// Called by the image processing package at start-up beside the scanline factories; calling it
// again changes nothing.
class IxScanlineCacheImpFactories {
public:
  static void install();
};

extern template class IxScanlineCacheImp<float>;
extern template class IxScanlineCacheImp<CoRgbaColorTyped<float>>;
extern template class IxScanlineCacheImp<std::complex<float>>;

}  // namespace Orn
