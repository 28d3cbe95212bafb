// Crops that reach outside their source, once per padding type: the source is the colour of the
// gradient image (opaque, so that the padding shows) cut into two tiles of different depths, and
// the crop is twice its size around it.

#include "demoImages.h"
#include "demoSections.h"
#include "pngWriter.h"

#include <orn/pluginAPI/ixReadGuard.h>
#include <orn/pluginAPI/ixTilePtrVectorFetcher.h>
#include <orn/pluginAPI/ixWriteGuard.h>
#include <orn/primitives/imageProc/ipCrop.h>

#include <cstdio>
#include <cstring>

using namespace Orn;

namespace OrnDemo {

namespace {

// The columns [x1, x2) of a tile, copied into a tile of their own in another format.
IxTile cutColumns(IxTile const& source, int x1, int x2, IxPixelFormat const& format) {
  GeRectangle<int> const& r = source.getPixelRegion();
  IxTile const part(format, GeRectangle<int>(x1, x2, r.y1(), r.y2()), source.getFillColor());
  IxReadGuard const in(source);
  IxTilePtrVectorFetcher fetcher(Vector<IxReadGuard const*>{&in});
  ipCrop(IxWriteGuard(part), fetcher, format, IxScanlineTypes::NOOP, IxScanlineTypes::NOOP);
  return part;
}

void runCrop(std::string const& outDir) {
  IxPixelFormat const rgba8(IxPixelFormat::RGBA, IxPixelFormat::UINT8);
  IxTile const gradient = makeGradientImage(IxPixelFormat(IxPixelFormat::RGB, IxPixelFormat::FLOAT32));
  int const half = IMAGE_SIZE / 2;
  IxReadGuard const left(cutColumns(gradient, 0, half, IxPixelFormat(IxPixelFormat::RGB, IxPixelFormat::UINT8)));
  IxReadGuard const right(
      cutColumns(gradient, half, IMAGE_SIZE, IxPixelFormat(IxPixelFormat::RGB, IxPixelFormat::FLOAT16)));
  IxTilePtrVectorFetcher fetcher(Vector<IxReadGuard const*>{&left, &right});

  struct Padding {
    IxScanlineTypes::PaddingType x, y;
    char const* name;
  };
  Padding const paddings[] = {{IxScanlineTypes::PADDING_COLOR, IxScanlineTypes::PADDING_COLOR, "color"},
                              {IxScanlineTypes::PADDING_REPEAT_EDGE, IxScanlineTypes::PADDING_REPEAT_EDGE, "repeat_edge"},
                              {IxScanlineTypes::PADDING_PERIODIC, IxScanlineTypes::PADDING_PERIODIC, "periodic"},
                              {IxScanlineTypes::PADDING_MIRROR, IxScanlineTypes::PADDING_MIRROR, "mirror"},
                              {IxScanlineTypes::PADDING_PERIODIC, IxScanlineTypes::PADDING_MIRROR, "periodic_x_mirror_y"}};
  // Twice the source, centred on it; the fill colour is what PADDING_COLOR pads with.
  GeRectangle<int> const region(-half, IMAGE_SIZE + half, -half, IMAGE_SIZE + half);
  CoRgbaColorTyped<float> const fill(0.1f, 0.3f, 0.6f, 1.f);
  for (Padding const& padding : paddings) {
    IxTile const crop(rgba8, region, fill);
    ipCrop(IxWriteGuard(crop), fetcher, rgba8, padding.x, padding.y);
    std::string const path = outDir + "/crop_" + padding.name + ".png";
    writePng(IxReadGuard(crop), path);
    std::printf("  wrote %s\n", path.c_str());
  }
}

SectionRegistration const crop("Crop: padded regions of a two-tile source", runCrop);

}  // namespace

}  // namespace OrnDemo
