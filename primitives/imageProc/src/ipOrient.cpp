#include <orn/base/except/assertions.h>
#include <orn/primitives/imageProc/ipOrient.h>
#include <orn/primitives/imageProc/ixPixelLoopDstcompDstdepth.h>

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace Orn {

namespace {

class IpOrientFunctorArgs : public IxPixelFunctorArgs {};

template <class Dst, class Src>
class IpOrientFunctor : public IxPixelFunctor<Dst, Src> {
 public:
  explicit IpOrientFunctor(IpOrientFunctorArgs const&) {}

  void operator()(Dst& dst, Src& src) const { dst = src; }

  void runContiguous(std::int32_t nbPixels, Dst* dst, Src* src) const {
    std::memcpy(static_cast<void*>(dst), static_cast<void const*>(src), std::size_t(nbPixels) * sizeof(Dst));
  }
};

// A transposing walk goes down the destination's columns while it reads the source's rows, so
// line after line would touch a new destination cache line per pixel. The lines are taken in
// bands instead: within a band, blocks of BLOCK pixels of every line are copied before moving
// on, and the destination lines of a band, being neighbouring columns, share their cache lines.
constexpr std::int32_t BAND = 16;
constexpr std::int32_t BLOCK = 64;

template <class Pixel>
void walkTransposed(IxPixelIter<Pixel> dst, IxPixelIter<Pixel const> src) {
  std::int32_t const nbLines = dst.getMajorCount();
  std::int32_t const nbPixels = dst.getMinorCount();
  PxRequestMgr& requests = PxRequestMgr::getInstance();
  for (std::int32_t band = 0; band < nbLines; band += BAND) {
    std::int32_t const nbBandLines = std::min(BAND, nbLines - band);
    for (std::int32_t first = 0; first < nbPixels; first += BLOCK) {
      std::int32_t const nbBlockPixels = std::min(BLOCK, nbPixels - first);
      unsigned char* dstLine = ixAdvanceAddress(dst.getLineAddress(), std::int64_t(first) * dst.getMinorStep());
      unsigned char const* srcLine = ixAdvanceAddress(src.getLineAddress(), std::int64_t(first) * src.getMinorStep());
      for (std::int32_t line = 0; line < nbBandLines; ++line) {
        unsigned char* d = dstLine;
        unsigned char const* s = srcLine;
        for (std::int32_t i = 0; i < nbBlockPixels; ++i) {
          *reinterpret_cast<Pixel*>(d) = *reinterpret_cast<Pixel const*>(s);
          d = ixAdvanceAddress(d, dst.getMinorStep());
          s = ixAdvanceAddress(s, src.getMinorStep());
        }
        dstLine = ixAdvanceAddress(dstLine, dst.getMajorStep());
        srcLine = ixAdvanceAddress(srcLine, src.getMajorStep());
      }
    }
    // Every line of the band is complete now: the poll that each line owes.
    for (std::int32_t line = 0; line < nbBandLines; ++line) {
      requests.poll();
      dst.nextLine();
      src.nextLine();
    }
  }
}

template <int N>
void runTransposed(IxWriteGuard const& dst, IxPixelIterBase::Order dstOrder, IxReadGuard const& src) {
  IxPixelLoopTemplate::switchDepth(dst.getTile().getPixelFormat(), [&]<class Comp>(std::type_identity<Comp>) {
    using Pixel = IxPixel<Comp, N>;
    walkTransposed<Pixel>(IxPixelIter<Pixel>(dst, nullptr, dstOrder),
                          IxPixelIter<Pixel const>(src, nullptr, IxPixelIterBase::ORDER_H_XPOS_YPOS));
  });
}

// The destination order of each flip, without and with transpose.
IxPixelIterBase::Order orderOf(bool transpose, IpFlip flip) {
  using B = IxPixelIterBase;
  switch (flip) {
    case IP_FLIP_Y: return transpose ? B::ORDER_V_XPOS_YPOS : B::ORDER_H_XPOS_YNEG;
    case IP_FLIP_X: return transpose ? B::ORDER_V_XNEG_YNEG : B::ORDER_H_XNEG_YPOS;
    case IP_FLIP_XY: return transpose ? B::ORDER_V_XNEG_YPOS : B::ORDER_H_XNEG_YNEG;
    case IP_FLIP_NONE: return transpose ? B::ORDER_V_XPOS_YNEG : B::ORDER_H_XPOS_YPOS;
  }
  ORN_ABORT(nullptr);
}

}  // namespace

void ipOrient(IxWriteGuard const& dst, IxReadGuard const& src, bool transpose, IpFlip flip) {
  ORN_ASSERT(dst.getTile().getPixelFormat() == src.getTile().getPixelFormat());
  GeRectangle<int> const& d = dst.getPixelRegion();
  GeRectangle<int> const& s = src.getPixelRegion();
  if (transpose)
    ORN_ASSERT(d.getWidth() == s.getHeight() && d.getHeight() == s.getWidth());
  else
    ORN_ASSERT(d.getWidth() == s.getWidth() && d.getHeight() == s.getHeight());
  IxPixelIterBase::Order const dstOrder = orderOf(transpose, flip);
  if (!transpose) {
    IpOrientFunctorArgs const args;
    ixPixelLoopDstcompDstdepth<IpOrientFunctor>(dst, nullptr, dstOrder, src, nullptr,
                                                IxPixelIterBase::ORDER_H_XPOS_YPOS, args);
    return;
  }
  switch (int(dst.getTile().getPixelFormat().getComps())) {
    case 1: runTransposed<1>(dst, dstOrder, src); return;
    case 3: runTransposed<3>(dst, dstOrder, src); return;
    case 4: runTransposed<4>(dst, dstOrder, src); return;
    default: ORN_ABORT(nullptr);
  }
}

void ipFlip(IxWriteGuard const& dst, IxReadGuard const& src, IpFlip flip) { ipOrient(dst, src, false, flip); }

void ipRotate(IxWriteGuard const& dst, IxReadGuard const& src, IpRotate rotate) {
  switch (rotate) {
    case IP_ROTATE_0: ipOrient(dst, src, false, IP_FLIP_NONE); return;
    case IP_ROTATE_90: ipOrient(dst, src, true, IP_FLIP_NONE); return;
    case IP_ROTATE_180: ipOrient(dst, src, false, IP_FLIP_XY); return;
    case IP_ROTATE_270: ipOrient(dst, src, true, IP_FLIP_XY); return;
  }
  ORN_ABORT(nullptr);
}

void ipRotateFlip(IxWriteGuard const& dst, IxReadGuard const& src, IpRotate rotate, IpFlip flip) {
  switch (rotate) {
    case IP_ROTATE_0:
    case IP_ROTATE_90: ipOrient(dst, src, rotate == IP_ROTATE_90, flip); return;
    case IP_ROTATE_180:
    case IP_ROTATE_270: {
      // A half turn more is the other flip of each axis pair: 0 and 1 swap, 2 and 3 swap.
      static IpFlip const swapped[] = {IP_FLIP_X, IP_FLIP_Y, IP_FLIP_NONE, IP_FLIP_XY};
      if (flip < IP_FLIP_Y || flip > IP_FLIP_NONE) ORN_ABORT(nullptr);
      ipOrient(dst, src, rotate == IP_ROTATE_270, swapped[flip]);
      return;
    }
  }
  ORN_ABORT(nullptr);
}

}  // namespace Orn
