#include <orn/primitives/color/coUtils.h>

#include <cmath>

namespace Orn {

CoRgbColorTyped<float> CoUtils::calcLuminance(CoRgbColorTyped<float> const& rgb, float factor) {
  CoHsvColor hsv(rgb);
  hsv.v *= std::fabs(factor);
  return hsv.convertToRgb();
}

CoHsvColor CoUtils::constructHsv(float a, float b, float c, CoTypes::ColorSpace colorSpace) {
  if (colorSpace == CoTypes::HSV_SPACE) return CoHsvColor(a, b, c);
  return CoHsvColor(CoRgbColorTyped<float>(a, b, c));
}

CoRgbColorTyped<float> CoUtils::constructRgb(float a, float b, float c, CoTypes::ColorSpace colorSpace) {
  if (colorSpace == CoTypes::HSV_SPACE) return CoHsvColor(a, b, c).convertToRgb();
  return CoRgbColorTyped<float>(a, b, c);
}

CoRgbColorTyped<float> CoUtils::getAutoColor(int index, bool reverse) {
  int const m = index % 30;  // negative for a negative index
  int group = m / 10;
  if (reverse) group = 2 - group;
  CoHsvColor hsv(float((m % 10) * 36), 1.0f, 1.0f);
  switch (group) {
    case 0:
      break;
    case 1:
      hsv.v = 0.75f;
      break;
    case 2:
      hsv.v = 0.5f;
      break;
    default:
      hsv.h = 0.0f;
      break;
  }
  return hsv.convertToRgb();
}

}  // namespace Orn
