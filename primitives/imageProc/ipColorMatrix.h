#pragma once
// Makers of colour-correction matrices. A colour is a column vector (r, g, b): row i of a matrix
// is output channel i and column j input channel j.
//
// GeLinearMatrix3 results hold element (row i, column j) at m(i, j). GeAffineMatrix3 results hold
// it at index 4 j + i, i.e. at m(j, i), with the translation of channel i at m(3, i) (index
// 12 + i); that is the storage ipApplyColorMatrix reads. Convert between the two through the
// geometry classes with this in mind.

#include <orn/base/geometryBase/geAffineMatrix3.h>
#include <orn/base/geometryBase/geLinearMatrix3.h>
#include <orn/pluginAPI/coRgbColorTyped.h>

namespace Orn {

class IpColorMatrix {
public:
  // What an output channel takes in makeRewire.
  enum IpRewire : int {
    REWIRE_RED = 0,
    REWIRE_GREEN = 1,
    REWIRE_BLUE = 2,
    REWIRE_LUMINANCE = 3,  // 0.2126 r + 0.7152 g + 0.0722 b
    REWIRE_INVERT = 4,     // one minus the channel itself
    REWIRE_ZERO = 5,       // constant 0, as any other value
  };

  // Every row (0.2126, 0.7152, 0.0722): each channel becomes the luminance.
  static GeLinearMatrix3<float> makeToLuminance();
  // Diagonal (s.r, s.g, s.b).
  static GeLinearMatrix3<float> makeScale(CoRgbColorTyped<float> const& s);
  // Identity plus the translation o.
  static GeAffineMatrix3<float> makeOffset(CoRgbColorTyped<float> const& o);
  // Between the luminance (s = 0) and the colour itself (s = 1); not clamped beyond.
  static GeLinearMatrix3<float> makeSaturation(float s);
  // x becomes c (x - 0.5) + 0.5 on every channel.
  static GeAffineMatrix3<float> makeContrast(float c);
  // x becomes contrast (x - pivot) + pivot, channel by channel.
  static GeAffineMatrix3<float> makeContrast(CoRgbColorTyped<float> const& contrast,
                                             CoRgbColorTyped<float> const& pivot);
  // Rotation by angle radians about the grey axis; greys stay, luminance does not.
  static GeLinearMatrix3<float> makeHueRotation(float angle);
  // Rotation of the hue by angle radians that keeps greys and the luminance of every colour.
  static GeLinearMatrix3<float> makeLumPreservingHueRotation(float angle);
  // Shifts white toward colour while keeping the luminance of every colour.
  static GeLinearMatrix3<float> makeColorBalance(CoRgbColorTyped<float> const& colour);
  // The same toward the colour of hue (radians) and saturation at full value.
  static GeLinearMatrix3<float> makeColorBalance(float hue, float saturation);
  // Each output channel from one source of IpRewire.
  static GeAffineMatrix3<float> makeRewire(IpRewire red, IpRewire green, IpRewire blue);
};

}  // namespace Orn
