#pragma once
// Cubic Bezier segment in the (time, value) plane through the key, its out handle, the next key's
// in handle and the next key, both handles cut at the other key's time. Evaluation inverts the
// time polynomial in closed form; tessellation subdivides recursively.

#include <orn/primitives/timeCurves/tcInterpolator.h>

namespace Orn {

class TcBezierInterpolator : public TcInterpolator {
public:
  double evaluateKeys(double time, TmKeyframe const& key, TmKeyframe const& next) const override;
  void tessellate(RCShdPtr<TmKeyframe const> const& key, RCShdPtr<TmKeyframe const> const& next, double tolerance,
                  Vector<GePoint2<double>>& points) const override;

  // Value at time of the segment with ends (t0, v0), (t1, v1) and handles o (out of the first
  // end) and i (into the second), handles already cut.
  static double evaluateBezier(double time, double t0, double v0, GePoint2<double> const& o,
                                GePoint2<double> const& i, double t1, double v1);
  // Parameter u of the segment where the normalised time polynomial c3 u^3 + c2 u^2 + c1 u equals
  // x, for handles at normalised times a and b. With several roots the largest in [0, 1] wins,
  // and -1 stands for none.
  static double solveParameter(double a, double b, double x);
  // Appends the flattening of the Bezier p0..p3: a piece is flat when the tolerance exceeds both
  // the distance of p1 from the chord and that of p2 times the squared chord length.
  static void subdivide(GePoint2<double> const& p0, GePoint2<double> const& p1, GePoint2<double> const& p2,
                        GePoint2<double> const& p3, float tolerance, bool skipEnd, Vector<GePoint2<double>>& points);
};

}  // namespace Orn
