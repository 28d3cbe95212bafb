#pragma once
// A colour as luma y and colour differences pb and pr, for a luma standard L (CoLumaHDTV or
// CoLumaNTSC) that gives the matrices FROM_RGB and TO_RGB.

#include <orn/base/geometryBase/geStreamUtil.h>
#include <orn/pluginAPI/coRgbColorTyped.h>
#include <orn/primitives/color/coLumaHDTV.h>
#include <orn/primitives/color/coLumaNTSC.h>

#include <istream>
#include <ostream>

namespace Orn {

template <class L>
class CoYPbPrColorT {
public:
  CoYPbPrColorT() : y(0.0f), pb(0.0f), pr(0.0f) {}
  CoYPbPrColorT(float y_, float pb_, float pr_) : y(y_), pb(pb_), pr(pr_) {}
  explicit CoYPbPrColorT(CoRgbColorTyped<float> const& rgb) : CoYPbPrColorT() { convertFromRgb(rgb); }

  void setWithRgb(CoRgbColorTyped<float> const& rgb) { convertFromRgb(rgb); }
  void convertFromRgb(CoRgbColorTyped<float> const& rgb) {
    auto const& m = L::FROM_RGB;
    y = m[0][0] * rgb.r + m[0][1] * rgb.g + m[0][2] * rgb.b;
    pb = m[1][0] * rgb.r + m[1][1] * rgb.g + m[1][2] * rgb.b;
    pr = m[2][0] * rgb.r + m[2][1] * rgb.g + m[2][2] * rgb.b;
  }
  CoRgbColorTyped<float> convertToRgb() const {
    auto const& m = L::TO_RGB;
    return CoRgbColorTyped<float>(m[0][0] * y + m[0][1] * pb + m[0][2] * pr,
                                  m[1][0] * y + m[1][1] * pb + m[1][2] * pr,
                                  m[2][0] * y + m[2][1] * pb + m[2][2] * pr);
  }

  bool operator==(CoYPbPrColorT const& o) const { return y == o.y && pb == o.pb && pr == o.pr; }
  bool operator!=(CoYPbPrColorT const& o) const { return !(*this == o); }

  // "y pb pr", with enough digits for read to give back the same floats.
  void dump(std::ostream& out) const { GeStreamUtil::writeFields(out, y, pb, pr); }
  void read(std::istream& in) { in >> y >> pb >> pr; }

  float y;
  float pb;
  float pr;
};

}  // namespace Orn
