#pragma once
// Transposition between the two passes of a separable filter: the filter writes a region in
// rows, then walks it in columns, then reads the result in rows again.
//
// Use: write each source row y into row y of getHorizontalBuffer() (for instance through a
// scanline view on it); then, while hasNext(), getNext(first, second) gives one column as two
// scanlines whose index is y: read the column from first, write the result to second. After the
// last column call flush(); row y of getVerticalBuffer() then holds result row y.
//
// The work is done by an implementation that a factory makes; the factories are installed when
// the image processing package starts (IxScanlineCacheImpFactories).

#include <orn/base/geometryBase/geRectangle.h>
#include <orn/pluginAPI/coRgbaColorTyped.h>
#include <orn/pluginAPI/ixGuardProxy.h>
#include <orn/pluginAPI/ixScanline.h>
#include <orn/pluginAPI/ixWriteGuard.h>

#include <complex>

namespace Orn {

class IxScanlineCacheImpFactories;

// T: float, CoRgbaColorTyped<float>, std::complex<float>.
template <class T>
class IxScanlineCache {
public:
  class Imp {
  public:
    // Called once, straight after the factory, with the cache's two regions.
    virtual void initialize(GeRectangle<int> const& dstRegion, GeRectangle<int> const& srcRegion) = 0;
    virtual ~Imp() = default;
    virtual IxWriteGuardProxy const& getHorizontalBufferProxy() const = 0;
    virtual IxWriteGuard getVerticalBuffer() const = 0;
    virtual bool hasNext() const = 0;
    virtual void getNext(IxScanline<T>*& first, IxScanline<T>*& second) = 0;
    virtual void flush() = 0;
  };
  using ImplementationFactory = Imp* (*)(GeRectangle<int> const& dstRegion, GeRectangle<int> const& srcRegion);

  IxScanlineCache(GeRectangle<int> dstRegion, GeRectangle<int> srcRegion);
  ~IxScanlineCache();
  IxScanlineCache(IxScanlineCache const&) = delete;
  IxScanlineCache& operator=(IxScanlineCache const&) = delete;

  IxWriteGuardProxy const& getHorizontalBufferProxy() const { return _imp->getHorizontalBufferProxy(); }
  // The rows that the first pass writes.
  IxWriteGuard getHorizontalBuffer() const { return _imp->getHorizontalBufferProxy().getGuard(); }
  // The rows of the result, complete after flush().
  IxWriteGuard getVerticalBuffer() const { return _imp->getVerticalBuffer(); }
  bool hasNext() const { return _imp->hasNext(); }
  // The next column: first holds it as written to the horizontal buffer, second takes its
  // result. Both stay valid until the next call of getNext or flush.
  void getNext(IxScanline<T>*& first, IxScanline<T>*& second) { _imp->getNext(first, second); }
  // Stores the results that the last columns left pending.
  void flush() { _imp->flush(); }

private:
  friend class IxScanlineCacheImpFactories;
  static void setImplementationFactory(ImplementationFactory factory);

  static ImplementationFactory _implementationFactory;

  Imp* _imp;
};

extern template class IxScanlineCache<float>;
extern template class IxScanlineCache<CoRgbaColorTyped<float>>;
extern template class IxScanlineCache<std::complex<float>>;

}  // namespace Orn
