#pragma once
// A colour as hue (degrees, [0, 360)), saturation and value.

#include <orn/pluginAPI/coRgbColorTyped.h>

#include <istream>
#include <ostream>

namespace Orn {

class CoHsvColor {
public:
  CoHsvColor() : h(0.0f), s(0.0f), v(0.0f) {}
  CoHsvColor(float h_, float s_, float v_) : h(h_), s(s_), v(v_) {}
  explicit CoHsvColor(CoRgbColorTyped<float> const& rgb) : CoHsvColor() { convertFromRgb(rgb); }

  // Sets h, s and v from rgb. A grey (or black) gives h = 0 and s = 0.
  void convertFromRgb(CoRgbColorTyped<float> const& rgb);
  // Sets s and v only; h keeps its value. A grey gives s = 0 and v = 0 (not its level).
  void convertFromRgbToSvOnly(CoRgbColorTyped<float> const& rgb);
  // The rgb colour; h is taken modulo 360, s <= 0 gives a grey of value v.
  CoRgbColorTyped<float> convertToRgb() const;

  bool operator==(CoHsvColor const& o) const { return h == o.h && s == o.s && v == o.v; }
  bool operator!=(CoHsvColor const& o) const { return !(*this == o); }

  // "h s v", with enough digits for read to give back the same floats.
  void dump(std::ostream& out) const;
  void read(std::istream& in);

  float h;
  float s;
  float v;
};

}  // namespace Orn
