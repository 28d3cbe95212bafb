#pragma once

#include <orn/pluginAPI/ixReadGuard.h>

#include <string>

namespace OrnDemo {

// Writes a tile of any format as an 8-bit RGB PNG: colour over a checkerboard by its alpha, or,
// for one-component tiles, the alpha as grey.
void writePng(Orn::IxReadGuard const& tile, std::string const& path);

}  // namespace OrnDemo
