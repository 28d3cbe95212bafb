// Negative, sum and difference of the test images in every depth.

#include "demoImages.h"
#include "demoSections.h"
#include "pngWriter.h"

#include <orn/primitives/imageProc/ipAdd.h>
#include <orn/primitives/imageProc/ipNegative.h>
#include <orn/primitives/imageProc/ipSubtract.h>

#include <cstdio>

using namespace Orn;

namespace OrnDemo {

namespace {

void save(IxTile const& tile, std::string const& outDir, std::string const& name) {
  std::string const path = outDir + "/" + name + ".png";
  writePng(IxReadGuard(tile), path);
  std::printf("  wrote %s\n", path.c_str());
}

void runPixelOps(std::string const& outDir) {
  struct Depth {
    IxPixelFormat::Depth depth;
    char const* name;
  };
  for (Depth d : {Depth{IxPixelFormat::UINT8, "8bit"}, Depth{IxPixelFormat::FLOAT16, "half"},
                  Depth{IxPixelFormat::FLOAT32, "float"}}) {
    IxPixelFormat const format(IxPixelFormat::RGBA, d.depth);
    IxTile const gradient = makeGradientImage(format);
    IxTile const rings = makeRingsImage(format);
    save(gradient, outDir, std::string("source_gradient_") + d.name);

    IxTile const negative(format, gradient.getPixelRegion(), gradient.getFillColor());
    ipNegative(IxWriteGuard(negative), IxReadGuard(gradient), nullptr, nullptr);
    save(negative, outDir, std::string("negative_") + d.name);

    // In place, over the centre only.
    IxTile const partly = makeGradientImage(format);
    GeRectangle<int> const centre(IMAGE_SIZE / 4, 3 * IMAGE_SIZE / 4, IMAGE_SIZE / 4, 3 * IMAGE_SIZE / 4);
    ipNegative(IxWriteGuard(partly), IxReadGuard(partly), &centre, &centre);
    save(partly, outDir, std::string("negative_centre_in_place_") + d.name);

    IxTile const sum(format, gradient.getPixelRegion(), gradient.getFillColor());
    ipAdd(IxWriteGuard(sum), IxReadGuard(gradient), IxReadGuard(rings), nullptr);
    save(sum, outDir, std::string("add_") + d.name);

    IxTile const difference(format, gradient.getPixelRegion(), gradient.getFillColor());
    ipSubtract(IxWriteGuard(difference), IxReadGuard(gradient), IxReadGuard(rings), nullptr);
    save(difference, outDir, std::string("subtract_") + d.name);
  }
}

SectionRegistration const pixelOps("Pixel operators: negative, add, subtract", runPixelOps);

}  // namespace

}  // namespace OrnDemo
