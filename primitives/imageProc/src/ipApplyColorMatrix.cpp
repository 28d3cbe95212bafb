#include <orn/primitives/imageProc/ipApplyColorMatrix.h>

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

// The 8-bit form: four blocks of 256 four-float entries, one block per source channel, holding that
// channel's contribution to every output channel for each byte value, the translation folded into
// the red block. A pixel is then four loads and three additions. The matrix is first brought to
// the 0..255 range: S(255) M S(1/255), so the 3x3 block is kept and the translation scaled by 255.
class IpColorMatrixTable8 {
public:
  IpColorMatrixTable8(IpColorMatrixFunctorArgs const& a, bool withAlpha)
      : _storage(new float[(withAlpha ? 4 : 3) * 256 * 4 + 4]) {
    // 16 bytes beyond the entries leave room to align their start.
    auto const address = reinterpret_cast<std::uintptr_t>(_storage.get());
    _entries = reinterpret_cast<__m128*>((address + 15) & ~std::uintptr_t(15));
    float m[3][3];
    float t[3];
    for (int i = 0; i < 3; ++i) {
      for (int j = 0; j < 3; ++j) m[i][j] = (a.m[i][j] * 255.0f) * 0.003921569f;
      t[i] = a.t[i] * 255.0f;
    }
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

template <class Dst, class Src>
class IpColorMatrixFunctor : public IxPixelFunctor<Dst, Src> {
public:
  using Comp = typename std::remove_const_t<Dst>::CompType;
  static constexpr int N = Dst::NB_COMPS;
  static constexpr bool IS_8BIT = std::is_same_v<Comp, IxPixelCompUInt8>;

  explicit IpColorMatrixFunctor(IpColorMatrixFunctorArgs const& args)
      : _projective(args.projective), _alphaScale(args.alphaScale) {
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
      // Four pixels per step: one 16-byte load, sixteen table loads, one 16-byte store.
      auto const* in = reinterpret_cast<std::uint8_t const*>(src);
      auto* out = reinterpret_cast<std::uint8_t*>(dst);
      for (; i + 4 <= nbPixels; i += 4) {
        std::uint32_t p[4];
        std::memcpy(p, in + 4 * i, 16);
        __m128i const q01 = _mm_packs_epi32(_mm_cvttps_epi32(lookup8(p[0])), _mm_cvttps_epi32(lookup8(p[1])));
        __m128i const q23 = _mm_packs_epi32(_mm_cvttps_epi32(lookup8(p[2])), _mm_cvttps_epi32(lookup8(p[3])));
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
