#pragma once
// Conversions between colour models: RGB, HSV, HLS, CMY, YPbPr (Rec. 601 and Rec. 709), YIQ,
// XYZ, Lab and Luv. Linear models go through a table of matrices; Lab and Luv use the white
// point held here. All are pure functions of their arguments and the white point.

#include <orn/base/geometryBase/geAffineMatrix3.h>

namespace Orn {

class CoColorConversion {
public:
  // Selector of the matrix table. Other values may be passed: they have no matrix.
  enum ColorSpaces : int {
    RGB = 0,
    CMY = 1,
    YPBPR_601 = 2,
    YPBPR_709 = 3,
    YIQ = 6,
    XYZ = 7,
  };

  // The matrix from one space to another, for colours as column vectors (r, g, b): row i is output
  // channel i and the fourth column the translation. Element (row i, column j) is stored at index
  // 4 j + i, i.e. it is matrix(j, i). Only pairs with RGB on one side and a space of the table on
  // the other are known; any other pair gives false and the identity.
  static bool getConversionMatrix(ColorSpaces from, ColorSpaces to, GeAffineMatrix3<float>* matrix);

  // out = M * (a, b, c) + t for a matrix of getConversionMatrix. Returns false, leaving the values
  // unchanged, for an unknown pair.
  static bool convert(ColorSpaces from, ColorSpaces to, float a, float b, float c, float* outA, float* outB,
                      float* outC);

  // Hue in degrees [0, 360), saturation and value. A grey gives h = 0 and s = 0.
  static void convertRGBToHSV(float r, float g, float b, float* h, float* s, float* v);
  static void convertHSVToRGB(float h, float s, float v, float* r, float* g, float* b);

  // Hue in degrees [0, 360), lightness and saturation.
  static void convertRGBToHLS(float r, float g, float b, float* h, float* l, float* s);
  static void convertHLSToRGB(float h, float l, float s, float* r, float* g, float* b);

  // Lab and Luv relative to the white point.
  static void convertXYZToLab(float x, float y, float z, float* L, float* a, float* b);
  static void convertLabToXYZ(float L, float a, float b, float* x, float* y, float* z);
  static void convertXYZToLuv(float x, float y, float z, float* L, float* u, float* v);
  static void convertLuvToXYZ(float L, float u, float v, float* x, float* y, float* z);

  // x / y bounded to the finite floats: a numerator of exactly 0 gives 0, a negative denominator
  // flips both signs, and a quotient beyond the largest float gives +-3.4028235e38 (so x / 0 is
  // bounded too). NaN operands give NaN.
  static float safeDivide(float x, float y);

  // The white point (X, Y, Z) of Lab and Luv: D65, X = 0.95044923 and Z = 1.0889165 as floats.
  static float getWhiteX() { return _whiteX; }
  static float getWhiteY() { return _whiteY; }
  static float getWhiteZ() { return _whiteZ; }
  // Meant for start-up only: the conversions read the white point without a lock.
  static void setWhitePoint(float x, float y, float z);

private:
  static float _whiteX;
  static float _whiteY;
  static float _whiteZ;
};

// The same conversions as free functions.
inline void convertRGBToHSV(float r, float g, float b, float* h, float* s, float* v) {
  CoColorConversion::convertRGBToHSV(r, g, b, h, s, v);
}
inline void convertHSVToRGB(float h, float s, float v, float* r, float* g, float* b) {
  CoColorConversion::convertHSVToRGB(h, s, v, r, g, b);
}
inline void convertRGBToHLS(float r, float g, float b, float* h, float* l, float* s) {
  CoColorConversion::convertRGBToHLS(r, g, b, h, l, s);
}
inline void convertHLSToRGB(float h, float l, float s, float* r, float* g, float* b) {
  CoColorConversion::convertHLSToRGB(h, l, s, r, g, b);
}
inline void convertXYZToLab(float x, float y, float z, float* L, float* a, float* b) {
  CoColorConversion::convertXYZToLab(x, y, z, L, a, b);
}
inline void convertLabToXYZ(float L, float a, float b, float* x, float* y, float* z) {
  CoColorConversion::convertLabToXYZ(L, a, b, x, y, z);
}
inline void convertXYZToLuv(float x, float y, float z, float* L, float* u, float* v) {
  CoColorConversion::convertXYZToLuv(x, y, z, L, u, v);
}
inline void convertLuvToXYZ(float L, float u, float v, float* x, float* y, float* z) {
  CoColorConversion::convertLuvToXYZ(L, u, v, x, y, z);
}

}  // namespace Orn
