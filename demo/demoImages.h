#pragma once
// Built-in test images.

#include <orn/pluginAPI/ixTile.h>

namespace OrnDemo {

constexpr int IMAGE_SIZE = 384;

// Colour gradient with a soft-edged disc in its alpha, in the given format (1, 3 or 4 components).
Orn::IxTile makeGradientImage(Orn::IxPixelFormat const& format);
// Concentric rings, a second layer for two-input operators.
Orn::IxTile makeRingsImage(Orn::IxPixelFormat const& format);

}  // namespace OrnDemo
