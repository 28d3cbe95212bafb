// Conversion of runs of pixels to 8-bit BGRA for display. Every depth goes through the 8-bit
// block arithmetic of the row converters, four pixels to a 16-byte store.

#include "ixConvertBGRA8.h"

#include "ixConvertImp.h"

#include <cstring>
#include <sstream>
#include <vector>

namespace Orn {
namespace IxConvertBGRA8 {

namespace {

using namespace IxConvertImp;

// The gain of colour and alpha: 1.0, applied with the factor 255 of the float paths and as
// 1.0 in 8.8 fixed point (256) in the 8-bit path.
constexpr float GAIN = 1.f;
constexpr int FIXED_GAIN = 256;

// min(v * 255 * gain, 255), rounded by the current mode (to nearest even), as 32-bit lanes.
inline __m128i toInt32x4(__m128 v) {
  return _mm_cvtps_epi32(_mm_min_ps(_mm_mul_ps(v, splat(255.f * GAIN)), splat(255.f)));
}

// Four colours already in B, G, R, A lane order to 16 bytes, saturated to 0..255.
inline __m128i toBgra8x4(__m128 p0, __m128 p1, __m128 p2, __m128 p3) {
  return packToUInt8x16(toInt32x4(p0), toInt32x4(p1), toInt32x4(p2), toInt32x4(p3));
}

// r, g, b, a lanes to b, g, r, a.
inline __m128 swapRedBlue(__m128 v) { return _mm_shuffle_ps(v, v, _MM_SHUFFLE(3, 0, 1, 2)); }

// Twelve floats r0 g0 b0 r1 | g1 b1 r2 g2 | b2 r3 g3 b3 to four colours in B, G, R order; the
// fourth lane is left over and gets overwritten by the caller.
inline void rgb3ToBgr4(__m128 a, __m128 b, __m128 c, __m128 out[4]) {
  out[0] = _mm_shuffle_ps(a, a, _MM_SHUFFLE(3, 0, 1, 2));
  out[1] = _mm_shuffle_ps(b, a, _MM_SHUFFLE(3, 3, 0, 1));
  __m128 const mid = _mm_shuffle_ps(b, c, _MM_SHUFFLE(0, 0, 3, 2));  // r2 g2 b2 b2
  out[2] = _mm_shuffle_ps(mid, mid, _MM_SHUFFLE(0, 0, 1, 2));
  out[3] = _mm_shuffle_ps(c, c, _MM_SHUFFLE(0, 1, 2, 3));
}

inline __m128i opaque(__m128i bgra) { return _mm_or_si128(bgra, splat32(0xFF000000u)); }

// Halves (zero-extended in 32-bit lanes) to floats by the short way only: the magnitude moved
// to the float's exponent and mantissa, zero kept. Exact for normal halves; a denormal half
// becomes a small normal float instead of its value.
inline __m128 widenHalf4(__m128i h) {
  __m128i const m = _mm_and_si128(h, splat32(0x7FFFu));
  __m128i const f = _mm_add_epi32(_mm_slli_epi32(m, 13), splat32(0x38000000u));
  __m128i const magnitude = _mm_andnot_si128(_mm_cmpeq_epi32(m, _mm_setzero_si128()), f);
  __m128i const sign = _mm_slli_epi32(_mm_and_si128(h, splat32(0x8000u)), 16);
  return _mm_castsi128_ps(_mm_or_si128(magnitude, sign));
}

inline __m128 widenHalfLo(__m128i halves) { return widenHalf4(_mm_unpacklo_epi16(halves, _mm_setzero_si128())); }
inline __m128 widenHalfHi(__m128i halves) { return widenHalf4(_mm_unpackhi_epi16(halves, _mm_setzero_si128())); }

inline __m128i load(unsigned char const* p) { return _mm_loadu_si128(reinterpret_cast<__m128i const*>(p)); }
inline __m128 loadFloats(unsigned char const* p) { return _mm_loadu_ps(reinterpret_cast<float const*>(p)); }
inline void stream(unsigned char* p, __m128i v) { _mm_stream_si128(reinterpret_cast<__m128i*>(p), v); }

// The low 4 alpha bytes of v as four pixels (0, 0, 0, a).
inline __m128i alphaPixels4(__m128i bytes) {
  __m128i const zero = _mm_setzero_si128();
  return _mm_unpacklo_epi16(zero, _mm_unpacklo_epi8(zero, bytes));
}

void fromA8(unsigned char* dst, unsigned char const* src, unsigned int nbPixels) {
  __m128i const zero = _mm_setzero_si128();
  __m128i const gain = _mm_set1_epi16(short(FIXED_GAIN));
  __m128i const half = _mm_set1_epi16(128);
  // (value * gain + 128) >> 8 in 16-bit lanes.
  auto const scale = [&](__m128i words) {
    return _mm_srli_epi16(_mm_add_epi16(_mm_mullo_epi16(words, gain), half), 8);
  };
  for (unsigned int i = 0; i < nbPixels; i += 16, src += 16, dst += 64) {
    __m128i const bytes = load(src);
    __m128i const alphas = _mm_packus_epi16(scale(_mm_unpacklo_epi8(bytes, zero)), scale(_mm_unpackhi_epi8(bytes, zero)));
    stream(dst, alphaPixels4(alphas));
    stream(dst + 16, alphaPixels4(_mm_srli_si128(alphas, 4)));
    stream(dst + 32, alphaPixels4(_mm_srli_si128(alphas, 8)));
    stream(dst + 48, alphaPixels4(_mm_srli_si128(alphas, 12)));
  }
}

void fromA16(unsigned char* dst, unsigned char const* src, unsigned int nbPixels) {
  for (unsigned int i = 0; i < nbPixels; i += 8, src += 16, dst += 32) {
    __m128i const halves = load(src);
    __m128i const words = _mm_packs_epi32(toInt32x4(widenHalfLo(halves)), toInt32x4(widenHalfHi(halves)));
    __m128i const alphas = _mm_packus_epi16(words, words);
    stream(dst, alphaPixels4(alphas));
    stream(dst + 16, alphaPixels4(_mm_srli_si128(alphas, 4)));
  }
}

void fromRGB16(unsigned char* dst, unsigned char const* src, unsigned int nbPixels) {
  for (unsigned int i = 0; i < nbPixels; i += 8, src += 48, dst += 32) {
    __m128i const h0 = load(src);
    __m128i const h1 = load(src + 16);
    __m128i const h2 = load(src + 32);
    __m128 p[4];
    rgb3ToBgr4(widenHalfLo(h0), widenHalfHi(h0), widenHalfLo(h1), p);
    stream(dst, opaque(toBgra8x4(p[0], p[1], p[2], p[3])));
    rgb3ToBgr4(widenHalfHi(h1), widenHalfLo(h2), widenHalfHi(h2), p);
    stream(dst + 16, opaque(toBgra8x4(p[0], p[1], p[2], p[3])));
  }
}

void fromRGBA16(unsigned char* dst, unsigned char const* src, unsigned int nbPixels) {
  unsigned int i = 0;
  for (; i + 4 <= nbPixels; i += 4, src += 32, dst += 16) {
    __m128i const h0 = load(src);
    __m128i const h1 = load(src + 16);
    stream(dst, toBgra8x4(swapRedBlue(widenHalfLo(h0)), swapRedBlue(widenHalfHi(h0)), swapRedBlue(widenHalfLo(h1)),
                          swapRedBlue(widenHalfHi(h1))));
  }
  if (i < nbPixels) {
    // The last two pixels: eight bytes.
    __m128i const h = load(src);
    __m128i const words =
        _mm_packs_epi32(toInt32x4(swapRedBlue(widenHalfLo(h))), toInt32x4(swapRedBlue(widenHalfHi(h))));
    _mm_stream_si64(reinterpret_cast<long long*>(dst), _mm_cvtsi128_si64(_mm_packus_epi16(words, words)));
  }
}

void fromA32(unsigned char* dst, unsigned char const* src, unsigned int nbPixels) {
  unsigned int i = 0;
  for (; i + 16 <= nbPixels; i += 16, src += 64, dst += 64) {
    __m128i const alphas = packToUInt8x16(toInt32x4(loadFloats(src)), toInt32x4(loadFloats(src + 16)),
                                          toInt32x4(loadFloats(src + 32)), toInt32x4(loadFloats(src + 48)));
    stream(dst, alphaPixels4(alphas));
    stream(dst + 16, alphaPixels4(_mm_srli_si128(alphas, 4)));
    stream(dst + 32, alphaPixels4(_mm_srli_si128(alphas, 8)));
    stream(dst + 48, alphaPixels4(_mm_srli_si128(alphas, 12)));
  }
  for (; i < nbPixels; i += 4, src += 16, dst += 16) {
    __m128i const q = toInt32x4(loadFloats(src));
    __m128i const words = _mm_packs_epi32(q, q);
    stream(dst, alphaPixels4(_mm_packus_epi16(words, words)));
  }
}

void fromRGB32(unsigned char* dst, unsigned char const* src, unsigned int nbPixels) {
  for (unsigned int i = 0; i < nbPixels; i += 4, src += 48, dst += 16) {
    __m128 p[4];
    rgb3ToBgr4(loadFloats(src), loadFloats(src + 16), loadFloats(src + 32), p);
    stream(dst, opaque(toBgra8x4(p[0], p[1], p[2], p[3])));
  }
}

// Any count: the pixels after the last group of four go one at a time.
void fromRGBA32(unsigned char* dst, unsigned char const* src, unsigned int nbPixels) {
  unsigned int i = 0;
  for (; i + 4 <= nbPixels; i += 4, src += 64, dst += 16)
    stream(dst, toBgra8x4(swapRedBlue(loadFloats(src)), swapRedBlue(loadFloats(src + 16)),
                          swapRedBlue(loadFloats(src + 32)), swapRedBlue(loadFloats(src + 48))));
  for (; i < nbPixels; ++i, src += 16, dst += 4) {
    __m128i const q = toInt32x4(swapRedBlue(loadFloats(src)));
    __m128i const words = _mm_packs_epi32(q, q);
    _mm_stream_si32(reinterpret_cast<int*>(dst), _mm_cvtsi128_si32(_mm_packus_epi16(words, words)));
  }
}

// 8-bit RGB and RGBA tiles are shown as they are.
[[noreturn]] void refuse(char const* formatName, int line) {
  std::ostringstream message;
  message << "Should not convert from " << formatName << " to BGRA8, no performance gain!";
  Assertions::throwProgramAborted(__FILE__, line, message.str().c_str());
}

using Converter = void (*)(unsigned char*, unsigned char const*, unsigned int);

// Converts nbPixels pixels, of which only srcBytes bytes are readable at src: the gap after the
// last stored row of a tile with a wide stride may lie beyond its memory. The groups that are
// wholly there are read in place, the rest from a zero-padded copy.
void run(Converter converter, unsigned char* dst, unsigned char const* src, unsigned int nbPixels,
         std::size_t srcBytes, unsigned int pixelSize) {
  std::size_t const needed = std::size_t(nbPixels) * pixelSize;
  if (needed <= srcBytes) {
    converter(dst, src, nbPixels);
    return;
  }
  // Every block size divides 16 (and each block reads no more than its own pixels).
  unsigned int const head = unsigned(srcBytes / pixelSize) / 16 * 16;
  converter(dst, src, head);
  std::size_t const headBytes = std::size_t(head) * pixelSize;
  std::vector<unsigned char> rest(needed - headBytes, 0);
  std::memcpy(rest.data(), src + headBytes, srcBytes - headBytes);
  converter(dst + std::size_t(head) * 4, rest.data(), nbPixels - head);
}

}  // namespace

void convert(unsigned char* dst, unsigned char const* src, unsigned int nbPixels, std::size_t srcBytes,
             IxPixelFormat const& srcFormat) {
  ORN_ASSERT(addressOf(dst) % 16 == 0);
  Converter converter = nullptr;
  switch (srcFormat.getDepth()) {
    case IxPixelFormat::UINT8:
      switch (srcFormat.getComps()) {
        case IxPixelFormat::ALPHA:
          ORN_ASSERT(nbPixels % 16 == 0);
          converter = fromA8;
          break;
        case IxPixelFormat::RGB: refuse("RGB8", __LINE__);
        case IxPixelFormat::RGBA: refuse("RGBA8", __LINE__);
        default: ORN_ABORT(nullptr);
      }
      break;
    case IxPixelFormat::FLOAT16:
      switch (srcFormat.getComps()) {
        case IxPixelFormat::ALPHA:
          ORN_ASSERT(nbPixels % 8 == 0);
          converter = fromA16;
          break;
        case IxPixelFormat::RGB:
          ORN_ASSERT(nbPixels % 8 == 0);
          converter = fromRGB16;
          break;
        case IxPixelFormat::RGBA:
          ORN_ASSERT(nbPixels % 2 == 0);
          converter = fromRGBA16;
          break;
        default: ORN_ABORT(nullptr);
      }
      break;
    case IxPixelFormat::FLOAT32:
      switch (srcFormat.getComps()) {
        case IxPixelFormat::ALPHA:
          ORN_ASSERT(nbPixels % 4 == 0);
          converter = fromA32;
          break;
        case IxPixelFormat::RGB:
          ORN_ASSERT(nbPixels % 4 == 0);
          converter = fromRGB32;
          break;
        case IxPixelFormat::RGBA: converter = fromRGBA32; break;
        default: ORN_ABORT(nullptr);
      }
      break;
    default:
      ORN_ABORT(nullptr);
  }
  run(converter, dst, src, nbPixels, srcBytes, unsigned(srcFormat.getSize()));
  _mm_sfence();
}

}  // namespace IxConvertBGRA8
}  // namespace Orn
