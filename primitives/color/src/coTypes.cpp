#include <orn/primitives/color/coTypes.h>

namespace Orn {

CoTypes::ColorComponent CoTypes::colorComponentFromText(std::string_view text) {
  struct Entry {
    std::string_view name;
    ColorComponent value;
  };
  static constexpr Entry entries[] = {
      {"RED", RED},      {"GREEN", GREEN}, {"BLUE", BLUE},   {"NB_RGB_COMPONENTS", NB_RGB_COMPONENTS},
      {"LUMINANCE", LUMINANCE}, {"HUE", HUE}, {"SAT", SAT}, {"VALUE", VALUE},
      {"NB_HSV_COMPONENTS", NB_HSV_COMPONENTS},
  };
  for (Entry const& e : entries)
    if (e.name == text) return e.value;
  return RED;
}

CoTypes::ColorSpace CoTypes::colorSpaceFromText(std::string_view text) {
  if (text == "HSV_SPACE") return HSV_SPACE;
  return RGB_SPACE;
}

}  // namespace Orn
