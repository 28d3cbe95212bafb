#pragma once
// Flips and quarter turns of an image. The destination is walked in the order that realises the
// transform while the source is read row by row, so no pixel position is computed.

#include <orn/pluginAPI/ixReadGuard.h>
#include <orn/pluginAPI/ixWriteGuard.h>

#include <cstdint>

namespace Orn {

// Which axes are reversed. Below, source pixel (i, j) counts from the source's corner (x1, y1)
// and destination pixels from the destination's corner; w and h are the destination's width and
// height.
enum IpFlip : std::int32_t {
  IP_FLIP_Y = 0,    // (i, j) -> (i, h - 1 - j): rows in reverse order
  IP_FLIP_X = 1,    // (i, j) -> (w - 1 - i, j): each row reversed
  IP_FLIP_XY = 2,   // (i, j) -> (w - 1 - i, h - 1 - j): a half turn
  IP_FLIP_NONE = 3  // (i, j) -> (i, j)
};

// Quarter turns.
enum IpRotate : std::int32_t {
  IP_ROTATE_0 = 0,    // (i, j) -> (i, j)
  IP_ROTATE_90 = 1,   // (i, j) -> (j, h - 1 - i)
  IP_ROTATE_180 = 2,  // (i, j) -> (w - 1 - i, h - 1 - j)
  IP_ROTATE_270 = 3   // (i, j) -> (w - 1 - j, i)
};

// The whole source into the whole destination, which have one format and the same dimensions
// (transposed ones when transpose is set) and do not share pixels. Where source pixel (i, j) lands:
//   flip               no transpose              transpose
//   IP_FLIP_Y          (i, h - 1 - j)            (j, i)
//   IP_FLIP_X          (w - 1 - i, j)            (w - 1 - j, h - 1 - i)
//   IP_FLIP_XY         (w - 1 - i, h - 1 - j)    (w - 1 - j, i)
//   IP_FLIP_NONE       (i, j)                    (j, h - 1 - i)
void ipOrient(IxWriteGuard const& dst, IxReadGuard const& src, bool transpose, IpFlip flip);

// ipOrient without transpose.
void ipFlip(IxWriteGuard const& dst, IxReadGuard const& src, IpFlip flip);

void ipRotate(IxWriteGuard const& dst, IxReadGuard const& src, IpRotate rotate);

// The rotation, then the flip in the rotated image's axes.
void ipRotateFlip(IxWriteGuard const& dst, IxReadGuard const& src, IpRotate rotate, IpFlip flip);

}  // namespace Orn
