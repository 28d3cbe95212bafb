#include <orn/primitives/timeCurves/tcLoopExtrapolator.h>

namespace Orn {

double TcLoopExtrapolator::evaluate(double time, RCShdPtr<TmTimeCurve const> const& curve) const {
  int cycle = 0;
  bool mirrored = false;
  return curve->evaluate(mapTime(time, curve, cycle, mirrored));
}

double TcLoopExtrapolator::getNextKeyTime(double time, RCShdPtr<TmTimeCurve const> const& curve) const {
  return getNextKeyTimeByLoop(time, curve);
}

void TcLoopExtrapolator::tessellateBefore(double x, RCShdPtr<TmTimeCurve const> const& curve, Polylines const& base,
                                          Polylines& out) const {
  Ends ends;
  if (!findEnds(curve, ends) || x >= ends.t0) return;
  double const period = ends.t1 - ends.t0;
  repeat(x, curve, base, out,
         [period](GePoint2<double> const& p, int i, Ends const&) { return GePoint2<double>(p.x - i * period, p.y); });
}

void TcLoopExtrapolator::tessellateAfter(double x, RCShdPtr<TmTimeCurve const> const& curve, Polylines const& base,
                                         Polylines& out) const {
  Ends ends;
  if (!findEnds(curve, ends) || x <= ends.t1) return;
  double const period = ends.t1 - ends.t0;
  repeat(x, curve, base, out,
         [period](GePoint2<double> const& p, int i, Ends const&) { return GePoint2<double>(p.x + i * period, p.y); });
}

}  // namespace Orn
