#include <orn/primitives/formats/fmtImageFormat.h>

#include <orn/base/except/assertions.h>

#include <sstream>
#include <typeinfo>

namespace Orn {

namespace {

char const* depthLabel(int bitsPerComponent) {
  switch (bitsPerComponent) {
    case 8:
      return "8-Bits ";
    case 16:
      return "16-Bits ";
    case 32:
      return "32-Bits ";
    default:
      ORN_ABORT("unsupported pixel depth");
  }
}

char const* layoutLabel(int comps) {
  switch (comps) {
    case 1:
      return "GrayScale";
    case 2:
      return "TwoComponents";
    case 3:
      return "RGB";
    case 4:
      return "RGBA";
    default:
      ORN_ABORT("unsupported component count");
  }
}

}  // namespace

LiString const FmtImageFormat::TYPE("Image");

FmtImageFormat::FmtImageFormat(unsigned width, unsigned height, ImPixelFormat const& pixelFormat,
                               Rational pixelRatio)
    : _width(width), _height(height), _pixelFormat(pixelFormat), _pixelRatio(pixelRatio) {}

FmtImageFormat* FmtImageFormat::clone() const { return new FmtImageFormat(*this); }

LiString FmtImageFormat::generateDesc() const {
  return generateDesc(_width, _height, _pixelFormat, _pixelRatio);
}

LiString FmtImageFormat::generateDesc(unsigned width, unsigned height, ImPixelFormat const& pixelFormat,
                                      Rational const& pixelRatio) {
  std::ostringstream text;
  text << width << 'x' << height << ' ' << depthLabel(pixelFormat.getBitsPerComponent())
       << layoutLabel(pixelFormat.getComps());
  // Compared by value: 2:2 is square pixels as well.
  if (pixelRatio != Rational(1, 1)) {
    text << ' ' << pixelRatio.getNumerator() << ':' << pixelRatio.getDenominator();
  }
  return LiString(text.str());
}

void FmtImageFormat::dumpImage(std::ostream& out) const {
  out << _width << 'x' << _height << ", ";
  _pixelFormat.dump(out);
  out << ", pixel ratio " << _pixelRatio.getNumerator() << ':' << _pixelRatio.getDenominator();
}

void FmtImageFormat::dump(std::ostream& out) const {
  out << "FmtImageFormat(";
  dumpImage(out);
  out << ")\n";
}

bool FmtImageFormat::hasSameImage(FmtImageFormat const& other) const {
  return _width == other._width && _height == other._height && _pixelFormat == other._pixelFormat &&
         _pixelRatio == other._pixelRatio;
}

bool FmtImageFormat::operator==(FmtFormatDesc::Native const& other) const {
  if (typeid(*this) != typeid(other)) return false;
  return hasSameImage(dynamic_cast<FmtImageFormat const&>(other));
}

}  // namespace Orn
