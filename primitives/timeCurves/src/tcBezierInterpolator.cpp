#include <orn/base/geometryBase/floatUtil.h>
#include <orn/primitives/timeCurves/tcBezierInterpolator.h>
#include <orn/primitives/timeCurves/tcConstants.h>
#include <orn/primitives/timeCurves/tcKeyframe.h>

#include <algorithm>
#include <cmath>
#include <typeinfo>

namespace Orn {

namespace {

double realCubeRoot(double x) { return x < 0.0 ? -std::cbrt(-x) : std::cbrt(x); }

GePoint2<double> midpoint(GePoint2<double> const& a, GePoint2<double> const& b) {
  return GePoint2<double>((a.x + b.x) * 0.5, (a.y + b.y) * 0.5);
}

}  // namespace

double TcBezierInterpolator::evaluateKeys(double time, TmKeyframe const& key, TmKeyframe const& next) const {
  GePoint2<double> o;
  GePoint2<double> i;
  if (typeid(key) == typeid(TcKeyframe) && typeid(next) == typeid(TcKeyframe)) {
    // Plain keyframes cut their handles without the neighbour handles the interface takes, which
    // saves their reference counting on every evaluation.
    o = static_cast<TcKeyframe const&>(key).getOutTangentCutAt(next.getTime());
    i = static_cast<TcKeyframe const&>(next).getInTangentCutAt(key.getTime());
  } else {
    o = key.getOutTangent(RCShdPtr<TmKeyframe const>(&next));
    i = next.getInTangent(RCShdPtr<TmKeyframe const>(&key));
  }
  return evaluateBezier(time, key.getTime(), key.getValue(), o, i, next.getTime(), next.getValue());
}

double TcBezierInterpolator::evaluateBezier(double time, double t0, double v0, GePoint2<double> const& o,
                                             GePoint2<double> const& i, double t1, double v1) {
  double const dt = t1 - t0;
  if (FloatUtil::isAbsZero(dt, TcConstants::kTimeTolerance)) return v1;

  double const a = (o.x - t0) / dt;
  double const b = (i.x - t0) / dt;
  double const x = (time - t0) / dt;

  double const oy = o.y;
  double const iy = i.y;
  double const A = (oy - iy) * 3.0 + (v1 - v0);
  double const B = v0 - 2.0 * oy + iy;
  double const C = oy - v0;

  double const u = solveParameter(a, b, x);
  return v0 + A * u * u * u + 3.0 * (C * u + B * u * u);
}

double TcBezierInterpolator::solveParameter(double a, double b, double x) {
  double const c3 = (a - b) * 3.0 + 1.0;
  double const c2 = 3.0 * (b - 2.0 * a);
  double const c1 = 3.0 * a;

  // Handles at the thirds make time linear in u.
  if (FloatUtil::isAbsZero(c3, TcConstants::kTangentZero) &&
      FloatUtil::isAbsZero(b - 2.0 * a, TcConstants::kTangentZero))
    return x;
  if (x == 0.0) return 0.0;
  if (x == 1.0) return 1.0;

  // Cardano on the monic cubic u^3 + p2 u^2 + p1 u + p0. A vanishing c3 is divided by as it is.
  double const p2 = c2 / c3;
  double const p1 = c1 / c3;
  double const p0 = -x / c3;
  double const p = (-1.0 / 3.0 * p2 * p2 + p1) * (1.0 / 3.0);
  double const q = ((0.07407407407407407 * p2 * p2 - p1 / 3.0) * p2 + p0) * 0.5;
  double const d = q * q + p * p * p;

  double roots[3];
  int nbRoots;
  if (FloatUtil::isAbsZero(d, TcConstants::kTangentZero)) {
    if (FloatUtil::isAbsZero(q, TcConstants::kTangentZero)) {
      roots[0] = 0.0;
      nbRoots = 1;
    } else {
      double const s = realCubeRoot(-q);
      roots[0] = 2.0 * s;
      roots[1] = -s;
      nbRoots = 2;
    }
  } else if (d < 0.0) {
    double const phi = std::acos(-q / std::sqrt(-p * p * p)) / 3.0;
    double const r = 2.0 * std::sqrt(-p);
    double const thirdPi = 1.0471975511965976;
    double const shift = p2 / 3.0;
    // For phi in [0, PI/3] the three roots come in decreasing order, and the largest one in [0, 1]
    // wins. Away from the two ends of that range the gaps between the roots are far above the
    // rounding of cos, so the first root found in range is the answer and the cosines of the others
    // need not be taken. Near the ends two roots may swap by an ulp: take all three there.
    double const margin = 1.0e-6;
    if (phi > margin && phi < thirdPi - margin) {
      double const first = r * std::cos(phi) - shift;
      if (first >= 0.0 && first <= 1.0) return first;
      double const second = -r * std::cos(phi + thirdPi) - shift;
      if (second >= 0.0 && second <= 1.0) return second;
      double const third = -r * std::cos(phi - thirdPi) - shift;
      return third >= 0.0 && third <= 1.0 ? third : -1.0;
    }
    roots[0] = r * std::cos(phi);
    roots[1] = -r * std::cos(phi + thirdPi);
    roots[2] = -r * std::cos(phi - thirdPi);
    nbRoots = 3;
  } else {
    double const s = std::sqrt(d);
    roots[0] = realCubeRoot(s - q) - realCubeRoot(s + q);
    nbRoots = 1;
  }

  double const shift = p2 / 3.0;
  for (int k = 0; k < nbRoots; ++k) roots[k] -= shift;
  if (nbRoots == 1) return roots[0];

  double best = -1.0;
  for (int k = 0; k < nbRoots; ++k) {
    double const root = roots[k];
    if (root >= 0.0 && root <= 1.0) best = best < 0.0 ? root : std::max(best, root);
  }
  return best;
}

void TcBezierInterpolator::tessellate(RCShdPtr<TmKeyframe const> const& key, RCShdPtr<TmKeyframe const> const& next,
                                      double tolerance, Vector<GePoint2<double>>& points) const {
  TmKeyframe const& k = *key;
  TmKeyframe const& n = *next;
  GePoint2<double> const p0(k.getTime(), k.getValue());
  GePoint2<double> const p1 = k.getOutTangent(next);
  GePoint2<double> const p2 = n.getInTangent(key);
  GePoint2<double> const p3(n.getTime(), n.getValue());
  subdivide(p0, p1, p2, p3, float(tolerance), false, points);
}

void TcBezierInterpolator::subdivide(GePoint2<double> const& p0, GePoint2<double> const& p1,
                                     GePoint2<double> const& p2, GePoint2<double> const& p3, float tolerance,
                                     bool skipEnd, Vector<GePoint2<double>>& points) {
  GeVector2<double> const chord = p3 - p0;
  double const length = chord.getLength();
  bool flat = 0.0 >= length;
  if (!flat) {
    double const inverse = 1.0 / length;
    // d2 is divided by the inverse where d1 is multiplied by it: the second handle's distance is
    // weighted by the squared chord length, which makes long pieces split further.
    double const d2 = std::fabs(chord.cross(p0 - p2)) / inverse;
    double const d1 = std::fabs(chord.cross(p0 - p1)) * inverse;
    flat = double(tolerance) > std::max(d1, d2);
  }
  if (flat) {
    if (points.empty() || points.back() != p0) points.push_back(p0);
    if (!skipEnd) points.push_back(p3);
    return;
  }
  GePoint2<double> const p01 = midpoint(p0, p1);
  GePoint2<double> const p12 = midpoint(p1, p2);
  GePoint2<double> const p23 = midpoint(p2, p3);
  GePoint2<double> const p012 = midpoint(p01, p12);
  GePoint2<double> const p123 = midpoint(p12, p23);
  GePoint2<double> const mid = midpoint(p012, p123);
  subdivide(p0, p01, p012, mid, tolerance, true, points);
  subdivide(mid, p123, p23, p3, tolerance, skipEnd, points);
}

}  // namespace Orn
