#pragma once
// A region cut from a set of tiles, padded where it reaches outside them.

#include <orn/pluginAPI/ixPixelFormat.h>
#include <orn/pluginAPI/ixScanlineTypes.h>
#include <orn/pluginAPI/ixWriteGuard.h>

namespace Orn {

// Fills dst's whole pixel region from the fetcher's tiles, row by row, and pads positions
// outside the fetcher's bounding region by paddingX and paddingY; PADDING_COLOR pads with
// dst's fill colour. The tiles may differ in depth and layout. format chooses the form that
// the pixels take on their way: a complex line for COMPLEX, an alpha (float) line for one
// component, an RGBA float line otherwise; the line is then stored to dst's own format (so a
// one-component format needs a one-component dst). NOOP in x raises where a row leaves the
// tiles; NOOP in y reads every row as it is, and a row outside the tiles is the fetcher's
// business. Polls the request manager after each row.
void ipCrop(IxWriteGuard const& dst, IxScanlineTypes::TileFetcher& fetcher, IxPixelFormat const& format,
            IxScanlineTypes::PaddingType paddingX, IxScanlineTypes::PaddingType paddingY);

}  // namespace Orn
