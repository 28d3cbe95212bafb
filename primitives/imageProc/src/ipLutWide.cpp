// The AVX-512 loops of the 8-bit lookup-table operators. A 256-byte table fits in four 64-byte
// registers, and two-register byte permutes look up 64 bytes at a time: one permute serves the
// indexes below 128, the other those from 128, and the top bit of each index picks between them.

#include "ipLutPaths.h"

#include <immintrin.h>

#include <atomic>
#include <cstring>

// GCC 12's AVX-512 headers trip its own uninitialised-value warnings (their undefined pass-through
// operands); nothing here is uninitialised.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wuninitialized"
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"

#define ORN_TARGET_LUT_WIDE __attribute__((target("avx512f,avx512bw,avx512vbmi,bmi2,fma")))

namespace Orn {

namespace {

bool wideAvailable() {
  static bool const available = [] {
    __builtin_cpu_init();
    return __builtin_cpu_supports("avx512bw") && __builtin_cpu_supports("avx512vbmi") &&
           __builtin_cpu_supports("bmi2") && __builtin_cpu_supports("fma");
  }();
  return available;
}

std::atomic<bool>& wideEnabled() {
  static std::atomic<bool> enabled{wideAvailable()};
  return enabled;
}

struct ByteTable {
  __m512i quarter[4];
};

ORN_TARGET_LUT_WIDE inline ByteTable loadByteTable(std::uint8_t const* table) {
  return ByteTable{{_mm512_loadu_si512(table), _mm512_loadu_si512(table + 64), _mm512_loadu_si512(table + 128),
                    _mm512_loadu_si512(table + 192)}};
}

ORN_TARGET_LUT_WIDE inline __m512i lookup64(ByteTable const& t, __m512i indexes) {
  __m512i const low = _mm512_permutex2var_epi8(t.quarter[0], indexes, t.quarter[1]);
  __m512i const high = _mm512_permutex2var_epi8(t.quarter[2], indexes, t.quarter[3]);
  return _mm512_mask_blend_epi8(_mm512_movepi8_mask(indexes), low, high);
}

ORN_TARGET_LUT_WIDE void lookupBytes(std::uint8_t const* table, std::uint8_t* out, std::uint8_t const* in,
                                     std::int32_t n) {
  ByteTable const t = loadByteTable(table);
  std::int32_t i = 0;
  for (; i + 128 <= n; i += 128) {
    __m512i const a = _mm512_loadu_si512(in + i);
    __m512i const b = _mm512_loadu_si512(in + i + 64);
    _mm512_storeu_si512(out + i, lookup64(t, a));
    _mm512_storeu_si512(out + i + 64, lookup64(t, b));
  }
  for (; i < n; i += 64) {
    // The last block is masked: bytes past the end are neither read nor written.
    std::int32_t const left = n - i;
    __mmask64 const mask = left >= 64 ? ~__mmask64(0) : (__mmask64(1) << left) - 1;
    _mm512_mask_storeu_epi8(out + i, mask, lookup64(t, _mm512_maskz_loadu_epi8(mask, in + i)));
  }
}

// Shift counts of the offset arithmetic. They are kept opaque to the compiler so that it shifts
// with the three-operand BMI2 forms rather than copying the pixel before each shift.
struct Shifts {
  std::uint32_t four = 4;
  std::uint32_t twelve = 12;
};

// a + b, rounded once: a multiply-add by exactly 1 rounds the exact sum as the addition does. On
// some processors it runs on other units than the additions, which are the busiest here.
ORN_TARGET_LUT_WIDE inline __m128 add(__m128 a, __m128 b) { return _mm_fmadd_ps(a, _mm_set1_ps(1.f), b); }

ORN_TARGET_LUT_WIDE inline __m128 entry(float const* table, std::uint32_t offset) {
  return _mm_load_ps(reinterpret_cast<float const*>(reinterpret_cast<char const*>(table) + offset));
}

// Truncated sums of the colour of one pixel, as four 32-bit lanes (the fourth being unused).
ORN_TARGET_LUT_WIDE inline __m128i colourOf(IpLutPaths::RgbaMatrixTables const& t, Shifts const& s,
                                            std::uint32_t pixel) {
  // Entries are 16 bytes: the offsets are the bytes times 16.
  __m128 const red = entry(t.red, (pixel << s.four) & 0xFF0);
  __m128 const green = entry(t.green, (pixel >> s.four) & 0xFF0);
  __m128 const blue = entry(t.blue, (pixel >> s.twelve) & 0xFF0);
  return _mm_cvttps_epi32(add(red, add(green, blue)));
}

// Four pixels to 16 bytes, saturated to 16-bit signed and then to 8-bit unsigned.
ORN_TARGET_LUT_WIDE inline __m128i colourOf4(IpLutPaths::RgbaMatrixTables const& t, Shifts const& s,
                                             std::uint8_t const* in) {
  std::uint32_t p[4];
  std::memcpy(p, in, 16);
  __m128i const words01 = _mm_packs_epi32(colourOf(t, s, p[0]), colourOf(t, s, p[1]));
  __m128i const words23 = _mm_packs_epi32(colourOf(t, s, p[2]), colourOf(t, s, p[3]));
  return _mm_packus_epi16(words01, words23);
}

ORN_TARGET_LUT_WIDE std::int32_t matrixRgba(IpLutPaths::RgbaMatrixTables const& tables, std::uint8_t* out,
                                            std::uint8_t const* in, std::int32_t nbPixels) {
  // Local copies: the stores below could otherwise alias the table pointers.
  IpLutPaths::RgbaMatrixTables const t = tables;
  Shifts s;
  asm("" : "+r"(s.four), "+r"(s.twelve));
  ByteTable const alpha = loadByteTable(t.alpha);
  __mmask64 const alphaBytes = 0x8888888888888888ull;
  std::int32_t i = 0;
  for (; i + 16 <= nbPixels; i += 16) {
    std::uint8_t const* const block = in + 4 * i;
    // Every byte goes through the alpha table; only the alpha bytes are kept.
    __m512i const alphas = lookup64(alpha, _mm512_loadu_si512(block));
    __m256i const low =
        _mm256_inserti128_si256(_mm256_castsi128_si256(colourOf4(t, s, block)), colourOf4(t, s, block + 16), 1);
    __m256i const high =
        _mm256_inserti128_si256(_mm256_castsi128_si256(colourOf4(t, s, block + 32)), colourOf4(t, s, block + 48), 1);
    __m512i const colours = _mm512_inserti64x4(_mm512_castsi256_si512(low), high, 1);
    _mm512_storeu_si512(out + 4 * i, _mm512_mask_blend_epi8(alphaBytes, colours, alphas));
  }
  return i;
}

}  // namespace

#pragma GCC diagnostic pop

bool IpLutPaths::isWideAvailable() { return wideAvailable(); }

bool IpLutPaths::isWideEnabled() { return wideEnabled().load(std::memory_order_relaxed); }

bool IpLutPaths::setWideEnabled(bool enabled) { return wideEnabled().exchange(enabled && wideAvailable()); }

void IpLutPaths::lookupBytesWide(std::uint8_t const* table, std::uint8_t* out, std::uint8_t const* in,
                                 std::int32_t n) {
  lookupBytes(table, out, in, n);
}

std::int32_t IpLutPaths::matrixRgbaWide(RgbaMatrixTables const& tables, std::uint8_t* out, std::uint8_t const* in,
                                        std::int32_t nbPixels) {
  return matrixRgba(tables, out, in, nbPixels);
}

}  // namespace Orn
