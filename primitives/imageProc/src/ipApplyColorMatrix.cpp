#include <orn/primitives/imageProc/ipApplyColorMatrix.h>

#include <orn/pluginAPI/halfF16c.h>
#include <orn/pluginAPI/halfSse2.h>
#include <orn/primitives/imageProc/ixIsInPlace.h>
#include <orn/primitives/imageProc/ixPixelLoopDstrgbDstdepth.h>

#include <emmintrin.h>

#include <cstdint>
#include <cstring>
#include <memory>
#include <type_traits>

namespace Orn {

namespace {

// The matrix as the pixels need it: colour element (row i, column j) at m[i][j].
class IpColorMatrixFunctorArgs : public IxPixelFunctorArgs {
public:
  explicit IpColorMatrixFunctorArgs(GeProjectiveMatrix3<float> const& matrix) : projective(true) {
    float const* e = matrix.getData();
    for (int i = 0; i < 3; ++i) {
      for (int j = 0; j < 3; ++j) m[i][j] = e[4 * j + i];
      t[i] = e[12 + i];
    }
    alphaScale = e[15];
  }
  explicit IpColorMatrixFunctorArgs(GeLinearMatrix3<float> const& matrix) : alphaScale(1.0f), projective(false) {
    for (int i = 0; i < 3; ++i) {
      for (int j = 0; j < 3; ++j) m[i][j] = matrix(i, j);
      t[i] = 0.0f;
    }
  }

  float m[3][3];
  float t[3];
  float alphaScale;  // the bottom right element; unused when alpha is copied
  bool projective;   // false: alpha is copied
};

// The matrix brought to the 0..255 range of 8-bit pixels: S(255) M S(1/255), which keeps the 3x3
// block (up to rounding) and scales the translation by 255.
void scaleTo8Bits(IpColorMatrixFunctorArgs const& a, float m[3][3], float t[3]) {
  for (int i = 0; i < 3; ++i) {
    for (int j = 0; j < 3; ++j) m[i][j] = (a.m[i][j] * 255.0f) * 0.003921569f;
    t[i] = a.t[i] * 255.0f;
  }
}

// The 8-bit form: four blocks of 256 four-float entries, one block per source channel, holding that
// channel's contribution to every output channel for each byte value, the translation folded into
// the red block. A pixel is then four loads and three additions.
class IpColorMatrixTable8 {
public:
  IpColorMatrixTable8(IpColorMatrixFunctorArgs const& a, bool withAlpha)
      : _storage(new float[(withAlpha ? 4 : 3) * 256 * 4 + 4]) {
    // 16 bytes beyond the entries leave room to align their start.
    auto const address = reinterpret_cast<std::uintptr_t>(_storage.get());
    _entries = reinterpret_cast<__m128*>((address + 15) & ~std::uintptr_t(15));
    float m[3][3];
    float t[3];
    scaleTo8Bits(a, m, t);
    for (int i = 0; i < 256; ++i) {
      float const l = float(i);
      _entries[i] = _mm_setr_ps(m[0][0] * l + t[0], m[1][0] * l + t[1], m[2][0] * l + t[2], 0.0f);
      _entries[256 + i] = _mm_setr_ps(m[0][1] * l, m[1][1] * l, m[2][1] * l, 0.0f);
      _entries[512 + i] = _mm_setr_ps(m[0][2] * l, m[1][2] * l, m[2][2] * l, 0.0f);
      if (withAlpha) _entries[768 + i] = _mm_setr_ps(0.0f, 0.0f, 0.0f, a.projective ? a.alphaScale * l : l);
    }
  }

  __m128 const* getEntries() const { return _entries; }

private:
  std::unique_ptr<float[]> _storage;
  __m128* _entries;
};

// Truncates the four sums toward zero and saturates them to 0..255, as bytes 0 to 3.
inline __m128i packBytes(__m128 sum) {
  __m128i const q = _mm_cvttps_epi32(sum);
  __m128i const w = _mm_packs_epi32(q, q);
  return _mm_packus_epi16(w, w);
}

// Columns, translation and alpha factor of a matrix as four-float rows for the vector forms:
// column j is (M_0j, M_1j, M_2j, 0), the alpha row (0, 0, 0, factor).
struct IpVectorCoefficients {
  float column[3][4];
  float translation[4];
  float alpha[4];

  IpVectorCoefficients(float const m[3][3], float const t[3], float alphaFactor) {
    for (int j = 0; j < 3; ++j) {
      for (int i = 0; i < 3; ++i) column[j][i] = m[i][j];
      column[j][3] = 0.0f;
    }
    for (int i = 0; i < 3; ++i) translation[i] = t[i];
    translation[3] = 0.0f;
    alpha[0] = alpha[1] = alpha[2] = 0.0f;
    alpha[3] = alphaFactor;
  }
};

// The same computation two pixels at a time where the processor has AVX2 (without FMA, so that
// products and sums round as in the SSE2 forms).
struct IpAvxCoefficients {
  __m256 column0;
  __m256 column1;
  __m256 column2;
  __m256 translation;
  __m256 alpha;
};

ORN_TARGET_F16C inline IpAvxCoefficients loadAvx(IpVectorCoefficients const& k) {
  return IpAvxCoefficients{_mm256_broadcast_ps(reinterpret_cast<__m128 const*>(k.column[0])),
                           _mm256_broadcast_ps(reinterpret_cast<__m128 const*>(k.column[1])),
                           _mm256_broadcast_ps(reinterpret_cast<__m128 const*>(k.column[2])),
                           _mm256_broadcast_ps(reinterpret_cast<__m128 const*>(k.translation)),
                           _mm256_broadcast_ps(reinterpret_cast<__m128 const*>(k.alpha))};
}

// What the 8-bit table sums for two pixels: R + (G + (B + A)), each entry being the product that
// the table holds for the byte (R with the translation added).
ORN_TARGET_F16C inline __m256 sumEntriesAvx(__m256 p, IpAvxCoefficients const& k) {
  __m256 const red = _mm256_add_ps(_mm256_mul_ps(k.column0, _mm256_permute_ps(p, 0x00)), k.translation);
  __m256 const green = _mm256_mul_ps(k.column1, _mm256_permute_ps(p, 0x55));
  __m256 const blue = _mm256_mul_ps(k.column2, _mm256_permute_ps(p, 0xAA));
  __m256 const alpha = _mm256_mul_ps(k.alpha, _mm256_permute_ps(p, 0xFF));
  return _mm256_add_ps(red, _mm256_add_ps(green, _mm256_add_ps(blue, alpha)));
}

// 8-bit RGBA: four pixels per step; returns how many pixels it did. The bytes are exact in float,
// so the products equal the table's entries and the sums its sums.
ORN_TARGET_F16C std::int32_t runRgba8Avx(std::int32_t nbPixels, std::uint8_t* out, std::uint8_t const* in,
                                         IpVectorCoefficients const& coefficients) {
  IpAvxCoefficients const k = loadAvx(coefficients);
  std::int32_t i = 0;
  for (; i + 4 <= nbPixels; i += 4) {
    __m128i const bytes = _mm_loadu_si128(reinterpret_cast<__m128i const*>(in + 4 * i));
    __m256 const p01 = _mm256_cvtepi32_ps(_mm256_cvtepu8_epi32(bytes));
    __m256 const p23 = _mm256_cvtepi32_ps(_mm256_cvtepu8_epi32(_mm_srli_si128(bytes, 8)));
    __m256i const q01 = _mm256_cvttps_epi32(sumEntriesAvx(p01, k));
    __m256i const q23 = _mm256_cvttps_epi32(sumEntriesAvx(p23, k));
    // Packing works within 128-bit halves: pixels come out as 0, 2, 1, 3 and are put back in order.
    __m256i const words = _mm256_permute4x64_epi64(_mm256_packs_epi32(q01, q23), 0xD8);
    __m128i const result = _mm_packus_epi16(_mm256_castsi256_si128(words), _mm256_extracti128_si256(words, 1));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(out + 4 * i), result);
  }
  return i;
}

// GCC 12's AVX-512 headers trip its own uninitialised-value warnings (their undefined pass-through
// operands); nothing here is uninitialised.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wuninitialized"
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"

// The same with AVX-512, four pixels per vector. Clamping to 0 before the unsigned narrowing gives
// what the signed and unsigned packs give.
// The target brings FMA with it: each product goes through an empty asm so that it is rounded on
// its own, as in the table, rather than fused with the addition that follows.
#define ORN_TARGET_AVX512 __attribute__((target("avx512f")))

ORN_TARGET_AVX512 inline __m512 rounded(__m512 product) {
  asm("" : "+v"(product));
  return product;
}

// Four copies of a four-float row.
ORN_TARGET_AVX512 inline __m512 broadcastRow(float const* row) {
  float copies[16];
  for (int i = 0; i < 16; ++i) copies[i] = row[i % 4];
  return _mm512_loadu_ps(copies);
}

ORN_TARGET_AVX512 inline bool hasAvx512() {
  static bool const available = __builtin_cpu_supports("avx512f");
  return available;
}

ORN_TARGET_AVX512 std::int32_t runRgba8Avx512(std::int32_t nbPixels, std::uint8_t* out, std::uint8_t const* in,
                                              IpVectorCoefficients const& k) {
  __m512 const column0 = broadcastRow(k.column[0]);
  __m512 const column1 = broadcastRow(k.column[1]);
  __m512 const column2 = broadcastRow(k.column[2]);
  __m512 const translation = broadcastRow(k.translation);
  __m512 const alphaRow = broadcastRow(k.alpha);
  __m512i const zero = _mm512_setzero_si512();
  std::int32_t i = 0;
  for (; i + 4 <= nbPixels; i += 4) {
    __m512 const p =
        _mm512_cvtepi32_ps(_mm512_cvtepu8_epi32(_mm_loadu_si128(reinterpret_cast<__m128i const*>(in + 4 * i))));
    __m512 const red = _mm512_add_ps(rounded(_mm512_mul_ps(column0, _mm512_permute_ps(p, 0x00))), translation);
    __m512 const green = rounded(_mm512_mul_ps(column1, _mm512_permute_ps(p, 0x55)));
    __m512 const blue = rounded(_mm512_mul_ps(column2, _mm512_permute_ps(p, 0xAA)));
    __m512 const alpha = rounded(_mm512_mul_ps(alphaRow, _mm512_permute_ps(p, 0xFF)));
    __m512 const sum = _mm512_add_ps(red, _mm512_add_ps(green, _mm512_add_ps(blue, alpha)));
    __m512i const q = _mm512_max_epi32(_mm512_cvttps_epi32(sum), zero);
    _mm_storeu_si128(reinterpret_cast<__m128i*>(out + 4 * i), _mm512_cvtusepi32_epi8(q));
  }
  return i;
}

#pragma GCC diagnostic pop

// Half RGBA: two pixels per step through the exact conversions; alpha is a times the factor, or
// its bits copied.
ORN_TARGET_F16C std::int32_t runRgba16Avx(std::int32_t nbPixels, Half::Bits* out, Half::Bits const* in,
                                          IpVectorCoefficients const& coefficients, bool copyAlpha) {
  IpAvxCoefficients const k = loadAvx(coefficients);
  __m256 const rgbMask = _mm256_castsi256_ps(_mm256_setr_epi32(-1, -1, -1, 0, -1, -1, -1, 0));
  __m128i const alphaBits = _mm_setr_epi16(0, 0, 0, -1, 0, 0, 0, -1);
  __m256 const alphaFactor = _mm256_permute_ps(k.alpha, 0xFF);
  std::int32_t i = 0;
  for (; i + 2 <= nbPixels; i += 2) {
    __m128i const h = _mm_loadu_si128(reinterpret_cast<__m128i const*>(in + 4 * i));
    __m256 const p = HalfF16c::toFloat8(h);
    __m256 const sum = _mm256_add_ps(_mm256_add_ps(_mm256_mul_ps(k.column0, _mm256_permute_ps(p, 0x00)),
                                                   _mm256_mul_ps(k.column1, _mm256_permute_ps(p, 0x55))),
                                     _mm256_mul_ps(k.column2, _mm256_permute_ps(p, 0xAA)));
    __m256 const colour = _mm256_add_ps(sum, k.translation);
    __m256 const result = _mm256_or_ps(_mm256_and_ps(rgbMask, colour), _mm256_andnot_ps(rgbMask, _mm256_mul_ps(p, alphaFactor)));
    __m128i packed = HalfF16c::fromFloat8(result);
    if (copyAlpha) packed = _mm_or_si128(_mm_andnot_si128(alphaBits, packed), _mm_and_si128(alphaBits, h));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(out + 4 * i), packed);
  }
  return i;
}

template <class Dst, class Src>
class IpColorMatrixFunctor : public IxPixelFunctor<Dst, Src> {
public:
  using Comp = typename std::remove_const_t<Dst>::CompType;
  static constexpr int N = Dst::NB_COMPS;
  static constexpr bool IS_8BIT = std::is_same_v<Comp, IxPixelCompUInt8>;

  explicit IpColorMatrixFunctor(IpColorMatrixFunctorArgs const& args)
      : _projective(args.projective), _alphaScale(args.alphaScale), _vector(makeVectorCoefficients(args)) {
    std::memcpy(_m, args.m, sizeof(_m));
    std::memcpy(_t, args.t, sizeof(_t));
    _column0 = _mm_setr_ps(_m[0][0], _m[1][0], _m[2][0], 0.0f);
    _column1 = _mm_setr_ps(_m[0][1], _m[1][1], _m[2][1], 0.0f);
    _column2 = _mm_setr_ps(_m[0][2], _m[1][2], _m[2][2], 0.0f);
    _translation = _mm_setr_ps(_t[0], _t[1], _t[2], 0.0f);
    _alphaVector = _mm_set1_ps(_alphaScale);
    if constexpr (IS_8BIT) {
      _table.reset(new IpColorMatrixTable8(args, N == 4));
      _entries = _table->getEntries();
    }
  }

  void operator()(Dst& dst, Src& src) const {
    if constexpr (IS_8BIT) {
      store8(&dst, lookup8(load8(&src)));
    } else {
      float const r = Comp::toFloat(src[0].value);
      float const g = Comp::toFloat(src[1].value);
      float const b = Comp::toFloat(src[2].value);
      for (int i = 0; i < 3; ++i) dst[i].value = Comp::fromFloat(((_m[i][0] * r + _m[i][1] * g) + _m[i][2] * b) + _t[i]);
      if constexpr (N == 4) {
        if (_projective)
          dst[3].value = Comp::fromFloat(Comp::toFloat(src[3].value) * _alphaScale);
        else
          dst[3].value = src[3].value;
      }
    }
  }

  // Lines of contiguous pixels: the same results as the operator, several pixels at a time.
  void runContiguous(std::int32_t nbPixels, Dst* dst, Src* src) const {
    std::int32_t i = 0;
    if constexpr (IS_8BIT && N == 4) {
      // With AVX-512 or AVX2 the entries are recomputed in wide registers, which gives the same
      // floats as the table and needs no byte extraction. Otherwise, and for the remainder: two
      // pixels per 64-bit load, four per 16-byte store, each entry's byte offset being the
      // channel's byte shifted into place and masked (the block's start folds into the address).
      auto const* in = reinterpret_cast<std::uint8_t const*>(src);
      auto* out = reinterpret_cast<std::uint8_t*>(dst);
      if (hasAvx512())
        i = runRgba8Avx512(nbPixels, out, in, _vector);
      else if (HalfF16c::isAvailable())
        i = runRgba8Avx(nbPixels, out, in, _vector);
      auto const* table = reinterpret_cast<char const*>(_entries);
      auto entry = [table](std::uint64_t offset) { return _mm_load_ps(reinterpret_cast<float const*>(table + offset)); };
      auto sumTwo = [&entry](std::uint64_t p, __m128& first, __m128& second) {
        first = _mm_add_ps(entry((p << 4) & 0xFF0),
                           _mm_add_ps(entry(((p >> 4) & 0xFF0) + 4096),
                                      _mm_add_ps(entry(((p >> 12) & 0xFF0) + 8192), entry(((p >> 20) & 0xFF0) + 12288))));
        second = _mm_add_ps(entry((p >> 28) & 0xFF0),
                            _mm_add_ps(entry(((p >> 36) & 0xFF0) + 4096),
                                       _mm_add_ps(entry(((p >> 44) & 0xFF0) + 8192), entry(((p >> 52) & 0xFF0) + 12288))));
      };
      for (; i + 4 <= nbPixels; i += 4) {
        std::uint64_t p[2];
        std::memcpy(p, in + 4 * i, 16);
        __m128 s0, s1, s2, s3;
        sumTwo(p[0], s0, s1);
        sumTwo(p[1], s2, s3);
        __m128i const q01 = _mm_packs_epi32(_mm_cvttps_epi32(s0), _mm_cvttps_epi32(s1));
        __m128i const q23 = _mm_packs_epi32(_mm_cvttps_epi32(s2), _mm_cvttps_epi32(s3));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(out + 4 * i), _mm_packus_epi16(q01, q23));
      }
    } else if constexpr (std::is_same_v<Comp, IxPixelCompFloat32> && N == 4) {
      auto const* in = reinterpret_cast<float const*>(src);
      auto* out = reinterpret_cast<float*>(dst);
      __m128 const rgbMask = _mm_castsi128_ps(_mm_setr_epi32(-1, -1, -1, 0));
      if (_projective) {
        for (; i < nbPixels; ++i) {
          __m128 const p = _mm_loadu_ps(in + 4 * i);
          __m128 const alpha = _mm_mul_ps(p, _alphaVector);
          _mm_storeu_ps(out + 4 * i, _mm_or_ps(_mm_and_ps(rgbMask, transform(p)), _mm_andnot_ps(rgbMask, alpha)));
        }
      } else {
        for (; i < nbPixels; ++i) {
          __m128 const p = _mm_loadu_ps(in + 4 * i);
          _mm_storeu_ps(out + 4 * i, _mm_or_ps(_mm_and_ps(rgbMask, transform(p)), _mm_andnot_ps(rgbMask, p)));
        }
      }
    } else if constexpr (std::is_same_v<Comp, IxPixelCompFloat32> && N == 3) {
      // Each load takes the next pixel's red too, so the last pixel of the line goes alone below.
      auto const* in = reinterpret_cast<float const*>(src);
      auto* out = reinterpret_cast<float*>(dst);
      for (; i + 1 < nbPixels; ++i) {
        __m128 const result = transform(_mm_loadu_ps(in + 3 * i));
        _mm_storel_pi(reinterpret_cast<__m64*>(out + 3 * i), result);
        _mm_store_ss(out + 3 * i + 2, _mm_movehl_ps(result, result));
      }
    } else if constexpr (std::is_same_v<Comp, IxPixelCompFloat16> && N == 4) {
      // Two pixels per step through the exact vector half conversions.
      auto const* in = reinterpret_cast<Half::Bits const*>(src);
      auto* out = reinterpret_cast<Half::Bits*>(dst);
      __m128 const rgbMask = _mm_castsi128_ps(_mm_setr_epi32(-1, -1, -1, 0));
      __m128i const alphaBits = _mm_setr_epi16(0, 0, 0, -1, 0, 0, 0, -1);
      if (HalfF16c::isAvailable()) i = runRgba16Avx(nbPixels, out, in, _vector, !_projective);
      for (; i + 2 <= nbPixels; i += 2) {
        __m128i const h = _mm_loadu_si128(reinterpret_cast<__m128i const*>(in + 4 * i));
        __m128 low, high;
        HalfSse2::toFloat8(h, low, high);
        __m128 const alphaLow = _mm_mul_ps(low, _alphaVector);
        __m128 const alphaHigh = _mm_mul_ps(high, _alphaVector);
        low = _mm_or_ps(_mm_and_ps(rgbMask, transform(low)), _mm_andnot_ps(rgbMask, alphaLow));
        high = _mm_or_ps(_mm_and_ps(rgbMask, transform(high)), _mm_andnot_ps(rgbMask, alphaHigh));
        __m128i result = HalfSse2::fromFloat8(low, high);
        if (!_projective) result = _mm_or_si128(_mm_andnot_si128(alphaBits, result), _mm_and_si128(alphaBits, h));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(out + 4 * i), result);
      }
    }
    for (; i < nbPixels; ++i) (*this)(dst[i], src[i]);
  }

private:
  // The 8-bit forms work on the scaled matrix; alpha: the bottom right element, or 1 to copy.
  static IpVectorCoefficients makeVectorCoefficients(IpColorMatrixFunctorArgs const& args) {
    float const alphaFactor = args.projective ? args.alphaScale : 1.0f;
    if constexpr (!IS_8BIT) return IpVectorCoefficients(args.m, args.t, alphaFactor);
    float m[3][3];
    float t[3];
    scaleTo8Bits(args, m, t);
    return IpVectorCoefficients(m, t, alphaFactor);
  }

  // ((c0 r + c1 g) + c2 b) + t, lane by lane: the same operations as the scalar form.
  __m128 transform(__m128 p) const {
    __m128 const r = _mm_shuffle_ps(p, p, 0x00);
    __m128 const g = _mm_shuffle_ps(p, p, 0x55);
    __m128 const b = _mm_shuffle_ps(p, p, 0xAA);
    __m128 const sum = _mm_add_ps(_mm_add_ps(_mm_mul_ps(_column0, r), _mm_mul_ps(_column1, g)), _mm_mul_ps(_column2, b));
    return _mm_add_ps(sum, _translation);
  }

  // The bytes of an 8-bit pixel in the low bytes of an integer.
  static std::uint32_t load8(Src* src) {
    std::uint32_t p = 0;
    std::memcpy(&p, src, N);
    return p;
  }
  static void store8(Dst* dst, __m128 sum) {
    std::uint32_t const v = std::uint32_t(_mm_cvtsi128_si32(packBytes(sum)));
    std::memcpy(dst, &v, N);
  }

  // R + (G + (B + A)), or R + (G + B) without alpha.
  __m128 lookup8(std::uint32_t p) const {
    __m128 const* e = _entries;
    __m128 const blue = e[512 + ((p >> 16) & 0xFF)];
    if constexpr (N == 4)
      return _mm_add_ps(e[p & 0xFF], _mm_add_ps(e[256 + ((p >> 8) & 0xFF)], _mm_add_ps(blue, e[768 + (p >> 24)])));
    else
      return _mm_add_ps(e[p & 0xFF], _mm_add_ps(e[256 + ((p >> 8) & 0xFF)], blue));
  }

  float _m[3][3];
  float _t[3];
  bool _projective;
  float _alphaScale;
  __m128 _column0;
  __m128 _column1;
  __m128 _column2;
  __m128 _translation;
  __m128 _alphaVector;
  IpVectorCoefficients _vector;
  std::unique_ptr<IpColorMatrixTable8> _table;
  __m128 const* _entries = nullptr;
};

void applyColorMatrix(IxWriteGuard const& dst, IxReadGuard const& src, IpColorMatrixFunctorArgs const& args,
                      GeRectangle<int> const* dstRegion, GeRectangle<int> const* srcRegion) {
  IxPixelIterBase::Order dstOrder = IxPixelIterBase::ORDER_H_XPOS_YPOS;
  IxPixelIterBase::Order srcOrder = IxPixelIterBase::ORDER_H_XPOS_YPOS;
  // Each pixel is read before it is written, so only the walking orders matter for shared memory.
  ixIsInPlace(dst.getTile(), src.getTile(), dstRegion, srcRegion, dstOrder, srcOrder);
  ixPixelLoopDstrgbDstdepth<IpColorMatrixFunctor>(dst, dstRegion, dstOrder, src, srcRegion, srcOrder, args);
}

}  // namespace

void ipApplyColorMatrix(IxWriteGuard const& dst, IxReadGuard const& src, GeProjectiveMatrix3<float> const& matrix,
                        GeRectangle<int> const* dstRegion, GeRectangle<int> const* srcRegion) {
  applyColorMatrix(dst, src, IpColorMatrixFunctorArgs(matrix), dstRegion, srcRegion);
}

void ipApplyColorMatrix(IxWriteGuard const& dst, IxReadGuard const& src, GeLinearMatrix3<float> const& matrix,
                        GeRectangle<int> const* dstRegion, GeRectangle<int> const* srcRegion) {
  applyColorMatrix(dst, src, IpColorMatrixFunctorArgs(matrix), dstRegion, srcRegion);
}

}  // namespace Orn
