#include <orn/primitives/imageProc/ixConvertUtil.h>

#include "ixConvertImp.h"

#include <cstring>

namespace Orn {

using namespace IxConvertImp;

namespace {

// A format that the dispatch has no converter for.
[[noreturn]] void abortUnsupported(int line) {
  Assertions::throwProgramAborted("ixConvertUtil", line, nullptr);
}

}  // namespace

namespace IxConvertImp {

// Four-component 8-bit tiles. A colour row stores every pixel by the block arithmetic, so that
// the hottest path rounds the same way whatever the alignment.

void readRGBA8(float* dst, Uchar const* src, unsigned n) {
  IxPixel<IxPixelCompUInt8, 4> const* const s = reinterpret_cast<IxPixel<IxPixelCompUInt8, 4> const*>(src);
  for (unsigned i = 0; i < n; ++i) dst[i] = s[i][3].get();
}

void readRGBA8(Rgba* dst, Uchar const* src, unsigned n) {
  for (unsigned i = 0; i < n; ++i, src += 4)
    dst[i] = Rgba(IxPixelCompUInt8::toFloat(src[0]), IxPixelCompUInt8::toFloat(src[1]),
                  IxPixelCompUInt8::toFloat(src[2]), IxPixelCompUInt8::toFloat(src[3]));
}

void writeRGBA8(Uchar* dst, Rgba const* src, unsigned n) {
  for (unsigned i = 0; i < n; ++i, dst += 4) {
    dst[0] = blockToUInt8(src[i].r);
    dst[1] = blockToUInt8(src[i].g);
    dst[2] = blockToUInt8(src[i].b);
    dst[3] = blockToUInt8(src[i].a);
  }
}

}  // namespace IxConvertImp

void IxConvertUtil::readFrom(float* dst, unsigned char const* src, unsigned int nbPixels,
                             IxPixelFormat const& srcFormat) {
  switch (srcFormat.getDepth()) {
    case IxPixelFormat::UINT8:
      switch (srcFormat.getComps()) {
        case IxPixelFormat::ALPHA: return readA8(dst, src, nbPixels);
        case IxPixelFormat::RGB: return readRGB8(dst, src, nbPixels);
        case IxPixelFormat::RGBA: return readRGBA8(dst, src, nbPixels);
        default: break;
      }
      break;
    case IxPixelFormat::FLOAT16:
      switch (srcFormat.getComps()) {
        case IxPixelFormat::ALPHA: return readA16(dst, src, nbPixels);
        case IxPixelFormat::RGB: return readRGB16(dst, src, nbPixels);
        case IxPixelFormat::RGBA: return readRGBA16(dst, src, nbPixels);
        default: break;
      }
      break;
    case IxPixelFormat::FLOAT32:
      switch (srcFormat.getComps()) {
        case IxPixelFormat::ALPHA: return readA32(dst, src, nbPixels);
        case IxPixelFormat::RGB: return readRGB32(dst, src, nbPixels);
        case IxPixelFormat::RGBA: return readRGBA32(dst, src, nbPixels);
        default: break;
      }
      break;
    default:
      break;
  }
  abortUnsupported(__LINE__);
}

void IxConvertUtil::readFrom(CoRgbaColorTyped<float>* dst, unsigned char const* src, unsigned int nbPixels,
                             IxPixelFormat const& srcFormat) {
  switch (srcFormat.getDepth()) {
    case IxPixelFormat::UINT8:
      switch (srcFormat.getComps()) {
        case IxPixelFormat::ALPHA: return readA8(dst, src, nbPixels);
        case IxPixelFormat::RGB: return readRGB8(dst, src, nbPixels);
        case IxPixelFormat::RGBA: return readRGBA8(dst, src, nbPixels);
        default: break;
      }
      break;
    case IxPixelFormat::FLOAT16:
      switch (srcFormat.getComps()) {
        case IxPixelFormat::ALPHA: return readA16(dst, src, nbPixels);
        case IxPixelFormat::RGB: return readRGB16(dst, src, nbPixels);
        case IxPixelFormat::RGBA: return readRGBA16(dst, src, nbPixels);
        default: break;
      }
      break;
    case IxPixelFormat::FLOAT32:
      switch (srcFormat.getComps()) {
        case IxPixelFormat::ALPHA: return readA32(dst, src, nbPixels);
        case IxPixelFormat::RGB: return readRGB32(dst, src, nbPixels);
        case IxPixelFormat::RGBA: return readRGBA32(dst, src, nbPixels);
        default: break;
      }
      break;
    default:
      break;
  }
  abortUnsupported(__LINE__);
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
  switch (dstFormat.getDepth()) {
    case IxPixelFormat::UINT8:
      switch (dstFormat.getComps()) {
        case IxPixelFormat::ALPHA: return writeA8(dst, src, nbPixels);
        case IxPixelFormat::RGB: return writeRGB8(dst, src, nbPixels);
        case IxPixelFormat::RGBA: return writeRGBA8(dst, src, nbPixels);
        default: break;
      }
      break;
    case IxPixelFormat::FLOAT16:
      switch (dstFormat.getComps()) {
        case IxPixelFormat::ALPHA: return writeA16(dst, src, nbPixels);
        case IxPixelFormat::RGB: return writeRGB16(dst, src, nbPixels);
        case IxPixelFormat::RGBA: return writeRGBA16(dst, src, nbPixels);
        default: break;
      }
      break;
    case IxPixelFormat::FLOAT32:
      switch (dstFormat.getComps()) {
        case IxPixelFormat::ALPHA: return writeA32(dst, src, nbPixels);
        case IxPixelFormat::RGB: return writeRGB32(dst, src, nbPixels);
        case IxPixelFormat::RGBA: return writeRGBA32(dst, src, nbPixels);
        default: break;
      }
      break;
    default:
      break;
  }
  abortUnsupported(__LINE__);
}

void IxConvertUtil::writeTo(unsigned char* dst, std::complex<float> const* src, unsigned int nbPixels,
                            IxPixelFormat const& dstFormat) {
  ORN_ASSERT(dstFormat.getComps() == IxPixelFormat::ALPHA);
  ORN_ASSERT(dstFormat.getDepth() == IxPixelFormat::COMPLEX);
  if (nbPixels) std::memcpy(dst, src, std::size_t(nbPixels) * 8);
}

}  // namespace Orn
