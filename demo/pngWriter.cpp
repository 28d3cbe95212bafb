#include "pngWriter.h"

#include <orn/pluginAPI/ixPixelUtil.h>

#include <png.h>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <stdexcept>
#include <vector>

using namespace Orn;

namespace OrnDemo {

namespace {

png_byte toByte(float v) { return png_byte(std::clamp(v * 255.f + 0.5f, 0.f, 255.f)); }

}  // namespace

void writePng(IxReadGuard const& guard, std::string const& path) {
  GeRectangle<int> const region = guard.getPixelRegion();
  int const width = region.getWidth();
  int const height = region.getHeight();
  bool const grey = guard.getTile().getPixelFormat().getComps() == IxPixelFormat::ALPHA;

  std::vector<png_byte> pixels(std::size_t(width) * height * 3);
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x) {
      CoRgbaColorTyped<float> const c = IxPixelUtil::getPixelColor(guard, region.x1() + x, region.y1() + y);
      png_byte* p = &pixels[(std::size_t(y) * width + x) * 3];
      if (grey) {
        p[0] = p[1] = p[2] = toByte(c.a);
      } else {
        // Straight colour over a checkerboard, so that alpha shows.
        float const checker = ((x / 16 + y / 16) % 2) ? 0.6f : 0.4f;
        float const a = std::clamp(c.a, 0.f, 1.f);
        p[0] = toByte(c.r * a + checker * (1.f - a));
        p[1] = toByte(c.g * a + checker * (1.f - a));
        p[2] = toByte(c.b * a + checker * (1.f - a));
      }
    }

  std::unique_ptr<FILE, int (*)(FILE*)> file(std::fopen(path.c_str(), "wb"), &std::fclose);
  if (!file) throw std::runtime_error("cannot open " + path);
  png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
  png_infop info = png ? png_create_info_struct(png) : nullptr;
  if (!info) {
    png_destroy_write_struct(&png, nullptr);
    throw std::runtime_error("libpng: out of memory");
  }
  if (setjmp(png_jmpbuf(png))) {
    png_destroy_write_struct(&png, &info);
    throw std::runtime_error("libpng failed writing " + path);
  }
  png_init_io(png, file.get());
  png_set_IHDR(png, info, png_uint_32(width), png_uint_32(height), 8, PNG_COLOR_TYPE_RGB, PNG_INTERLACE_NONE,
               PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
  png_write_info(png, info);
  for (int y = 0; y < height; ++y) png_write_row(png, &pixels[std::size_t(y) * width * 3]);
  png_write_end(png, nullptr);
  png_destroy_write_struct(&png, &info);
}

}  // namespace OrnDemo
