// Conversions of one-component float tiles: values are copied, never clamped.

#include "ixConvertImp.h"

namespace Orn {
namespace IxConvertImp {

namespace {

void readBlocks(Rgba* dst, float const* src, unsigned n) {
  ORN_ASSERT_TEXT(addressOf(dst) % 16 == 0, "dst % 16 == 0");
  ORN_ASSERT_TEXT(addressOf(src) % 16 == 0, "src % 16 == 0");
  for (unsigned i = 0; i < n; i += 4) storeAlphasAsColors(dst + i, _mm_load_ps(src + i));
}

void writeBlocks(float* dst, Rgba const* src, unsigned n) {
  ORN_ASSERT_TEXT(addressOf(dst) % 16 == 0, "dst % 16 == 0");
  ORN_ASSERT_TEXT(addressOf(src) % 16 == 0, "src % 16 == 0");
  for (unsigned i = 0; i < n; i += 4)
    _mm_stream_ps(dst + i, alphas4(loadColor(src + i), loadColor(src + i + 1), loadColor(src + i + 2),
                                   loadColor(src + i + 3)));
  _mm_sfence();
}

void copyBlocks(float* dst, float const* src, unsigned n) {
  ORN_ASSERT_TEXT(addressOf(dst) % 16 == 0, "dst % 16 == 0");
  ORN_ASSERT_TEXT(addressOf(src) % 16 == 0, "src % 16 == 0");
  for (unsigned i = 0; i < n; i += 4) _mm_stream_ps(dst + i, _mm_load_ps(src + i));
  _mm_sfence();
}

}  // namespace

void readA32(float* dst, Uchar const* src, unsigned n) {
  std::memcpy(dst, src, std::size_t(n) * sizeof(float));
}

void readA32(Rgba* dst, Uchar const* src, unsigned n) {
  convertInStages<4>(
      dst, reinterpret_cast<float const*>(src), n, [](Rgba& d, float const& s) { d = Rgba(0.f, 0.f, 0.f, s); },
      readBlocks);
}

void writeA32(Uchar* dst, float const* src, unsigned n) {
  convertInStages<4>(
      reinterpret_cast<float*>(dst), src, n, [](float& d, float const& s) { d = s; }, copyBlocks);
}

void writeA32(Uchar* dst, Rgba const* src, unsigned n) {
  convertInStages<4>(
      reinterpret_cast<float*>(dst), src, n, [](float& d, Rgba const& s) { d = s.a; }, writeBlocks);
}

}  // namespace IxConvertImp
}  // namespace Orn
