#include <orn/primitives/color/coHsvColor.h>

#include <orn/primitives/color/coColorConversion.h>

#include <orn/base/geometryBase/geStreamUtil.h>

namespace Orn {

namespace {

void computeMinMax(CoRgbColorTyped<float> const& rgb, float& minV, float& maxV) {
  maxV = rgb.r;
  if (rgb.g > maxV) maxV = rgb.g;
  if (rgb.b > maxV) maxV = rgb.b;
  minV = rgb.r;
  if (rgb.g < minV) minV = rgb.g;
  if (rgb.b < minV) minV = rgb.b;
}

}  // namespace

void CoHsvColor::convertFromRgb(CoRgbColorTyped<float> const& rgb) {
  float minV;
  float maxV;
  computeMinMax(rgb, minV, maxV);
  v = maxV;
  if (minV >= maxV) {
    h = 0.0f;
    s = 0.0f;
    return;
  }
  float const d = maxV - minV;
  s = d / maxV;
  float const rc = (maxV - rgb.r) / d;
  float const gc = (maxV - rgb.g) / d;
  float const bc = (maxV - rgb.b) / d;
  double x = 0.0;  // stays 0 when no component equals the maximum (NaN input)
  if (rgb.r == maxV) {
    x = double(bc) - double(gc);
  } else if (rgb.g == maxV) {
    x = double(rc) + 2.0 - double(bc);
  } else if (rgb.b == maxV) {
    x = 4.0 - double(rc) + double(gc);
  }
  h = float((x < 0.0 ? x + 6.0 : x) * 60.0);
}

void CoHsvColor::convertFromRgbToSvOnly(CoRgbColorTyped<float> const& rgb) {
  float minV;
  float maxV;
  computeMinMax(rgb, minV, maxV);
  // Unlike convertFromRgb, a grey (all channels equal) gives value 0 as well as saturation 0; the
  // blend modes that take saturation or value from a layer rely on this.
  bool const grey = minV >= maxV;
  s = grey ? 0.0f : (maxV - minV) / maxV;
  v = grey ? 0.0f : maxV;
}

CoRgbColorTyped<float> CoHsvColor::convertToRgb() const {
  float r;
  float g;
  float b;
  CoColorConversion::convertHSVToRGB(h, s, v, &r, &g, &b);
  return CoRgbColorTyped<float>(r, g, b);
}

void CoHsvColor::dump(std::ostream& out) const { GeStreamUtil::writeFields(out, h, s, v); }

void CoHsvColor::read(std::istream& in) { in >> h >> s >> v; }

}  // namespace Orn
