#include <orn/primitives/imageProc/ixCineonUtil.h>

#include <algorithm>
#include <cmath>

namespace Orn {

namespace {

// 1 / 1023.
constexpr double INV_1023 = 0.0009775171065493646;

double slopeOf(double g) { return 0.002 / std::max(0.1, g) * std::log(10.0) / std::log(2.0); }

double whiteFactor(double k, double w, double l) { return l / std::pow(2.0, k * w); }

}  // namespace

void IxCineonUtil::computeCinToLinCoeffs(double& a, double& b, double& c, double g, double w, double l) {
  double const k = slopeOf(g);
  a = whiteFactor(k, w, l);
  b = k;
  c = 0.0;
}

void IxCineonUtil::computeLogToLinCoeffs(double& a, double& b, double& c, double g, double w, double l) {
  double const k = slopeOf(g);
  a = whiteFactor(k, w, l);
  b = k * 1023.0;
  c = 0.0;
}

void IxCineonUtil::computeLinToCinCoeffs(double& a, double& b, double& c, double g, double w, double l) {
  double const k = slopeOf(g);
  double const x = whiteFactor(k, w, l);
  a = 1.0 / k;
  b = -0.0;
  c = -(1.0 / k) * std::log(x) / std::log(2.0);
}

void IxCineonUtil::computeLinToLogCoeffs(double& a, double& b, double& c, double g, double w, double l) {
  double const k = slopeOf(g);
  double const x = whiteFactor(k, w, l);
  a = (1.0 / k) * INV_1023;
  b = -0.0;
  c = -(1.0 / k) * std::log(x) / std::log(2.0) * INV_1023;
}

}  // namespace Orn
