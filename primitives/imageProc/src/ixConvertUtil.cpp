#include <orn/primitives/imageProc/ixConvertUtil.h>

#include "ixConvertImp.h"

#include <immintrin.h>

#include <cstring>

namespace Orn {

using namespace IxConvertImp;

namespace {

// A format that the dispatch has no converter for.
[[noreturn]] void abortUnsupported(int line) {
  Assertions::throwProgramAborted("ixConvertUtil", line, nullptr);
}

// The converter of a format from a table by depth (8-bit, half, float) and layout (alpha, RGB,
// RGBA); any other format aborts, naming the caller's line.
template <class Converter>
Converter pickConverter(Converter const (&table)[3][3], IxPixelFormat const& format, int line) {
  int depth = -1;
  switch (format.getDepth()) {
    case IxPixelFormat::UINT8: depth = 0; break;
    case IxPixelFormat::FLOAT16: depth = 1; break;
    case IxPixelFormat::FLOAT32: depth = 2; break;
    default: break;
  }
  int layout = -1;
  switch (format.getComps()) {
    case IxPixelFormat::ALPHA: layout = 0; break;
    case IxPixelFormat::RGB: layout = 1; break;
    case IxPixelFormat::RGBA: layout = 2; break;
    default: break;
  }
  if (depth < 0 || layout < 0) abortUnsupported(line);
  return table[depth][layout];
}

}  // namespace

namespace IxConvertImp {

// Four-component 8-bit tiles. A colour row stores every pixel by the block arithmetic, so that
// the hottest path rounds the same way whatever the alignment.

void readRGBA8(float* dst, Uchar const* src, unsigned n) {
  IxPixel<IxPixelCompUInt8, 4> const* const s = reinterpret_cast<IxPixel<IxPixelCompUInt8, 4> const*>(src);
  for (unsigned i = 0; i < n; ++i) dst[i] = s[i][3].get();
}

namespace {

// Pixels ahead of the current one that the 8-bit colour paths prefetch: 256 bytes of colours.
constexpr unsigned PREFETCH_PIXELS = 256 / sizeof(Rgba);

__m128i loadRgba8(Uchar const* src) {
  std::int32_t bytes;
  std::memcpy(&bytes, src, 4);
  return _mm_cvtsi32_si128(bytes);
}

void storeRgba8(Uchar* dst, __m128i q) {
  std::int32_t const bytes = _mm_cvtsi128_si32(_mm_packus_epi16(_mm_packs_epi32(q, q), q));
  std::memcpy(dst, &bytes, 4);
}

// Four pixels by the block arithmetic.
__m128i blockToRgba8x4(Rgba const* src) {
  return packToUInt8x16(blockToInt32x4(_mm_loadu_ps(&src[0].r)), blockToInt32x4(_mm_loadu_ps(&src[1].r)),
                        blockToInt32x4(_mm_loadu_ps(&src[2].r)), blockToInt32x4(_mm_loadu_ps(&src[3].r)));
}

}  // namespace

namespace {

// Groups of eight pixels with 256-bit registers: the same conversion and product as
// uint8ToFloat4, so the same bits. Returns the number of pixels done, a multiple of 8.
__attribute__((target("avx2"))) unsigned readRgba8Avx2(Rgba* dst, Uchar const* src, unsigned n) {
  __m256 const scale = _mm256_set1_ps(0.003921569f);
  unsigned i = 0;
  for (; i + 8 <= n; i += 8)
    for (unsigned k = 0; k < 8; k += 2) {
      __m256i const bytes = _mm256_cvtepu8_epi32(_mm_loadl_epi64(reinterpret_cast<__m128i const*>(src + 4 * (i + k))));
      _mm256_storeu_ps(&dst[i + k].r, _mm256_mul_ps(_mm256_cvtepi32_ps(bytes), scale));
    }
  return i;
}

// min(v * 255, 255) converted by the current rounding mode, two pixels at a time: blockToInt32x4.
__attribute__((target("avx2"))) inline __m256i blockToInt32x8(Rgba const* src) {
  __m256 const v = _mm256_loadu_ps(&src->r);
  return _mm256_cvtps_epi32(_mm256_min_ps(_mm256_mul_ps(v, _mm256_set1_ps(255.f)), _mm256_set1_ps(255.f)));
}

// The main loop of writeRGBA8 with 256-bit registers, the same arithmetic and saturation: groups
// of 64 pixels to a 64-byte aligned dst, 32 bytes a store. Returns the number of pixels done.
__attribute__((target("avx2"))) unsigned writeRgba8Avx2(Uchar* dst, Rgba const* src, unsigned n) {
  // Packing works within 128-bit lanes and leaves the pixels as 0 2 4 6 1 3 5 7.
  __m256i const order = _mm256_setr_epi32(0, 4, 1, 5, 2, 6, 3, 7);
  unsigned done = 0;
  for (; n - done >= 64; done += 64, dst += 256, src += 64) {
    for (unsigned k = 0; k < 64; k += 8) {
      _mm_prefetch(reinterpret_cast<char const*>(src + k + PREFETCH_PIXELS), _MM_HINT_T0);
      __m256i const words0 = _mm256_packs_epi32(blockToInt32x8(src + k), blockToInt32x8(src + k + 2));
      __m256i const words1 = _mm256_packs_epi32(blockToInt32x8(src + k + 4), blockToInt32x8(src + k + 6));
      _mm256_stream_si256(reinterpret_cast<__m256i*>(dst + 4 * k),
                          _mm256_permutevar8x32_epi32(_mm256_packus_epi16(words0, words1), order));
    }
  }
  return done;
}

}  // namespace

void readRGBA8(Rgba* dst, Uchar const* src, unsigned n) {
  if (hasAvx2F16c()) {
    unsigned const done = readRgba8Avx2(dst, src, n);
    dst += done;
    src += 4 * done;
    n -= done;
  }
  __m128i const zero = _mm_setzero_si128();
  for (; n >= 4; n -= 4, src += 16, dst += 4) {
    __m128i const bytes = _mm_loadu_si128(reinterpret_cast<__m128i const*>(src));
    __m128i const lo = _mm_unpacklo_epi8(bytes, zero);
    __m128i const hi = _mm_unpackhi_epi8(bytes, zero);
    _mm_storeu_ps(&dst[0].r, uint8ToFloat4(_mm_unpacklo_epi16(lo, zero)));
    _mm_storeu_ps(&dst[1].r, uint8ToFloat4(_mm_unpackhi_epi16(lo, zero)));
    _mm_storeu_ps(&dst[2].r, uint8ToFloat4(_mm_unpacklo_epi16(hi, zero)));
    _mm_storeu_ps(&dst[3].r, uint8ToFloat4(_mm_unpackhi_epi16(hi, zero)));
  }
  for (; n; --n, src += 4, ++dst) _mm_storeu_ps(&dst->r, uint8ToFloat4(widenBytes4(loadRgba8(src))));
}

// Single pixels up to a 16-byte boundary of the tile, groups of four up to a 64-byte boundary,
// then 64 pixels at a time with prefetching, then fours and singles again.
void writeRGBA8(Uchar* dst, Rgba const* src, unsigned n) {
  for (; n && !isAligned16(dst); --n, dst += 4, ++src) storeRgba8(dst, blockToInt32x4(_mm_loadu_ps(&src->r)));
  for (; n >= 4 && addressOf(dst) % 64 != 0; n -= 4, dst += 16, src += 4)
    _mm_stream_si128(reinterpret_cast<__m128i*>(dst), blockToRgba8x4(src));
  if (hasAvx2F16c() && addressOf(dst) % 64 == 0) {
    unsigned const done = writeRgba8Avx2(dst, src, n);
    dst += 4 * done;
    src += done;
    n -= done;
  }
  for (; n >= 64; n -= 64, dst += 256, src += 64) {
    for (unsigned k = 0; k < 64; k += 4) {
      _mm_prefetch(reinterpret_cast<char const*>(src + k + PREFETCH_PIXELS), _MM_HINT_T0);
      _mm_stream_si128(reinterpret_cast<__m128i*>(dst + 4 * k), blockToRgba8x4(src + k));
    }
  }
  for (; n >= 4; n -= 4, dst += 16, src += 4) _mm_stream_si128(reinterpret_cast<__m128i*>(dst), blockToRgba8x4(src));
  for (; n; --n, dst += 4, ++src) storeRgba8(dst, blockToInt32x4(_mm_loadu_ps(&src->r)));
  _mm_sfence();
}

}  // namespace IxConvertImp

void IxConvertUtil::readFrom(float* dst, unsigned char const* src, unsigned int nbPixels,
                             IxPixelFormat const& srcFormat) {
  using Read = void (*)(float*, Uchar const*, unsigned);
  static constexpr Read readers[3][3] = {
      {readA8, readRGB8, readRGBA8}, {readA16, readRGB16, readRGBA16}, {readA32, readRGB32, readRGBA32}};
  pickConverter(readers, srcFormat, __LINE__)(dst, src, nbPixels);
}

void IxConvertUtil::readFrom(CoRgbaColorTyped<float>* dst, unsigned char const* src, unsigned int nbPixels,
                             IxPixelFormat const& srcFormat) {
  using Read = void (*)(Rgba*, Uchar const*, unsigned);
  static constexpr Read readers[3][3] = {
      {readA8, readRGB8, readRGBA8}, {readA16, readRGB16, readRGBA16}, {readA32, readRGB32, readRGBA32}};
  pickConverter(readers, srcFormat, __LINE__)(dst, src, nbPixels);
}

void IxConvertUtil::readFrom(std::complex<float>* dst, unsigned char const* src, unsigned int nbPixels,
                             IxPixelFormat const& srcFormat) {
  ORN_ASSERT(srcFormat.getComps() == IxPixelFormat::ALPHA);
  ORN_ASSERT(srcFormat.getDepth() == IxPixelFormat::COMPLEX);
  if (nbPixels) std::memcpy(dst, src, std::size_t(nbPixels) * 8);
}

// A float line writes one-component tiles only.
void IxConvertUtil::writeTo(unsigned char* dst, float const* src, unsigned int nbPixels,
                            IxPixelFormat const& dstFormat) {
  if (dstFormat.getComps() == IxPixelFormat::ALPHA) {
    switch (dstFormat.getDepth()) {
      case IxPixelFormat::UINT8: return writeA8(dst, src, nbPixels);
      case IxPixelFormat::FLOAT16: return writeA16(dst, src, nbPixels);
      case IxPixelFormat::FLOAT32: return writeA32(dst, src, nbPixels);
      default: break;
    }
  }
  abortUnsupported(__LINE__);
}

void IxConvertUtil::writeTo(unsigned char* dst, CoRgbaColorTyped<float> const* src, unsigned int nbPixels,
                            IxPixelFormat const& dstFormat) {
  using Write = void (*)(Uchar*, Rgba const*, unsigned);
  static constexpr Write writers[3][3] = {
      {writeA8, writeRGB8, writeRGBA8}, {writeA16, writeRGB16, writeRGBA16}, {writeA32, writeRGB32, writeRGBA32}};
  pickConverter(writers, dstFormat, __LINE__)(dst, src, nbPixels);
}

void IxConvertUtil::writeTo(unsigned char* dst, std::complex<float> const* src, unsigned int nbPixels,
                            IxPixelFormat const& dstFormat) {
  ORN_ASSERT(dstFormat.getComps() == IxPixelFormat::ALPHA);
  ORN_ASSERT(dstFormat.getDepth() == IxPixelFormat::COMPLEX);
  if (nbPixels) std::memcpy(dst, src, std::size_t(nbPixels) * 8);
}

}  // namespace Orn
