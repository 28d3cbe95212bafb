#pragma once
// Enumerations shared by keyframes and time curves. Both are 32-bit and may carry values beyond
// the named ones: such values are stored as given and select the default behaviour.

#include <cstdint>

namespace Orn {

struct TmAnimTypes {
  // How the segment that begins at a keyframe is interpolated. Any value other than
  // INTERPOLATION_CONSTANT and INTERPOLATION_LINEAR interpolates as a Bezier segment.
  enum InterpolationType : std::int32_t {
    INTERPOLATION_CONSTANT = 0,
    INTERPOLATION_LINEAR = 1,
    INTERPOLATION_BEZIER = 2
  };

  // How a curve continues outside its keys. Values of 6 and more behave as EXTRAPOLATION_CONSTANT.
  enum ExtrapolationType : std::int32_t {
    EXTRAPOLATION_CONSTANT = 0,
    EXTRAPOLATION_LINEAR = 1,
    EXTRAPOLATION_LOOP = 2,
    EXTRAPOLATION_PING_PONG = 3,
    EXTRAPOLATION_RELATIVE = 4,
    EXTRAPOLATION_KEY_LINEAR = 5
  };
};

}  // namespace Orn
