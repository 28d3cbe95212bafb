#include <orn/base/except/assertions.h>
#include <orn/primitives/imageProc/ipOrient.h>
#include <orn/primitives/imageProc/ixPixelLoopDstcompDstdepth.h>

#include <emmintrin.h>

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
// Sixteen four-byte pixels fill a cache line: a band of sixteen lines writes whole destination
// lines and reads sixteen source rows as streams. Taller bands measured slower, because their
// destination rows, a power of two apart, compete for the same cache sets.
constexpr std::int32_t BAND = 16;
constexpr std::int32_t BLOCK = 1024;

// Copies one block: nbLines lines of nbPixels pixels, from line starts srcLine and dstLine.
template <class Pixel>
void copyBlock(unsigned char* dstLine, std::int32_t dstMajor, std::int32_t dstMinor, unsigned char const* srcLine,
               std::int32_t srcMajor, std::int32_t srcMinor, std::int32_t nbLines, std::int32_t nbPixels) {
  for (std::int32_t line = 0; line < nbLines; ++line) {
    unsigned char* d = dstLine;
    unsigned char const* s = srcLine;
    for (std::int32_t i = 0; i < nbPixels; ++i) {
      *reinterpret_cast<Pixel*>(d) = *reinterpret_cast<Pixel const*>(s);
      d = ixAdvanceAddress(d, dstMinor);
      s = ixAdvanceAddress(s, srcMinor);
    }
    dstLine = ixAdvanceAddress(dstLine, dstMajor);
    srcLine = ixAdvanceAddress(srcLine, srcMajor);
  }
}

// The four columns of the 4x4 square of four-byte pixels at s, rows srcMajor apart; each column
// reversed when the destination lines run backwards.
inline void transposeSquare(unsigned char const* s, std::int32_t srcMajor, bool forward, __m128i (&columns)[4]) {
  __m128i const r0 = _mm_loadu_si128(reinterpret_cast<__m128i const*>(s));
  __m128i const r1 = _mm_loadu_si128(reinterpret_cast<__m128i const*>(ixAdvanceAddress(s, srcMajor)));
  __m128i const r2 = _mm_loadu_si128(reinterpret_cast<__m128i const*>(ixAdvanceAddress(s, 2 * std::int64_t(srcMajor))));
  __m128i const r3 = _mm_loadu_si128(reinterpret_cast<__m128i const*>(ixAdvanceAddress(s, 3 * std::int64_t(srcMajor))));
  __m128i const t0 = _mm_unpacklo_epi32(r0, r1), t1 = _mm_unpacklo_epi32(r2, r3);
  __m128i const t2 = _mm_unpackhi_epi32(r0, r1), t3 = _mm_unpackhi_epi32(r2, r3);
  columns[0] = _mm_unpacklo_epi64(t0, t1);
  columns[1] = _mm_unpackhi_epi64(t0, t1);
  columns[2] = _mm_unpacklo_epi64(t2, t3);
  columns[3] = _mm_unpackhi_epi64(t2, t3);
  if (!forward)
    for (__m128i& c : columns) c = _mm_shuffle_epi32(c, _MM_SHUFFLE(0, 1, 2, 3));
}

// Four-byte pixels of a source walked along its rows (minor step 4) and a destination whose
// lines are neighbouring pixels (major step 4 or -4): 4x4 squares are transposed in registers,
// so that both sides move 16 bytes at a time. Sixteen lines go together where there are enough:
// the sixteen destination pixels of a source column then make one 64-byte run of a destination
// row, written at once, so that a destination cache line is filled in one go rather than a
// quarter at a time while the other rows of the block compete for the same cache set. The rest
// of the block goes pixel by pixel.
void copyBlock4(unsigned char* dstLine, std::int32_t dstMajor, std::int32_t dstMinor, unsigned char const* srcLine,
                std::int32_t srcMajor, std::int32_t nbLines, std::int32_t nbPixels) {
  using Word = std::uint32_t;
  std::int32_t const nbLines16 = nbLines & ~15, nbLines4 = nbLines & ~3, nbPixels4 = nbPixels & ~3;
  bool const forward = dstMajor > 0;
  for (std::int32_t line = 0; line < nbLines16; line += 16) {
    unsigned char const* s = ixAdvanceAddress(srcLine, std::int64_t(line) * srcMajor);
    // The lowest of the sixteen destination addresses of each row of the run.
    unsigned char* d = ixAdvanceAddress(dstLine, std::int64_t(forward ? line : line + 15) * dstMajor);
    for (std::int32_t i = 0; i < nbPixels4; i += 4) {
      __m128i columns[4][4];
      for (int g = 0; g < 4; ++g)
        transposeSquare(ixAdvanceAddress(s, std::int64_t(4 * g) * srcMajor) + 4 * i, srcMajor, forward, columns[g]);
      for (int k = 0; k < 4; ++k) {
        auto* out = reinterpret_cast<__m128i*>(ixAdvanceAddress(d, std::int64_t(i + k) * dstMinor));
        for (int g = 0; g < 4; ++g) _mm_storeu_si128(out + g, columns[forward ? g : 3 - g][k]);
      }
    }
    copyBlock<Word>(ixAdvanceAddress(dstLine, std::int64_t(line) * dstMajor + std::int64_t(nbPixels4) * dstMinor),
                    dstMajor, dstMinor, s + 4 * nbPixels4, srcMajor, 4, 16, nbPixels - nbPixels4);
  }
  for (std::int32_t line = nbLines16; line < nbLines4; line += 4) {
    unsigned char const* s = ixAdvanceAddress(srcLine, std::int64_t(line) * srcMajor);
    unsigned char* d = ixAdvanceAddress(dstLine, std::int64_t(forward ? line : line + 3) * dstMajor);
    for (std::int32_t i = 0; i < nbPixels4; i += 4) {
      __m128i columns[4];
      transposeSquare(s + 4 * i, srcMajor, forward, columns);
      for (int k = 0; k < 4; ++k)
        _mm_storeu_si128(reinterpret_cast<__m128i*>(ixAdvanceAddress(d, std::int64_t(i + k) * dstMinor)), columns[k]);
    }
    copyBlock<Word>(ixAdvanceAddress(dstLine, std::int64_t(line) * dstMajor + std::int64_t(nbPixels4) * dstMinor),
                    dstMajor, dstMinor, s + 4 * nbPixels4, srcMajor, 4, 4, nbPixels - nbPixels4);
  }
  copyBlock<Word>(ixAdvanceAddress(dstLine, std::int64_t(nbLines4) * dstMajor), dstMajor, dstMinor,
                  ixAdvanceAddress(srcLine, std::int64_t(nbLines4) * srcMajor), srcMajor, 4, nbLines - nbLines4,
                  nbPixels);
}

template <class Pixel>
void walkTransposed(IxPixelIter<Pixel> dst, IxPixelIter<Pixel const> src) {
  std::int32_t const nbLines = dst.getMajorCount();
  std::int32_t const nbPixels = dst.getMinorCount();
  bool const squares = sizeof(Pixel) == 4 && src.getMinorStep() == 4 &&
                       (dst.getMajorStep() == 4 || dst.getMajorStep() == -4);
  PxRequestMgr& requests = PxRequestMgr::getInstance();
  for (std::int32_t band = 0; band < nbLines; band += BAND) {
    std::int32_t const nbBandLines = std::min(BAND, nbLines - band);
    for (std::int32_t first = 0; first < nbPixels; first += BLOCK) {
      std::int32_t const nbBlockPixels = std::min(BLOCK, nbPixels - first);
      unsigned char* dstLine = ixAdvanceAddress(dst.getLineAddress(), std::int64_t(first) * dst.getMinorStep());
      unsigned char const* srcLine = ixAdvanceAddress(src.getLineAddress(), std::int64_t(first) * src.getMinorStep());
      if (squares)
        copyBlock4(dstLine, dst.getMajorStep(), dst.getMinorStep(), srcLine, src.getMajorStep(), nbBandLines,
                   nbBlockPixels);
      else
        copyBlock<Pixel>(dstLine, dst.getMajorStep(), dst.getMinorStep(), srcLine, src.getMajorStep(),
                         src.getMinorStep(), nbBandLines, nbBlockPixels);
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
