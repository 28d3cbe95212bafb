#include <orn/primitives/timeCurves/tcRelativeExtrapolator.h>

namespace Orn {

double TcRelativeExtrapolator::evaluate(double time, RCShdPtr<TmTimeCurve const> const& curve) const {
  Ends const ends = getEnds(curve);
  int cycle = 0;
  bool mirrored = false;
  double const mapped = curve->evaluate(mapTime(time, curve, cycle, mirrored));
  double const rise = ends.v1 - ends.v0;
  return ends.t0 > time ? mapped - cycle * rise : mapped + cycle * rise;
}

double TcRelativeExtrapolator::getNextKeyTime(double time, RCShdPtr<TmTimeCurve const> const& curve) const {
  return getNextKeyTimeByLoop(time, curve);
}

void TcRelativeExtrapolator::tessellateBefore(double x, RCShdPtr<TmTimeCurve const> const& curve,
                                              Polylines const& base, Polylines& out) const {
  Ends ends;
  if (!findEnds(curve, ends) || x >= ends.t0) return;
  double const period = ends.t1 - ends.t0;
  double const rise = ends.v1 - ends.v0;
  repeat(x, curve, base, out, [period, rise](GePoint2<double> const& p, int i, Ends const&) {
    return GePoint2<double>(p.x - i * period, p.y - i * rise);
  });
}

void TcRelativeExtrapolator::tessellateAfter(double x, RCShdPtr<TmTimeCurve const> const& curve,
                                             Polylines const& base, Polylines& out) const {
  Ends ends;
  if (!findEnds(curve, ends) || x <= ends.t1) return;
  double const period = ends.t1 - ends.t0;
  double const rise = ends.v1 - ends.v0;
  repeat(x, curve, base, out, [period, rise](GePoint2<double> const& p, int i, Ends const&) {
    return GePoint2<double>(p.x + i * period, p.y + i * rise);
  });
}

}  // namespace Orn
