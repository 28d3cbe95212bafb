#pragma once
// Coefficients of the curves between log film code values and linear light, for callers that
// build lookup tables from them. g is the film gamma (floored at 0.1), w the white reference code
// and l the linear value given to it. With k = 0.002 / max(0.1, g) * log2(10) and
// x = l / 2^(k w), the curves are
//   linear = a * 2^(b * code) + c                (the two "ToLin" functions)
//   code   = a * log2(linear + b) + c            (the two "ToCin" / "ToLog" functions)
// "Cin" works in code values 0..1023, "Log" in codes normalised to 0..1. All in double precision.

namespace Orn {

class IxCineonUtil {
 public:
  // a = x, b = k, c = 0.
  static void computeCinToLinCoeffs(double& a, double& b, double& c, double g, double w, double l);
  // a = x, b = 1023 k, c = 0.
  static void computeLogToLinCoeffs(double& a, double& b, double& c, double g, double w, double l);
  // a = 1 / k, b = -0.0, c = -(1 / k) log2(x).
  static void computeLinToCinCoeffs(double& a, double& b, double& c, double g, double w, double l);
  // As computeLinToCinCoeffs with a and c divided by 1023.
  static void computeLinToLogCoeffs(double& a, double& b, double& c, double g, double w, double l);
};

}  // namespace Orn
