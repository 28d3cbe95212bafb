// The 25 blend modes over the two test images, as one contact sheet, and a matte mix of them.

#include "demoImages.h"
#include "demoSections.h"
#include "pngWriter.h"

#include <orn/pluginAPI/ixScanline.h>
#include <orn/primitives/imageProc/ipBlend.h>
#include <orn/primitives/imageProc/ixScanlineBlend.h>

#include <cstdint>
#include <cstdio>

using namespace Orn;

namespace OrnDemo {

namespace {

using Rgba = CoRgbaColorTyped<float>;

constexpr int COLUMNS = 5;
constexpr int GAP = 8;
constexpr int PITCH = IMAGE_SIZE + GAP;

// Cell k of the sheet, row by row: the gradient as a, the rings as b, the alpha of the rings.
void runBlend(std::string const& outDir) {
  IxScanlineBlend::initialize();
  IxPixelFormat const format(IxPixelFormat::RGBA, IxPixelFormat::FLOAT32);
  IxTile const gradient = makeGradientImage(format);
  IxTile const rings = makeRingsImage(format);

  int const rows = (IxScanlineBlend::NB_BLEND_OPS + COLUMNS - 1) / COLUMNS;
  IxTile const sheet(format, GeRectangle<int>(0, COLUMNS * PITCH - GAP, 0, rows * PITCH - GAP), Rgba(0, 0, 0, 0));
  IxWriteGuard const out(sheet);
  for (int y = 0; y < sheet.getPixelRegion().y2(); ++y) {
    Rgba* row = reinterpret_cast<Rgba*>(out.getBaseAddress() + std::int64_t(y) * sheet.getRowBytes());
    for (int x = 0; x < sheet.getPixelRegion().x2(); ++x) row[x] = Rgba(0.15f, 0.15f, 0.15f, 1.f);
  }

  GeInterval<int> const xs(0, IMAGE_SIZE);
  IxPaddingPolicy<Rgba> const padding(IxScanlineTypes::PADDING_COLOR, Rgba(0, 0, 0, 0));
  IxScanline<Rgba> a(xs, padding);
  IxScanline<Rgba> b(xs, padding);
  IxReadGuard const inA(gradient);
  IxReadGuard const inB(rings);
  std::printf("  contact sheet, %d columns, left to right and top to bottom:\n", COLUMNS);
  for (int op = 0; op < IxScanlineBlend::NB_BLEND_OPS; ++op) {
    IxScanlineBlend const mode{IxScanlineBlend::BlendOp(op)};
    int const x0 = (op % COLUMNS) * PITCH;
    int const y0 = (op / COLUMNS) * PITCH;
    std::printf("    %2d %s\n", op, IxScanlineBlend::getBlendOpName(IxScanlineBlend::BlendOp(op)));
    for (int y = 0; y < IMAGE_SIZE; ++y) {
      a.readFrom(inA, y);
      b.readFrom(inB, y);
      // The result goes straight into the sheet: a scanline over the cell's part of the row.
      Rgba* cell = reinterpret_cast<Rgba*>(out.getBaseAddress() + std::int64_t(y0 + y) * sheet.getRowBytes()) + x0;
      IxScanline<Rgba> dst(xs, cell, padding);
      mode.blend(dst, a, b, nullptr, true);
    }
  }
  std::string const path = outDir + "/blend_modes_contact_sheet.png";
  writePng(IxReadGuard(sheet), path);
  std::printf("  wrote %s\n", path.c_str());

  // The gradient over the rings through a one-component matte: the gradient's own alpha disc.
  IxTile const matte = makeGradientImage(IxPixelFormat(IxPixelFormat::ALPHA, IxPixelFormat::FLOAT32));
  IxTile const mixed(format, gradient.getPixelRegion(), Rgba());
  IxWriteGuard mixGuard(mixed);
  ipBlend(mixGuard, inA, inB, IxReadGuard(matte));
  std::string const mixPath = outDir + "/blend_by_matte.png";
  writePng(IxReadGuard(mixed), mixPath);
  std::printf("  wrote %s\n", mixPath.c_str());
}

SectionRegistration const blend("Blend modes: contact sheet of the 25 modes, mix by a matte", runBlend);

}  // namespace

}  // namespace OrnDemo
