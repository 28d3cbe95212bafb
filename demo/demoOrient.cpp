// Quarter turns and flips, a difference key, and gamma through lookup tables.

#include "demoImages.h"
#include "demoSections.h"
#include "pngWriter.h"

#include <orn/primitives/imageProc/ipDifference.h>
#include <orn/primitives/imageProc/ipFormatChange.h>
#include <orn/primitives/imageProc/ipLut.h>
#include <orn/primitives/imageProc/ipLutColorMatrix.h>
#include <orn/primitives/imageProc/ipOrient.h>
#include <orn/primitives/imageProc/ixLutUtils.h>

#include <cstdio>

using namespace Orn;

namespace OrnDemo {

namespace {

void save(IxTile const& tile, std::string const& outDir, std::string const& name) {
  std::string const path = outDir + "/" + name + ".png";
  writePng(IxReadGuard(tile), path);
  std::printf("  wrote %s\n", path.c_str());
}

IxTile blankLike(IxTile const& tile, GeRectangle<int> const& region) {
  return IxTile(tile.getPixelFormat(), region, tile.getFillColor());
}

void runOrient(std::string const& outDir) {
  IxPixelFormat const rgba8(IxPixelFormat::RGBA, IxPixelFormat::UINT8);
  IxTile const gradient = makeGradientImage(rgba8);
  IxTile const rings = makeRingsImage(rgba8);

  // The left two thirds of the gradient, so that a quarter turn changes the shape.
  int const width = 2 * IMAGE_SIZE / 3;
  IxTile const strip = blankLike(gradient, GeRectangle<int>(0, width, 0, IMAGE_SIZE));
  ipFlip(IxWriteGuard(strip), IxReadGuard(gradient.createView(rgba8, strip.getPixelRegion(), gradient.getRowBytes())),
         IP_FLIP_NONE);
  save(strip, outDir, "orient_source");
  IxTile const turned = blankLike(gradient, GeRectangle<int>(0, IMAGE_SIZE, 0, width));
  ipRotate(IxWriteGuard(turned), IxReadGuard(strip), IP_ROTATE_90);
  save(turned, outDir, "orient_rotate_90");
  ipRotateFlip(IxWriteGuard(turned), IxReadGuard(strip), IP_ROTATE_270, IP_FLIP_X);
  save(turned, outDir, "orient_rotate_270_flip_x");
  IxTile const flipped = blankLike(strip, strip.getPixelRegion());
  ipFlip(IxWriteGuard(flipped), IxReadGuard(strip), IP_FLIP_Y);
  save(flipped, outDir, "orient_flip_y");

  // Key of where the rings differ from the gradient by more than 10 percent in any channel, in
  // 8 bits and in float.
  for (IxPixelFormat::Depth depth : {IxPixelFormat::UINT8, IxPixelFormat::FLOAT32}) {
    IxPixelFormat const format(IxPixelFormat::RGBA, depth);
    IxTile const a = makeGradientImage(format), b = makeRingsImage(format);
    IxTile const key = blankLike(a, a.getPixelRegion());
    ipDifference(IxWriteGuard(key), IxReadGuard(a), IxReadGuard(b), true, true, true, false, 1.f, 1.f, 1.f, 1.f, 10.f,
                 10.f, 10.f, 10.f, 1.f, nullptr, nullptr, nullptr);
    // The key is in every channel; its alpha plane shows it as grey.
    IxTile const plane(IxPixelFormat(IxPixelFormat::ALPHA, depth), key.getPixelRegion(), key.getFillColor());
    ipFormatChange(IxWriteGuard(plane), IxReadGuard(key), nullptr);
    save(plane, outDir, depth == IxPixelFormat::UINT8 ? "difference_key_8bit" : "difference_key_float");
  }

  // Gamma 2.2 through a byte table, then the same table with a desaturating matrix in one pass.
  IxGenericLut gamma(rgba8, rgba8);
  IxLutUtils::fillGammaTable(gamma, 2.2f);
  IxTile const brightened = blankLike(rings, rings.getPixelRegion());
  ipLutApply(IxWriteGuard(brightened), IxReadGuard(rings), gamma, gamma, gamma, nullptr, nullptr);
  save(brightened, outDir, "lut_gamma_2_2");
  GeProjectiveMatrix3<float> desaturate;
  float const weights[3] = {0.2126f, 0.7152f, 0.0722f};
  for (int i = 0; i < 3; ++i)
    for (int j = 0; j < 3; ++j) desaturate.getData()[4 * j + i] = 0.7f * weights[j] + (i == j ? 0.3f : 0.f);
  ipLutColorMatrix(IxWriteGuard(brightened), IxReadGuard(rings), desaturate, gamma, gamma, gamma, nullptr, nullptr);
  save(brightened, outDir, "lut_gamma_2_2_desaturated");
}

SectionRegistration const orient("Orientation, difference key and lookup tables", runOrient);

}  // namespace

}  // namespace OrnDemo
