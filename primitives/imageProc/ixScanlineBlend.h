#pragma once
// Twenty-five layer blend modes on single values, RGB colours and float scanlines.
//
// a is always the first colour argument (srcA) and b the second (srcB); most modes are not
// symmetric. An IxScanlineBlend is a light handle on a stateless, process-wide operation object
// chosen by the mode: copying it is cheap and any number of threads may use the same mode.

#include <orn/base/geometryBase/geInterval.h>
#include <orn/base/rc/rcShdPtr.h>
#include <orn/pluginAPI/coRgbColorTyped.h>
#include <orn/pluginAPI/coRgbaColorTyped.h>
#include <orn/pluginAPI/ixScanline.h>
#include <orn/pluginAPI/piEnumPolicy.h>

namespace Orn {

class IxScanlineBlend {
public:
  // Values are stored by callers: the order is fixed.
  enum BlendOp {
    BLEND_NORMAL = 0,       // a
    BLEND_AVERAGE,          // (a + b) * 0.5
    BLEND_ADD,              // a + b
    BLEND_SUBTRACT,         // b - a
    BLEND_DARKEN,           // min(a, b)
    BLEND_MULTIPLY,         // a * b
    BLEND_COLOR_BURN,       // 0 where a is zero, else 1 - (1 - b) / a
    BLEND_LINEAR_BURN,      // max(a + b - 1, 0)
    BLEND_LIGHTEN,          // max(a, b)
    BLEND_SCREEN,           // b + a * (1 - min(b, 1)), in double
    BLEND_COLOR_DODGE,      // b / (1 - a)
    BLEND_LINEAR_DODGE,     // min(a + b, 1)
    BLEND_SPOTLIGHT,        // a * b * 2
    BLEND_SPOTLIGHT_BLEND,  // a * b + b
    BLEND_OVERLAY,          // b > 0.5 ? 1 - 2 (1 - a)(1 - b) : 2 a b
    BLEND_SOFT_LIGHT,       // a > 0.5 ? b + (2a - 1)(sqrt(b) - b) : b (2a (1 - b) + b)
    BLEND_HARD_LIGHT,       // a > 0.5 ? 1 - 2 (1 - a)(1 - b) : 2 a b
    BLEND_PIN_LIGHT,        // a where (a > 0.5 and a > b) or (a < 0.5 and a < b), else b
    BLEND_HARD_MIX,         // a + b > 1 ? 1 : 0
    BLEND_DIFFERENCE,       // |a - b|
    BLEND_EXCLUSION,        // a + b - 2 a b
    BLEND_HUE,              // hue of a, saturation and value of b
    BLEND_SATURATION,       // saturation of a, hue and value of b
    BLEND_COLOR,            // hue and saturation of a, value of b
    BLEND_VALUE,            // value of a, hue and saturation of b
    NB_BLEND_OPS
  };

  // The operations of one mode. Implementations are stateless and shared by every handle.
  class Imp {
  public:
    virtual ~Imp();
    virtual float blend(float a, float b) const = 0;
    virtual CoRgbColorTyped<float> blend(CoRgbColorTyped<float> const& a, CoRgbColorTyped<float> const& b) const = 0;
    virtual void blend(IxScanline<float>& dst, IxScanline<float> const& srcA, IxScanline<float> const& srcB,
                       GeInterval<int> const* interval) const = 0;
    virtual void blend(IxScanline<CoRgbaColorTyped<float>>& dst, IxScanline<CoRgbaColorTyped<float>> const& srcA,
                       IxScanline<CoRgbaColorTyped<float>> const& srcB, GeInterval<int> const* interval,
                       bool alpha) const = 0;
  };

  // Builds the process-wide table of operation objects, one per mode, in mode order. Called by
  // the image processing package at start; later calls do nothing. The objects live until the
  // process ends.
  static void initialize();

  // The mode's operation object; op must be a mode (0 to NB_BLEND_OPS - 1), which is not checked.
  explicit IxScanlineBlend(BlendOp op);

  // The mode on one value. The four HSV modes have no meaning on a single value and return a,
  // like BLEND_NORMAL.
  float blend(float a, float b) const { return _imp->blend(a, b); }
  // The mode on each channel, or through HSV for the four HSV modes.
  CoRgbColorTyped<float> blend(CoRgbColorTyped<float> const& a, CoRgbColorTyped<float> const& b) const {
    return _imp->blend(a, b);
  }
  // dst[x] = blend(srcA[x], srcB[x]) for x in interval (null: dst's whole interval), which must lie
  // inside all three lines. In the HSV modes this copies srcA.
  void blend(IxScanline<float>& dst, IxScanline<float> const& srcA, IxScanline<float> const& srcB,
             GeInterval<int> const* interval) const {
    _imp->blend(dst, srcA, srcB, interval);
  }
  // The colour channels as the RGB blend. With alpha true the result's alpha is srcB's, otherwise
  // dst keeps its own alpha; srcA's alpha is never used. Nothing is premultiplied.
  void blend(IxScanline<CoRgbaColorTyped<float>>& dst, IxScanline<CoRgbaColorTyped<float>> const& srcA,
             IxScanline<CoRgbaColorTyped<float>> const& srcB, GeInterval<int> const* interval, bool alpha) const {
    _imp->blend(dst, srcA, srcB, interval, alpha);
  }

  // The display name of a mode ("Normal" ... "Value"); op must be a mode.
  static char const* getBlendOpName(BlendOp op);

  // The modes as a choice for a plug-in: "Normal" to "Exclusion", then the four HSV modes only
  // when hsvModes is true.
  static RCShdPtr<PiEnumPolicy const> createInputPolicy(bool hsvModes, BlendOp defaultOp, bool animatable);

private:
  Imp const* _imp;  // borrowed from the table
};

}  // namespace Orn
