#include <orn/primitives/timeCurves/tcConstants.h>
#include <orn/primitives/timeCurves/tcPingPongExtrapolator.h>

namespace Orn {

double TcPingPongExtrapolator::mapTime(double time, RCShdPtr<TmTimeCurve const> const& curve, int& cycle,
                                       bool& mirrored) const {
  Ends const ends = getEnds(curve);
  cycle = 0;
  mirrored = false;
  if (ends.t0 <= time && time < ends.t1) return time;
  if (FloatUtil::isAbsEqual(time, ends.t1, TcConstants::kTimeTolerance)) return ends.t0;
  double const period = ends.t1 - ends.t0;
  if (ends.t0 > time) {
    do {
      time += period;
      ++cycle;
    } while (ends.t0 > time);
  } else if (time > ends.t1) {
    do {
      time -= period;
      ++cycle;
    } while (time > ends.t1);
  }
  mirrored = (cycle & 1) != 0;
  return mirrored ? ends.t0 + ends.t1 - time : time;
}

double TcPingPongExtrapolator::evaluate(double time, RCShdPtr<TmTimeCurve const> const& curve) const {
  int cycle = 0;
  bool mirrored = false;
  return curve->evaluate(mapTime(time, curve, cycle, mirrored));
}

// On a mirrored cycle the keys come in reverse order: the next image is that of the key before.
double TcPingPongExtrapolator::getNextKeyTime(double time, RCShdPtr<TmTimeCurve const> const& curve) const {
  Ends const ends = getEnds(curve);
  int cycle = 0;
  bool mirrored = false;
  double m = mapTime(time, curve, cycle, mirrored);
  if (!mirrored) return getNextKeyTimeByLoop(time, curve);
  if (FloatUtil::isAbsEqual(m, ends.t0, TcConstants::kTimeTolerance)) m = ends.t1;
  RCShdPtr<TmKeyframe const> const previous = curve->getPreviousKeyframe(m);
  return m - previous->getTime() + time;
}

void TcPingPongExtrapolator::tessellateBefore(double x, RCShdPtr<TmTimeCurve const> const& curve,
                                              Polylines const& base, Polylines& out) const {
  Ends ends;
  if (!findEnds(curve, ends) || x >= ends.t0) return;
  double const period = ends.t1 - ends.t0;
  repeat(x, curve, base, out, [period](GePoint2<double> const& p, int i, Ends const& e) {
    double const t = (i & 1) != 0 ? (e.t0 + e.t1) - p.x - i * period : p.x - i * period;
    return GePoint2<double>(t, p.y);
  });
}

void TcPingPongExtrapolator::tessellateAfter(double x, RCShdPtr<TmTimeCurve const> const& curve,
                                             Polylines const& base, Polylines& out) const {
  Ends ends;
  if (!findEnds(curve, ends) || x <= ends.t1) return;
  double const period = ends.t1 - ends.t0;
  repeat(x, curve, base, out, [period](GePoint2<double> const& p, int i, Ends const& e) {
    double const t = (i & 1) != 0 ? (e.t0 + e.t1) - p.x + i * period : p.x + i * period;
    return GePoint2<double>(t, p.y);
  });
}

}  // namespace Orn
