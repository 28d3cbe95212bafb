#include <orn/pluginAPI/piPixelLoopTwoSources.h>
#include <orn/primitives/imageProc/ipCombineRGBWithA.h>

namespace Orn {

namespace {

class CombineRGBWithAProc {
 public:
  void processLine(CoRgbaColorTyped<float>* dst, CoRgbaColorTyped<float> const* rgb,
                   CoRgbaColorTyped<float> const* alpha, int nbPixels) const {
    for (int i = 0; i < nbPixels; ++i) dst[i] = CoRgbaColorTyped<float>(rgb[i].r, rgb[i].g, rgb[i].b, alpha[i].a);
  }
};

}  // namespace

void ipCombineRGBWithA(IxWriteGuard const& dst, IxReadGuard const& rgb, IxReadGuard const& alpha) {
  CombineRGBWithAProc proc;
  PiPixelLoopTwoSources::run(dst, rgb, alpha, nullptr, proc);
}

}  // namespace Orn
