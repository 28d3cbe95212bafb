#pragma once
// Stages shared by the lookup-table operators: the lookup through a typed table, the power stage,
// the colour matrix brought to the working range of the depths, the stores, and the pre-combined
// table of the 8-bit matrix path.
//
// Working range: a table for an 8-bit destination yields 0..255 as a float, and the power and
// matrix stages work on that value as it stands; half and float destinations work in their own
// values.

#include <orn/base/except/assertions.h>
#include <orn/base/geometryBase/geProjectiveMatrix3.h>
#include <orn/pluginAPI/ixPixelComp.h>
#include <orn/pluginAPI/ixReadGuard.h>
#include <orn/pluginAPI/ixWriteGuard.h>
#include <orn/primitives/imageProc/ixGenericLut.h>

#include "ipLutPaths.h"
#include "ipStoreUtil.h"

#include <emmintrin.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <memory>
#include <type_traits>

namespace Orn {
namespace IpLutStages {

template <class Comp>
inline constexpr bool IS_BYTE = std::is_same_v<Comp, IxPixelCompUInt8>;

// A table must have the depths of the destination (output) and of the source (input).
inline void checkTable(IxGenericLut const& lut, IxWriteGuard const& dst, IxReadGuard const& src) {
  ORN_ASSERT(lut.getOutputDepth() == dst.getTile().getPixelFormat().getDepth() && lut.getInputDepth() == src.getTile().getPixelFormat().getDepth());
}

// gain * x^gamma in single precision where x > 0, 0 where x <= 0; NaN fails the test and goes on.
inline float power(float x, float gamma, float gain) { return x <= 0.f ? 0.f : gain * std::pow(x, gamma); }

// Matrix members: 8 bits truncated and clamped; half and float stored unclamped.
template <class Comp>
inline typename Comp::Storage storeClamped(float v) {
  if constexpr (IS_BYTE<Comp>)
    return IpStoreUtil::truncateClamp(v);
  else
    return Comp::fromFloat(v);
}

// Power members: 8 bits truncated with only the low byte kept.
template <class Comp>
inline typename Comp::Storage storeWrapped(float v) {
  if constexpr (IS_BYTE<Comp>)
    return IpStoreUtil::truncateWrap(v);
  else
    return Comp::fromFloat(v);
}

// A component in its working range: bytes as 0..255, half and float as their values.
template <class Comp>
inline float workingValue(typename Comp::Storage v) {
  if constexpr (IS_BYTE<Comp>)
    return float(v);
  else
    return Comp::toFloat(v);
}

// A component carried over in depth only, by the per-pixel conversion rules.
template <class DstComp, class SrcComp>
inline typename DstComp::Storage convertDepth(typename SrcComp::Storage v) {
  if constexpr (std::is_same_v<DstComp, SrcComp>)
    return v;
  else
    return DstComp::fromFloat(SrcComp::toFloat(v));
}

// The colour matrix in the column sense (out_i = sum_j m[i][j] y_j + t[i]), read from a
// projective matrix whose colour element (row i, column j) sits at index 4j + i and whose
// translation of channel i at index 12 + i. The output side is scaled to the destination's range
// and the input side to the source's: m = d * M * s, t = d * T, with d = 255 for an 8-bit
// destination and s = 1/255 for an 8-bit source (1 otherwise); alpha's element is kept.
struct ScaledMatrix {
  ScaledMatrix(GeProjectiveMatrix3<float> const& matrix, float d, float s) {
    float const* e = matrix.getData();
    for (int i = 0; i < 3; ++i) {
      for (int j = 0; j < 3; ++j) m[i][j] = (e[4 * j + i] * d) * s;
      t[i] = e[12 + i] * d;
    }
    alpha = e[15];
  }

  float apply(int i, float y0, float y1, float y2) const { return m[i][0] * y0 + m[i][1] * y1 + m[i][2] * y2 + t[i]; }

  float m[3][3];
  float t[3];
  float alpha;
};

template <class DstComp, class SrcComp>
inline ScaledMatrix scaledMatrix(GeProjectiveMatrix3<float> const& matrix) {
  return ScaledMatrix(matrix, IS_BYTE<DstComp> ? 255.f : 1.f, IS_BYTE<SrcComp> ? 0.003921569f : 1.f);
}

// The 8-bit to 8-bit matrix path: table lookup and matrix merged into four blocks of 256 vectors,
// one block per source channel, so that a pixel is the sum of four table vectors:
//   block R, entry i: (m00 l, m10 l, m20 l) + t, with l the red table's value of i
//   block G, entry i: (m01 l, m11 l, m21 l); block B alike with column 2
//   block A, entry i: (0, 0, 0, alpha element * a), a given per entry by the caller.
// The sum R + (G + (B + A)) is truncated and saturated to bytes, four channels at once.
class PrecombinedTable {
 public:
  template <class Red, class Green, class Blue, class Alpha>
  PrecombinedTable(ScaledMatrix const& m, Red red, Green green, Blue blue, Alpha alpha)
      : _memory(new unsigned char[256 * 4 * sizeof(__m128) + 16]), _wide(IpLutPaths::isWideEnabled()) {
    // 16 bytes beyond the blocks leave room to start them on a 16-byte boundary.
    std::uintptr_t const address = reinterpret_cast<std::uintptr_t>(_memory.get());
    _entries = reinterpret_cast<__m128*>((address + 15) & ~std::uintptr_t(15));
    for (int i = 0; i < 256; ++i) {
      float const r = red(i), g = green(i), b = blue(i);
      _entries[i] = _mm_setr_ps(m.m[0][0] * r + m.t[0], m.m[1][0] * r + m.t[1], m.m[2][0] * r + m.t[2], 0.f);
      _entries[256 + i] = _mm_setr_ps(m.m[0][1] * g, m.m[1][1] * g, m.m[2][1] * g, 0.f);
      _entries[512 + i] = _mm_setr_ps(m.m[0][2] * b, m.m[1][2] * b, m.m[2][2] * b, 0.f);
      _entries[768 + i] = _mm_setr_ps(0.f, 0.f, 0.f, m.alpha * alpha(i));
    }
    // The alpha lane of the red, green and blue entries is 0, so a pixel's alpha byte depends on
    // its alpha byte alone: the wide loop looks it up, already summed and stored, in a byte table.
    if (_wide)
      for (int i = 0; i < 256; ++i)
        _alphaBytes[i] = std::uint8_t(std::uint32_t(_mm_cvtsi128_si32(sum4(0, 0, 0, std::uint8_t(i)))) >> 24);
  }

  // Four bytes of the pixel (r, g, b, a) in the low 32 bits.
  __m128i sum4(std::uint8_t r, std::uint8_t g, std::uint8_t b, std::uint8_t a) const {
    __m128 const v = _mm_add_ps(_entries[r], _mm_add_ps(_entries[256 + g], _mm_add_ps(_entries[512 + b], _entries[768 + a])));
    return pack(v);
  }
  __m128i sum3(std::uint8_t r, std::uint8_t g, std::uint8_t b) const {
    return pack(_mm_add_ps(_entries[r], _mm_add_ps(_entries[256 + g], _entries[512 + b])));
  }

  // n pixels of four bytes, two at a time: the eight entries of a pair of pixels are loaded
  // before their sums are formed, and the two sums are packed and stored together.
  void runRgba(std::int32_t n, std::uint8_t* out, std::uint8_t const* in) const {
    __m128 const* const e = _entries;
    std::int32_t i = 0;
    if (_wide) {
      // The colour lanes of the alpha entries are 0: leaving them out of the colour sums changes
      // at most the sign of a zero sum, which truncates to the same byte.
      IpLutPaths::RgbaMatrixTables const tables{reinterpret_cast<float const*>(e),
                                                reinterpret_cast<float const*>(e + 256),
                                                reinterpret_cast<float const*>(e + 512), _alphaBytes};
      i = IpLutPaths::matrixRgbaWide(tables, out, in, n);
    }
    for (; i + 2 <= n; i += 2) {
      if ((i & 15) == 0) _mm_prefetch(reinterpret_cast<char const*>(in + 4 * i + 512), _MM_HINT_T0);
      std::uint64_t w;
      std::memcpy(&w, in + 4 * i, 8);
      __m128 const r0 = e[w & 0xFF], g0 = e[256 + ((w >> 8) & 0xFF)], b0 = e[512 + ((w >> 16) & 0xFF)],
                   a0 = e[768 + ((w >> 24) & 0xFF)];
      __m128 const r1 = e[(w >> 32) & 0xFF], g1 = e[256 + ((w >> 40) & 0xFF)], b1 = e[512 + ((w >> 48) & 0xFF)],
                   a1 = e[768 + (w >> 56)];
      __m128 const s0 = _mm_add_ps(r0, _mm_add_ps(g0, _mm_add_ps(b0, a0)));
      __m128 const s1 = _mm_add_ps(r1, _mm_add_ps(g1, _mm_add_ps(b1, a1)));
      __m128i const words = _mm_packs_epi32(_mm_cvttps_epi32(s0), _mm_cvttps_epi32(s1));
      _mm_storel_epi64(reinterpret_cast<__m128i*>(out + 4 * i), _mm_packus_epi16(words, words));
    }
    if (i < n) store4(out + 4 * i, sum4(in[4 * i], in[4 * i + 1], in[4 * i + 2], in[4 * i + 3]));
  }

  static void store3(std::uint8_t* out, __m128i packed) {
    std::uint32_t const v = std::uint32_t(_mm_cvtsi128_si32(packed));
    out[0] = std::uint8_t(v);
    out[1] = std::uint8_t(v >> 8);
    out[2] = std::uint8_t(v >> 16);
  }
  static void store4(std::uint8_t* out, __m128i packed) {
    std::int32_t const v = _mm_cvtsi128_si32(packed);
    std::memcpy(out, &v, 4);
  }

 private:
  // Truncation to integers, then saturation to 16-bit signed and to 8-bit unsigned: 0..255.
  static __m128i pack(__m128 v) {
    __m128i const words = _mm_packs_epi32(_mm_cvttps_epi32(v), _mm_setzero_si128());
    return _mm_packus_epi16(words, _mm_setzero_si128());
  }

  std::unique_ptr<unsigned char[]> _memory;
  __m128* _entries;
  bool const _wide;
  std::uint8_t _alphaBytes[256];
};

}  // namespace IpLutStages
}  // namespace Orn
