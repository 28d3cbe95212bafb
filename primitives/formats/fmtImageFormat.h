#pragma once
// Native description of a still image format: size, pixel format and pixel aspect ratio.

#include <orn/base/geometryBase/rational.h>
#include <orn/primitives/formats/fmtFormatDesc.h>
#include <orn/primitives/formats/imPixelFormat.h>

namespace Orn {

class FmtImageFormat : public virtual FmtFormatDesc::Native {
public:
  // The registry type of image formats, "Image".
  static LiString const TYPE;

  FmtImageFormat(unsigned width, unsigned height, ImPixelFormat const& pixelFormat, Rational pixelRatio);

  unsigned getWidth() const { return _width; }
  unsigned getHeight() const { return _height; }
  ImPixelFormat const& getPixelFormat() const { return _pixelFormat; }
  // Pixel width to pixel height.
  Rational const& getPixelRatio() const { return _pixelRatio; }

  FmtImageFormat* clone() const override;
  // "WxH", a blank, the depth and layout labels ("8-Bits RGB"), then " n:d" when the pixel ratio
  // is not 1.
  LiString generateDesc() const override;
  void dump(std::ostream& out) const override;
  // Same dynamic type, size, pixel format and pixel ratio (by value).
  bool operator==(FmtFormatDesc::Native const& other) const override;

  // The description of an image format with these values. A depth other than 8, 16 or 32 bits, or
  // a component count outside 1 to 4, aborts.
  static LiString generateDesc(unsigned width, unsigned height, ImPixelFormat const& pixelFormat,
                               Rational const& pixelRatio);

protected:
  // The image fields alone, for derived comparisons.
  bool hasSameImage(FmtImageFormat const& other) const;
  void dumpImage(std::ostream& out) const;

private:
  unsigned _width;
  unsigned _height;
  ImPixelFormat _pixelFormat;
  Rational _pixelRatio;
};

}  // namespace Orn
