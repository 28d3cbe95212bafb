#pragma once
// Wide loops of the 8-bit lookup-table operators, for processors with AVX-512 byte permutes
// (AVX512BW and AVX512VBMI, with BMI2 and FMA). They give the bytes of the SSE2 and scalar loops
// exactly. Turning them off lets the narrow loops be checked on any machine.

#include <cstdint>

namespace Orn {
namespace IpLutPaths {

bool isWideAvailable();
// Whether the operators use the wide loops now.
bool isWideEnabled();
// Enables the wide loops where available, or disables them; returns the previous setting.
bool setWideEnabled(bool enabled);

// n bytes through a table of 256 bytes. Only while isWideEnabled().
void lookupBytesWide(std::uint8_t const* table, std::uint8_t* out, std::uint8_t const* in, std::int32_t n);

// The tables of the 8-bit colour-matrix loop. red, green and blue are 256 entries of four floats
// each, 16-byte aligned, holding a source byte's contribution to the three colour channels (the
// fourth float is not read). alpha gives the stored alpha byte of each source alpha byte.
struct RgbaMatrixTables {
  float const* red;
  float const* green;
  float const* blue;
  std::uint8_t const* alpha;
};

// Pixels of four bytes: colour channel c is red[r][c] + (green[g][c] + blue[b][c]), truncated and
// saturated to 0..255; alpha is alpha[a]. Does the pixels in whole blocks of 16 and returns how
// many it did. Only while isWideEnabled().
std::int32_t matrixRgbaWide(RgbaMatrixTables const& tables, std::uint8_t* out, std::uint8_t const* in,
                            std::int32_t nbPixels);

}  // namespace IpLutPaths
}  // namespace Orn
