#pragma once
// Row converters between tile storage and the float forms of scanlines.
//
// A float line is an alpha plane: it reads a tile's alpha (1.0 for RGB tiles, whose memory is
// then not read) and writes one-component tiles only. A colour line reads and writes
// one-, three- and four-component tiles: one component maps to alpha, RGB reads alpha as 1 and
// drops it on writes. A complex line reads and writes ALPHA COMPLEX tiles only.
//
// Depths 8, 16 and 32 convert with the component types' per-pixel rules, except in the aligned
// blocks of the faster paths, where 8-bit stores round half to even (NaN stores 255) and half
// stores round denormal results correctly. Such a block store of halves leaves flush-to-zero
// off in the thread's MXCSR. Blocks write the tile with non-temporal stores.

#include <orn/pluginAPI/coRgbaColorTyped.h>
#include <orn/pluginAPI/ixPixelFormat.h>

#include <complex>

namespace Orn {

class IxConvertUtil {
public:
  static void readFrom(float* dst, unsigned char const* src, unsigned int nbPixels, IxPixelFormat const& srcFormat);
  static void readFrom(CoRgbaColorTyped<float>* dst, unsigned char const* src, unsigned int nbPixels,
                       IxPixelFormat const& srcFormat);
  static void readFrom(std::complex<float>* dst, unsigned char const* src, unsigned int nbPixels,
                       IxPixelFormat const& srcFormat);

  static void writeTo(unsigned char* dst, float const* src, unsigned int nbPixels, IxPixelFormat const& dstFormat);
  static void writeTo(unsigned char* dst, CoRgbaColorTyped<float> const* src, unsigned int nbPixels,
                      IxPixelFormat const& dstFormat);
  static void writeTo(unsigned char* dst, std::complex<float> const* src, unsigned int nbPixels,
                      IxPixelFormat const& dstFormat);
};

}  // namespace Orn
