#include <orn/primitives/timeCurves/tcConstants.h>
#include <orn/primitives/timeCurves/tcExtrapolator.h>

namespace Orn {

TcExtrapolator::~TcExtrapolator() = default;

bool TcExtrapolator::isCyclic() const { return false; }

TcExtrapolator::Ends TcExtrapolator::getEnds(RCShdPtr<TmTimeCurve const> const& curve) {
  RCShdPtr<TmKeyframe const> const first = curve->getFirstKeyframe();
  RCShdPtr<TmKeyframe const> const last = curve->getLastKeyframe();
  return Ends{first->getTime(), first->getValue(), last->getTime(), last->getValue()};
}

bool TcExtrapolator::findEnds(RCShdPtr<TmTimeCurve const> const& curve, Ends& ends) {
  RCShdPtr<TmKeyframe const> const first = curve->getFirstKeyframe();
  RCShdPtr<TmKeyframe const> const last = curve->getLastKeyframe();
  if (first.isNull() || last.isNull()) return false;
  ends = Ends{first->getTime(), first->getValue(), last->getTime(), last->getValue()};
  return true;
}

// Whole periods are added or taken away one at a time, never divided out, so that the cycle count
// is exactly the number of steps.
double TcExtrapolator::mapTime(double time, RCShdPtr<TmTimeCurve const> const& curve, int& cycle,
                               bool& mirrored) const {
  Ends const ends = getEnds(curve);
  cycle = 0;
  mirrored = false;
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
  return time;
}

void TcExtrapolator::tessellateBeforeAsLine(double x, RCShdPtr<TmTimeCurve const> const& curve,
                                            Polylines& out) const {
  Ends ends;
  if (!findEnds(curve, ends) || x >= ends.t0) return;
  out.push_back(Polyline{GePoint2<double>(x, evaluate(x, curve)), GePoint2<double>(ends.t0, ends.v0)});
}

void TcExtrapolator::tessellateAfterAsLine(double x, RCShdPtr<TmTimeCurve const> const& curve,
                                           Polylines& out) const {
  Ends ends;
  if (!findEnds(curve, ends) || x <= ends.t1) return;
  out.push_back(Polyline{GePoint2<double>(ends.t1, ends.v1), GePoint2<double>(x, evaluate(x, curve))});
}

double TcExtrapolator::getNextKeyTimeByLoop(double time, RCShdPtr<TmTimeCurve const> const& curve) const {
  Ends const ends = getEnds(curve);
  int cycle = 0;
  bool mirrored = false;
  double m = mapTime(time, curve, cycle, mirrored);
  if (FloatUtil::isAbsEqual(m, ends.t1, TcConstants::kTimeTolerance)) m = ends.t0;
  RCShdPtr<TmKeyframe const> const next = curve->getNextKeyframe(m);
  return next->getTime() - m + time;
}

}  // namespace Orn
