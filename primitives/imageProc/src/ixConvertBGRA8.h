#pragma once
// Conversion of a run of pixels to 8-bit BGRA, for IxPixelConversion. Internal to the library.

#include <orn/pluginAPI/ixPixelFormat.h>

#include <cstddef>

namespace Orn {
namespace IxConvertBGRA8 {

// Converts nbPixels pixels of srcFormat at src to BGRA bytes at dst, which must lie on a
// 16-byte boundary; only srcBytes bytes at src are read (missing source bytes read as zero).
// Raises for formats that have no conversion and for counts that are not a multiple of the
// format's block, before anything is written.
void convert(unsigned char* dst, unsigned char const* src, unsigned int nbPixels, std::size_t srcBytes,
             IxPixelFormat const& srcFormat);

}  // namespace IxConvertBGRA8
}  // namespace Orn
