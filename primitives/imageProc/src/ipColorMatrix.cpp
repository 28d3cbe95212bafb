#include <orn/primitives/imageProc/ipColorMatrix.h>

#include <orn/base/except/assertions.h>
#include <orn/base/geometryBase/floatUtil.h>
#include <orn/base/geometryBase/geAxisRotation3.h>
#include <orn/base/geometryBase/geVector3.h>
#include <orn/primitives/color/coHsvColor.h>

#include <limits>

namespace Orn {

namespace {

constexpr float LUM_R = 0.2126f;
constexpr float LUM_G = 0.7152f;
constexpr float LUM_B = 0.0722f;

// Products below are plain matrix products on column vectors: (X * Y) * c applies Y first.

// The rotation that turns the grey axis (1, 1, 1) onto the third axis.
GeLinearMatrix3<float> makeGreyToBlue() {
  return GeLinearMatrix3<float>(0.81649661f, -0.40824828f, -0.40824828f,  //
                                0.0f, 0.70710677f, -0.70710677f,          //
                                0.57735026f, 0.57735026f, 0.57735026f);
}

// The frame of the luminance-preserving operations: q maps colours so that planes of constant
// luminance become planes of constant third coordinate, with the grey axis on the third axis;
// p maps back.
struct GreyAxisFrame {
  GeLinearMatrix3<float> p;
  GeLinearMatrix3<float> q;
};

GreyAxisFrame makeGreyAxisFrame() {
  GeLinearMatrix3<float> const a = makeGreyToBlue();
  GeVector3<float> const lumFactors = a * GeVector3<float>(LUM_R, LUM_G, LUM_B);
  ORN_ASSERT_TEXT(FloatUtil::abs(lumFactors(2)) > std::numeric_limits<float>::min(),
                  "FloatUtil::abs( lumFactors( 2 ) ) > std::numeric_limits<float>::min()");
  float const sx = lumFactors(0) / lumFactors(2);
  float const sy = lumFactors(1) / lumFactors(2);
  GeLinearMatrix3<float> const shear(1, 0, 0, 0, 1, 0, sx, sy, 1);
  GeLinearMatrix3<float> const shearInverse(1, 0, 0, 0, 1, 0, -sx, -sy, 1);
  return GreyAxisFrame{a.computeTranspose() * shearInverse, shear * a};
}

GeLinearMatrix3<float> makeRotationAboutBlue(float angle) {
  GeLinearMatrix3<float> rz;
  GeAxisRotation3<2, float>(angle).getMatrix(rz);
  return rz;
}

// Element (row i, column j) of an affine colour matrix, in its transposed storage.
float& at(GeAffineMatrix3<float>& m, int i, int j) { return m(j, i); }

}  // namespace

GeLinearMatrix3<float> IpColorMatrix::makeToLuminance() {
  return GeLinearMatrix3<float>(LUM_R, LUM_G, LUM_B, LUM_R, LUM_G, LUM_B, LUM_R, LUM_G, LUM_B);
}

GeLinearMatrix3<float> IpColorMatrix::makeScale(CoRgbColorTyped<float> const& s) {
  return GeLinearMatrix3<float>(s.r, 0, 0, 0, s.g, 0, 0, 0, s.b);
}

GeAffineMatrix3<float> IpColorMatrix::makeOffset(CoRgbColorTyped<float> const& o) {
  GeAffineMatrix3<float> m;
  for (int i = 0; i < 3; ++i) at(m, i, 3) = o[i];
  return m;
}

GeLinearMatrix3<float> IpColorMatrix::makeSaturation(float s) {
  float const k = 1.0f - s;
  GeLinearMatrix3<float> m;
  for (int i = 0; i < 3; ++i) {
    m(i, 0) = LUM_R * k;
    m(i, 1) = LUM_G * k;
    m(i, 2) = LUM_B * k;
    m(i, i) += s;
  }
  return m;
}

GeAffineMatrix3<float> IpColorMatrix::makeContrast(float c) {
  float const offset = float((1.0 - double(c)) * 0.5);
  GeAffineMatrix3<float> m;
  for (int i = 0; i < 3; ++i) {
    at(m, i, i) = c;
    at(m, i, 3) = offset;
  }
  return m;
}

GeAffineMatrix3<float> IpColorMatrix::makeContrast(CoRgbColorTyped<float> const& contrast,
                                                   CoRgbColorTyped<float> const& pivot) {
  // T(pivot) diag(contrast) T(-pivot): the pivot is the fixed point of each channel.
  GeAffineMatrix3<float> m;
  for (int i = 0; i < 3; ++i) {
    at(m, i, i) = contrast[i];
    at(m, i, 3) = contrast[i] * -pivot[i] + pivot[i];
  }
  return m;
}

GeLinearMatrix3<float> IpColorMatrix::makeHueRotation(float angle) {
  GeLinearMatrix3<float> const a = makeGreyToBlue();
  return (a.computeTranspose() * makeRotationAboutBlue(angle)) * a;
}

GeLinearMatrix3<float> IpColorMatrix::makeLumPreservingHueRotation(float angle) {
  GreyAxisFrame const frame = makeGreyAxisFrame();
  return (frame.p * makeRotationAboutBlue(angle)) * frame.q;
}

GeLinearMatrix3<float> IpColorMatrix::makeColorBalance(CoRgbColorTyped<float> const& colour) {
  GreyAxisFrame const frame = makeGreyAxisFrame();
  GeVector3<float> const mw = frame.q * GeVector3<float>(1, 1, 1);
  GeVector3<float> const mc = frame.q * GeVector3<float>(colour.r, colour.g, colour.b);
  ORN_ASSERT_TEXT(FloatUtil::abs(mw(2)) > std::numeric_limits<float>::min(),
                  "FloatUtil::abs( mw( 2 ) ) > std::numeric_limits<float>::min()");
  // A shear along the third axis: white moves onto the colour's chromaticity, and each point
  // moves in proportion to its luminance only.
  GeLinearMatrix3<float> shear;
  shear(0, 2) = (mc(0) - mw(0)) / mw(2);
  shear(1, 2) = (mc(1) - mw(1)) / mw(2);
  return (frame.p * shear) * frame.q;
}

GeLinearMatrix3<float> IpColorMatrix::makeColorBalance(float hue, float saturation) {
  double const degrees = double(hue) / 6.283185307179586 * 360.0;
  return makeColorBalance(CoHsvColor(float(degrees), saturation, 1.0f).convertToRgb());
}

GeAffineMatrix3<float> IpColorMatrix::makeRewire(IpRewire red, IpRewire green, IpRewire blue) {
  GeAffineMatrix3<float> m;
  if (red == REWIRE_RED && green == REWIRE_GREEN && blue == REWIRE_BLUE) return m;
  IpRewire const sources[3] = {red, green, blue};
  for (int i = 0; i < 3; ++i) {
    for (int j = 0; j < 4; ++j) at(m, i, j) = 0.0f;
    switch (sources[i]) {
      case REWIRE_RED:
      case REWIRE_GREEN:
      case REWIRE_BLUE:
        at(m, i, int(sources[i])) = 1.0f;
        break;
      case REWIRE_LUMINANCE:
        at(m, i, 0) = LUM_R;
        at(m, i, 1) = LUM_G;
        at(m, i, 2) = LUM_B;
        break;
      case REWIRE_INVERT:
        at(m, i, i) = -1.0f;
        at(m, i, 3) = 1.0f;
        break;
      default:
        break;
    }
  }
  return m;
}

}  // namespace Orn
