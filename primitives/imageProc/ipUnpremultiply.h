#pragma once
// Premultiplied to straight colour, by a reciprocal approximation with one Newton step (not a
// division). Alphas of magnitude under 1e-8 give black with the alpha kept; lanes that come out
// infinite or NaN become 0. Tiles without alpha are copied.

#include <orn/pluginAPI/coRgbColorTyped.h>
#include <orn/pluginAPI/ixReadGuard.h>
#include <orn/pluginAPI/ixWriteGuard.h>

namespace Orn {

void ipUnpremultiply(IxWriteGuard const& dst, IxReadGuard const& src);

// Unpremultiplies a colour that was composed over a background: x (pixel - (1 - a) background),
// with no threshold on a.
void ipUnpremultiply(IxWriteGuard const& dst, IxReadGuard const& src, CoRgbColorTyped<float> const& background);

}  // namespace Orn
