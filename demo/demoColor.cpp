// Colour correction: matrices of IpColorMatrix applied to the gradient image, a flat colour
// painted through the rings as a matte, and a constant tint.

#include "demoImages.h"
#include "demoSections.h"
#include "pngWriter.h"

#include <orn/primitives/imageProc/ipApplyColorMatrix.h>
#include <orn/primitives/imageProc/ipColorBlend.h>
#include <orn/primitives/imageProc/ipColorBlendConst.h>
#include <orn/primitives/imageProc/ipColorMatrix.h>

#include <cstdio>

using namespace Orn;

namespace OrnDemo {

namespace {

using Rgb = CoRgbColorTyped<float>;

void save(IxTile const& tile, std::string const& outDir, std::string const& name) {
  std::string const path = outDir + "/" + name + ".png";
  writePng(IxReadGuard(tile), path);
  std::printf("  wrote %s\n", path.c_str());
}

// An affine colour matrix as the projective form that ipApplyColorMatrix reads (same storage).
GeProjectiveMatrix3<float> projective(GeAffineMatrix3<float> const& m) { return GeProjectiveMatrix3<float>(m); }

// A linear colour matrix followed by an affine one: the column-vector product affine * linear.
GeProjectiveMatrix3<float> chain(GeAffineMatrix3<float> const& after, GeLinearMatrix3<float> const& first) {
  GeProjectiveMatrix3<float> m;
  float const* a = after.getData();
  for (int i = 0; i < 3; ++i) {
    for (int j = 0; j < 3; ++j) {
      float sum = 0.0f;
      for (int k = 0; k < 3; ++k) sum += a[4 * k + i] * first(k, j);
      m.getData()[4 * j + i] = sum;
    }
    m.getData()[12 + i] = a[12 + i];
  }
  return m;
}

void runColor(std::string const& outDir) {
  struct Depth {
    IxPixelFormat::Depth depth;
    char const* name;
  };
  double const pi = 3.14159265358979323846;
  for (Depth d : {Depth{IxPixelFormat::UINT8, "8bit"}, Depth{IxPixelFormat::FLOAT32, "float"}}) {
    IxPixelFormat const format(IxPixelFormat::RGBA, d.depth);
    IxTile const gradient = makeGradientImage(format);
    std::string const suffix = std::string("_") + d.name;
    auto apply = [&](auto const& matrix, std::string const& name) {
      IxTile const out(format, gradient.getPixelRegion(), gradient.getFillColor());
      ipApplyColorMatrix(IxWriteGuard(out), IxReadGuard(gradient), matrix, nullptr, nullptr);
      save(out, outDir, "color_" + name + suffix);
    };

    apply(IpColorMatrix::makeSaturation(0.0f), "greyscale");
    apply(IpColorMatrix::makeSaturation(1.8f), "saturated");
    apply(IpColorMatrix::makeHueRotation(float(2.0 * pi / 3.0)), "hue_rotation_120");
    apply(IpColorMatrix::makeLumPreservingHueRotation(float(2.0 * pi / 3.0)), "hue_rotation_120_luminance_kept");
    apply(IpColorMatrix::makeColorBalance(Rgb(1.0f, 0.85f, 0.6f)), "balance_warm");
    apply(projective(IpColorMatrix::makeContrast(Rgb(1.6f, 1.6f, 1.6f), Rgb(0.3f, 0.3f, 0.3f))), "contrast_pivot_0.3");
    apply(projective(IpColorMatrix::makeRewire(IpColorMatrix::REWIRE_BLUE, IpColorMatrix::REWIRE_LUMINANCE,
                                               IpColorMatrix::REWIRE_INVERT)),
          "rewire_blue_luminance_invert");
    // A grade in one pass: cooler and less saturated, then more contrast, slightly darker.
    GeLinearMatrix3<float> const look =
        IpColorMatrix::makeSaturation(0.7f) * IpColorMatrix::makeColorBalance(float(200.0 / 360.0 * 2.0 * pi), 0.25f);
    GeProjectiveMatrix3<float> grade = chain(IpColorMatrix::makeContrast(1.3f), look);
    for (int i = 0; i < 3; ++i) grade.getData()[12 + i] -= 0.05f;
    apply(grade, "grade");

    // Orange through the rings used as a matte, then a constant blue tint over everything.
    IxTile const painted = makeGradientImage(format);
    IxTile const matte = makeRingsImage(IxPixelFormat(IxPixelFormat::ALPHA, d.depth));
    ipColorBlend(IxWriteGuard(painted), IxReadGuard(matte), Rgb(1.0f, 0.5f, 0.1f), nullptr, nullptr);
    save(painted, outDir, "color_blend_rings" + suffix);
    IxPixel<IxPixelCompFloat32, 4> tint;
    tint[0].value = 0.1f;
    tint[1].value = 0.2f;
    tint[2].value = 0.9f;
    tint[3].value = 1.0f;
    ipColorBlendConst(IxWriteGuard(painted), 0.7f, tint, nullptr);
    save(painted, outDir, "color_blend_rings_tinted" + suffix);
  }
}

SectionRegistration const color("Colour correction: matrices, matte and constant colour blends", runColor);

}  // namespace

}  // namespace OrnDemo
