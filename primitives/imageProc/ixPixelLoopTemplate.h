#pragma once
// The one body shared by every typed pixel loop: the switch on component depth, the construction of
// the functor and of the iterators, and the walk. The loop families (ixPixelLoop*.h) switch on the
// component count and call in here; each instantiation is a plain double loop over byte steps with
// the functor inlined, without virtual calls, format tests or bounds tests per pixel.
//
// The walk is driven by the destination, the first iterator: its major count is the number of
// lines, its minor count (less the functor's trimmed pixels) the pixels per line. The other
// iterators follow in lockstep. After every line the request manager is polled; that is the only
// place where a loop gives control away, and an exception from it leaves the earlier lines written.

#include <orn/base/except/assertions.h>
#include <orn/pluginAPI/ixPixel.h>
#include <orn/pluginAPI/ixPixelFormat.h>
#include <orn/pluginAPI/ixReadGuard.h>
#include <orn/pluginAPI/ixWriteGuard.h>
#include <orn/pluginAPI/pxRequestMgr.h>
#include <orn/primitives/imageProc/ixPixelFunctor.h>
#include <orn/primitives/imageProc/ixPixelIter.h>

#include <cstdint>
#include <type_traits>

namespace Orn {
namespace IxPixelLoopTemplate {

// Name reported when the depth switch meets a depth it does not serve.
inline constexpr char const* SOURCE_NAME = "ixPixelLoopTemplate.hack";

// The pixel type a loop sees through a guard: writable through a write guard, const otherwise.
template <class Guard, class Comp, int N>
using PixelOf = std::conditional_t<std::is_same_v<Guard, IxWriteGuard>, IxPixel<Comp, N>, IxPixel<Comp, N> const>;

template <class Functor, class DstPixel, class... SrcPixels>
inline void walkLine(Functor& functor, std::int32_t nbPixels, IxPixelCursor<DstPixel> dst,
                     IxPixelCursor<SrcPixels>... srcs) {
  for (std::int32_t i = 0; i < nbPixels; ++i) {
    functor(*dst, *srcs...);
    dst.next();
    (srcs.next(), ...);
  }
}

// A functor may add a run form, runContiguous(n, dst, srcs...), which the walk calls instead of the
// per-pixel operator for lines whose pixels follow each other in memory in every tile. It must give
// the same pixels as n calls of the operator in increasing order.
template <class Functor, class DstPixel, class... SrcPixels>
concept IxHasContiguousRun = requires(Functor& functor, std::int32_t n, DstPixel* dst, SrcPixels*... srcs) {
  functor.runContiguous(n, dst, srcs...);
};

// A line of contiguous pixels: plain arrays, which the compiler can vectorise.
template <class Functor, class DstPixel, class... SrcPixels>
inline void walkContiguousLine(Functor& functor, std::int32_t nbPixels, DstPixel* dst, SrcPixels*... srcs) {
  if constexpr (IxHasContiguousRun<Functor, DstPixel, SrcPixels...>) {
    functor.runContiguous(nbPixels, dst, srcs...);
  } else {
    for (std::int32_t i = 0; i < nbPixels; ++i) functor(dst[i], srcs[i]...);
  }
}

// Runs the functor over the destination's walk, with the sources in lockstep.
template <class Functor, class DstPixel, class... SrcPixels>
inline void walk(Functor& functor, IxPixelIter<DstPixel> dst, IxPixelIter<SrcPixels>... srcs) {
  std::int32_t const nbLines = dst.getMajorCount();
  if (nbLines < 1) return;
  std::int32_t const nbPixels = dst.getMinorCount() - functor.getNbTrimmed();
  // Steps are fixed for the whole walk, so the contiguity test is made once.
  bool const contiguous = dst.getMinorStep() == std::int32_t(sizeof(DstPixel)) &&
                          ((srcs.getMinorStep() == std::int32_t(sizeof(SrcPixels))) && ...);
  PxRequestMgr& requests = PxRequestMgr::getInstance();
  for (std::int32_t line = 0; line < nbLines; ++line) {
    if (contiguous)
      walkContiguousLine(functor, nbPixels, reinterpret_cast<DstPixel*>(dst.getLineAddress()),
                         reinterpret_cast<SrcPixels*>(srcs.getLineAddress())...);
    else
      walkLine(functor, nbPixels, dst.getLineCursor(), srcs.getLineCursor()...);
    requests.poll();
    dst.nextLine();
    (srcs.nextLine(), ...);
  }
}

// Calls visitor(std::type_identity<Comp>()) with the component type of the depth.
template <class Visitor>
inline void switchDepth(IxPixelFormat const& format, Visitor&& visitor) {
  switch (int(format.getDepth())) {
    case IxPixelFormat::UINT8: visitor(std::type_identity<IxPixelCompUInt8>()); return;
    case IxPixelFormat::FLOAT16: visitor(std::type_identity<IxPixelCompFloat16>()); return;
    case IxPixelFormat::FLOAT32: visitor(std::type_identity<IxPixelCompFloat32>()); return;
    default: Assertions::throwProgramAborted(SOURCE_NAME, __LINE__, nullptr);
  }
}

// One tile, read and written (write guard) or only read (read guard): F<P, P> gets each pixel as
// both its destination and its source.
template <template <class, class> class F, int N, class Guard, class Args>
inline void runOneTile(Guard const& tile, GeRectangle<int> const* region, IxPixelIterBase::Order order,
                       Args const& args) {
  switchDepth(tile.getTile().getPixelFormat(), [&]<class Comp>(std::type_identity<Comp>) {
    using Pixel = PixelOf<Guard, Comp, N>;
    F<Pixel, Pixel> functor(args);
    IxPixelIter<Pixel> const iter(tile, region, order);
    walk(functor, iter, iter);
  });
}

// Destination and source of the destination's depth: F<IxPixel<C, DstN>, IxPixel<C, SrcN> const>.
template <template <class, class> class F, int DstN, int SrcN, class DstGuard, class Args>
inline void runTwoTiles(DstGuard const& dst, GeRectangle<int> const* dstRegion, IxPixelIterBase::Order dstOrder,
                        IxReadGuard const& src, GeRectangle<int> const* srcRegion, IxPixelIterBase::Order srcOrder,
                        Args const& args) {
  switchDepth(dst.getTile().getPixelFormat(), [&]<class Comp>(std::type_identity<Comp>) {
    using DstPixel = PixelOf<DstGuard, Comp, DstN>;
    using SrcPixel = IxPixel<Comp, SrcN> const;
    F<DstPixel, SrcPixel> functor(args);
    IxPixelIter<DstPixel> const dstIter(dst, dstRegion, dstOrder);
    IxPixelIter<SrcPixel> const srcIter(src, srcRegion, srcOrder);
    walk(functor, dstIter, srcIter);
  });
}

// Destination and source of N components each, switched on both depths.
template <template <class, class> class F, int N, class Args>
inline void runTwoTilesSrcDepth(IxWriteGuard const& dst, GeRectangle<int> const* dstRegion,
                                IxPixelIterBase::Order dstOrder, IxReadGuard const& src,
                                GeRectangle<int> const* srcRegion, IxPixelIterBase::Order srcOrder, Args const& args) {
  switchDepth(dst.getTile().getPixelFormat(), [&]<class DstComp>(std::type_identity<DstComp>) {
    switchDepth(src.getTile().getPixelFormat(), [&]<class SrcComp>(std::type_identity<SrcComp>) {
      using DstPixel = IxPixel<DstComp, N>;
      using SrcPixel = IxPixel<SrcComp, N> const;
      F<DstPixel, SrcPixel> functor(args);
      IxPixelIter<DstPixel> const dstIter(dst, dstRegion, dstOrder);
      IxPixelIter<SrcPixel> const srcIter(src, srcRegion, srcOrder);
      walk(functor, dstIter, srcIter);
    });
  });
}

// Destination and two sources of the destination's format.
template <template <class, class, class> class F, int N, class Args>
inline void runThreeTiles(IxWriteGuard const& dst, GeRectangle<int> const* dstRegion, IxPixelIterBase::Order dstOrder,
                          IxReadGuard const& src0, GeRectangle<int> const* src0Region, IxPixelIterBase::Order src0Order,
                          IxReadGuard const& src1, GeRectangle<int> const* src1Region, IxPixelIterBase::Order src1Order,
                          Args const& args) {
  switchDepth(dst.getTile().getPixelFormat(), [&]<class Comp>(std::type_identity<Comp>) {
    using DstPixel = IxPixel<Comp, N>;
    using SrcPixel = IxPixel<Comp, N> const;
    F<DstPixel, SrcPixel, SrcPixel> functor(args);
    IxPixelIter<DstPixel> const dstIter(dst, dstRegion, dstOrder);
    IxPixelIter<SrcPixel> const src0Iter(src0, src0Region, src0Order);
    IxPixelIter<SrcPixel> const src1Iter(src1, src1Region, src1Order);
    walk(functor, dstIter, src0Iter, src1Iter);
  });
}

}  // namespace IxPixelLoopTemplate
}  // namespace Orn
