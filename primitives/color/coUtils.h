#pragma once
// Small colour helpers: brightness scaling, building colours in either space, and a palette.

#include <orn/pluginAPI/coRgbColorTyped.h>
#include <orn/primitives/color/coHsvColor.h>
#include <orn/primitives/color/coTypes.h>

namespace Orn {

class CoUtils {
public:
  // The colour with its HSV value multiplied by |factor|, hue and saturation kept.
  static CoRgbColorTyped<float> calcLuminance(CoRgbColorTyped<float> const& rgb, float factor);

  // (a, b, c) read in colorSpace and returned as HSV, or as RGB.
  static CoHsvColor constructHsv(float a, float b, float c, CoTypes::ColorSpace colorSpace);
  static CoRgbColorTyped<float> constructRgb(float a, float b, float c, CoTypes::ColorSpace colorSpace);

  // A colour for item index of an open-ended list: ten hues 36 degrees apart, each in three
  // brightnesses (1, 0.75, 0.5), repeating every 30 items. reverse runs the brightnesses from dark
  // to bright. A negative index whose remainder by 30 lies below -9 gives pure red.
  static CoRgbColorTyped<float> getAutoColor(int index, bool reverse);
};

}  // namespace Orn
