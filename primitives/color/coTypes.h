#pragma once
// Names of colour spaces and colour components, and their parsing from text.

#include <string_view>

namespace Orn {

class CoTypes {
public:
  enum ColorSpace { RGB_SPACE = 0, HSV_SPACE = 1 };

  // RGB and HSV components share the values 0 to 2; 3 is the count, or luminance.
  enum ColorComponent {
    RED = 0,
    GREEN = 1,
    BLUE = 2,
    NB_RGB_COMPONENTS = 3,
    LUMINANCE = 3,
    HUE = 0,
    SAT = 1,
    VALUE = 2,
    NB_HSV_COMPONENTS = 3,
  };

  // The component named exactly (case-sensitive) by an enumerator; anything else gives 0.
  static ColorComponent colorComponentFromText(std::string_view text);
  // "RGB_SPACE" or "HSV_SPACE"; anything else gives RGB_SPACE.
  static ColorSpace colorSpaceFromText(std::string_view text);
};

}  // namespace Orn
