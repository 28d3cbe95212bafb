#pragma once
// Native description of a video format: an image format with a frame rate.

#include <orn/base/containers/constIterator.h>
#include <orn/primitives/formats/fmtImageFormat.h>
#include <orn/resmgt/liRateRegistry.h>

namespace Orn {

class FmtVideoFormat : public FmtImageFormat {
public:
  // The registry type of video formats, "Video".
  static LiString const TYPE;

  FmtVideoFormat(unsigned width, unsigned height, ImPixelFormat const& pixelFormat, Rational pixelRatio,
                 LiRateRegistry::Entry const& rate);

  LiRateRegistry::Entry const& getRateEntry() const { return _rate; }

  FmtVideoFormat* clone() const override;
  // The image description, a blank and the rate in Hz, e.g. "1920x1080 8-Bits RGB 29.97Hz".
  LiString generateDesc() const override;
  void dump(std::ostream& out) const override;
  // Same dynamic type, same image fields and same rate.
  bool operator==(FmtFormatDesc::Native const& other) const override;

  // The description of a video format with these values. The rate is printed in decimal with at
  // most three decimals.
  static LiString generateDesc(unsigned width, unsigned height, ImPixelFormat const& pixelFormat,
                               Rational const& pixelRatio, Rational const& rate);

  // The distinct rates of the registered video formats, in rate order. The rate of a format is
  // read from the rate name field of its format name; names that carry none are skipped.
  static ConstIterator<LiRateRegistry::Entry> getAllVideoRates();

private:
  LiRateRegistry::Entry _rate;
};

}  // namespace Orn
