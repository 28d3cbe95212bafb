#include <orn/primitives/color/coColorConversion.h>

#include <bit>
#include <cmath>
#include <cstdint>

namespace Orn {

namespace {

constexpr float MAX_FLOAT = 3.4028235e38f;

// Rows of the column-vector matrices, the fourth element being the translation.
constexpr float CMY_MATRIX[4][4] = {{-1, 0, 0, 1}, {0, -1, 0, 1}, {0, 0, -1, 1}, {0, 0, 0, 1}};

constexpr float RGB_TO_YPBPR_601[4][4] = {{0.299f, 0.587f, 0.114f, 0},
                                          {-0.1687359f, -0.3312641f, 0.5f, 0},
                                          {0.5f, -0.4186876f, -0.08131241f, 0},
                                          {0, 0, 0, 1}};
constexpr float YPBPR_601_TO_RGB[4][4] = {
    {1, 0, 1.402f, 0}, {1, -0.3441363f, -0.7141363f, 0}, {1, 1.772f, 0, 0}, {0, 0, 0, 1}};

constexpr float RGB_TO_YPBPR_709[4][4] = {{0.2126f, 0.7152f, 0.0722f, 0},
                                          {-0.1145721f, -0.3854279f, 0.5f, 0},
                                          {0.5f, -0.4541529f, -0.04584709f, 0},
                                          {0, 0, 0, 1}};
constexpr float YPBPR_709_TO_RGB[4][4] = {
    {1, 0, 1.5748f, 0}, {1, -0.1873243f, -0.4681243f, 0}, {1, 1.8556f, 0, 0}, {0, 0, 0, 1}};

constexpr float RGB_TO_YIQ[4][4] = {{0.299f, 0.587f, 0.114f, 0},
                                    {0.5957161f, -0.2744528f, -0.3212633f, 0},
                                    {0.2114564f, -0.5225911f, 0.3111346f, 0},
                                    {0, 0, 0, 1}};
constexpr float YIQ_TO_RGB[4][4] = {{1, 0.9562948f, 0.6210251f, 0},
                                    {1, -0.2721215f, -0.6473809f, 0},
                                    {1, -1.10699f, 1.704615f, 0},
                                    {0, 0, 0, 1}};

constexpr float RGB_TO_XYZ[4][4] = {{0.4124109f, 0.3575846f, 0.1804538f, 0},
                                    {0.2126493f, 0.7151691f, 0.07218152f, 0},
                                    {0.01933176f, 0.1191949f, 0.95039f, 0},
                                    {0, 0, 0, 1}};
constexpr float XYZ_TO_RGB[4][4] = {{3.240812f, -1.537308f, -0.4985865f, 0},
                                    {-0.969243f, 1.875966f, 0.04155503f, 0},
                                    {0.0556384f, -0.2040075f, 1.05713f, 0},
                                    {0, 0, 0, 1}};

// The table for a space, towards it from RGB or from it to RGB; null when it has none.
float const (*findTable(int space, bool fromRgb))[4] {
  switch (space) {
    case CoColorConversion::CMY:
      return CMY_MATRIX;
    case CoColorConversion::YPBPR_601:
      return fromRgb ? RGB_TO_YPBPR_601 : YPBPR_601_TO_RGB;
    case CoColorConversion::YPBPR_709:
      return fromRgb ? RGB_TO_YPBPR_709 : YPBPR_709_TO_RGB;
    case CoColorConversion::YIQ:
      return fromRgb ? RGB_TO_YIQ : YIQ_TO_RGB;
    case CoColorConversion::XYZ:
      return fromRgb ? RGB_TO_XYZ : XYZ_TO_RGB;
    default:
      return nullptr;
  }
}

void findMinMax(float r, float g, float b, float& minV, float& maxV) {
  maxV = r;
  if (g > maxV) maxV = g;
  if (b > maxV) maxV = b;
  minV = r;
  if (g < minV) minV = g;
  if (b < minV) minV = b;
}

// One channel of HLS to RGB, x being the hue shifted for that channel.
float hlsValue(float m1, float m2, float x) {
  x -= std::floor(x / 360.0f) * 360.0f;
  if (x < 60.0f) return m1 + (m2 - m1) * x / 60.0f;
  if (x < 180.0f) return m2;
  if (x < 240.0f) return m1 + (m2 - m1) * (240.0f - x) / 60.0f;
  return m1;
}

// The forward function of Lab and the lightness of Luv.
float labF(float t) { return t > 0.008856452f ? std::pow(t, 0.33333334f) : 7.787037f * t + 0.13793103f; }

// Its inverse.
float labG(float t) {
  return t >= 0.20689656f ? std::pow(t, 3.0f) : CoColorConversion::safeDivide((t - 0.13793103f) * 1728.0f, 13456.0f);
}

}  // namespace

float CoColorConversion::_whiteX = std::bit_cast<float>(std::uint32_t(0x3F7350A4));
float CoColorConversion::_whiteY = 1.0f;
float CoColorConversion::_whiteZ = std::bit_cast<float>(std::uint32_t(0x3F8B619E));

void CoColorConversion::setWhitePoint(float x, float y, float z) {
  _whiteX = x;
  _whiteY = y;
  _whiteZ = z;
}

bool CoColorConversion::getConversionMatrix(ColorSpaces from, ColorSpaces to, GeAffineMatrix3<float>* matrix) {
  float const (*table)[4] = nullptr;
  if (from == RGB) {
    table = findTable(to, true);
  } else if (to == RGB) {
    table = findTable(from, false);
  }
  if (table == nullptr) {
    matrix->setIdentity();
    return false;
  }
  // Table rows are written for column vectors: read them transposed into the row-vector storage.
  *matrix = GeAffineMatrix3<float>(table, true);
  return true;
}

bool CoColorConversion::convert(ColorSpaces from, ColorSpaces to, float a, float b, float c, float* outA,
                                float* outB, float* outC) {
  GeAffineMatrix3<float> m;
  if (!getConversionMatrix(from, to, &m)) return false;
  float const in[3] = {a, b, c};
  float out[3];
  for (int i = 0; i < 3; ++i) out[i] = m(0, i) * in[0] + m(1, i) * in[1] + m(2, i) * in[2] + m(3, i);
  *outA = out[0];
  *outB = out[1];
  *outC = out[2];
  return true;
}

void CoColorConversion::convertRGBToHSV(float r, float g, float b, float* h, float* s, float* v) {
  float minV;
  float maxV;
  findMinMax(r, g, b, minV, maxV);
  *v = maxV;
  if (maxV == minV) {
    *h = 0.0f;
    *s = 0.0f;
    return;
  }
  float const d = maxV - minV;
  *s = d / maxV;
  float hue;
  if (r == maxV) {
    hue = 60.0f * (g - b) / d;
  } else if (g == maxV) {
    hue = 120.0f + 60.0f * (b - r) / d;
  } else {
    hue = 240.0f + 60.0f * (r - g) / d;
  }
  *h = hue < 0.0f ? hue + 360.0f : hue;
}

void CoColorConversion::convertHSVToRGB(float h, float s, float v, float* r, float* g, float* b) {
  if (0.0f >= s) {
    *r = *g = *b = v;
    return;
  }
  // fmod gives what repeated steps of 360 give, as those steps are exact, without looping on
  // large values.
  if (h >= 360.0f || h < 0.0f) {
    h = std::fmod(h, 360.0f);
    if (h < 0.0f) h += 360.0f;
    // A hue just below 0 rounds to 360 when wrapped: that is 0 again.
    if (h >= 360.0f) h = 0.0f;
  }
  float const x = h / 60.0f;
  // NaN or infinite hues fall back to sector 0, with NaN components.
  int const i = x >= 0.0f && x < 6.0f ? int(x) : 0;
  float const f = x - float(i);
  float const p = float((1.0 - double(s)) * double(v));
  float const q = float((1.0 - double(s) * double(f)) * double(v));
  float const t = float((1.0 - double(s) * (1.0 - double(f))) * double(v));
  switch (i) {
    case 0:
      *r = v, *g = t, *b = p;
      break;
    case 1:
      *r = q, *g = v, *b = p;
      break;
    case 2:
      *r = p, *g = v, *b = t;
      break;
    case 3:
      *r = p, *g = q, *b = v;
      break;
    case 4:
      *r = t, *g = p, *b = v;
      break;
    default:
      *r = v, *g = p, *b = q;
      break;
  }
}

void CoColorConversion::convertRGBToHLS(float r, float g, float b, float* h, float* l, float* s) {
  float minV;
  float maxV;
  findMinMax(r, g, b, minV, maxV);
  *l = (maxV + minV) * 0.5f;
  if (maxV == minV) {
    *h = 0.0f;
    *s = 0.0f;
    return;
  }
  float const d = maxV - minV;
  *s = *l <= 0.5f ? safeDivide(d, maxV + minV) : safeDivide(d, 2.0f - maxV - minV);
  float const rc = safeDivide(maxV - r, d);
  float const gc = safeDivide(maxV - g, d);
  float const bc = safeDivide(maxV - b, d);
  float hue;
  if (r == maxV) {
    hue = bc - gc;
  } else if (g == maxV) {
    hue = 2.0f + rc - bc;
  } else {
    hue = 4.0f + gc - rc;
  }
  hue *= 60.0f;
  *h = hue < 0.0f ? hue + 360.0f : hue;
}

void CoColorConversion::convertHLSToRGB(float h, float l, float s, float* r, float* g, float* b) {
  h -= std::floor(h / 360.0f) * 360.0f;
  float const m2 = l <= 0.5f ? l * (1.0f + s) : l + s - l * s;
  float const m1 = 2.0f * l - m2;
  if (s == 0.0f) {
    *r = *g = *b = l;
    return;
  }
  *r = hlsValue(m1, m2, h + 120.0f);
  *g = hlsValue(m1, m2, h);
  *b = hlsValue(m1, m2, h - 120.0f);
}

float CoColorConversion::safeDivide(float x, float y) {
  if (x == 0.0f) return 0.0f;
  if (y < 0.0f) {
    x = -x;
    y = -y;
  }
  if (x > y * MAX_FLOAT) return MAX_FLOAT;
  if (y * -MAX_FLOAT > x) return -MAX_FLOAT;
  return x / y;
}

void CoColorConversion::convertXYZToLab(float x, float y, float z, float* L, float* a, float* b) {
  float const fx = labF(safeDivide(x, _whiteX));
  float const fy = labF(safeDivide(y, _whiteY));
  float const fz = labF(safeDivide(z, _whiteZ));
  *L = 116.0f * fy - 16.0f;
  *a = 500.0f * (fx - fy);
  *b = 200.0f * (fy - fz);
}

void CoColorConversion::convertLabToXYZ(float L, float a, float b, float* x, float* y, float* z) {
  float const fy = safeDivide(L + 16.0f, 116.0f);
  float const fx = fy + safeDivide(a, 500.0f);
  float const fz = fy - safeDivide(b, 200.0f);
  *x = _whiteX * labG(fx);
  *y = _whiteY * labG(fy);
  *z = _whiteZ * labG(fz);
}

void CoColorConversion::convertXYZToLuv(float x, float y, float z, float* L, float* u, float* v) {
  float const lightness = 116.0f * labF(safeDivide(y, _whiteY)) - 16.0f;
  float const whiteDenom = _whiteX + 15.0f * _whiteY + 3.0f * _whiteZ;
  float const un = safeDivide(4.0f * _whiteX, whiteDenom);
  float const vn = safeDivide(9.0f * _whiteY, whiteDenom);
  float const denom = x + 15.0f * y + 3.0f * z;
  float const uPrime = safeDivide(4.0f * x, denom);
  float const vPrime = safeDivide(9.0f * y, denom);
  *L = lightness;
  *u = 13.0f * lightness * (uPrime - un);
  *v = 13.0f * lightness * (vPrime - vn);
}

void CoColorConversion::convertLuvToXYZ(float L, float u, float v, float* x, float* y, float* z) {
  float const whiteDenom = _whiteX + 15.0f * _whiteY + 3.0f * _whiteZ;
  float const un = safeDivide(4.0f * _whiteX, whiteDenom);
  float const vn = safeDivide(9.0f * _whiteY, whiteDenom);
  // Both chromaticities stay multiplied by 13 L: the factors cancel below, and L = 0 (black)
  // needs no division by L.
  float const uPrime = u + 13.0f * L * un;
  float const vPrime = v + 13.0f * L * vn;
  float const yValue = _whiteY * labG(safeDivide(16.0f + L, 116.0f));
  *y = yValue;
  *x = safeDivide(9.0f * yValue * uPrime, 4.0f * vPrime);
  *z = safeDivide(-(3.0f * uPrime - 156.0f * L + 20.0f * vPrime) * yValue, 4.0f * vPrime);
}

}  // namespace Orn
