#pragma once
// Strategy that continues a time curve outside its keys, at both ends. Stateless: a curve with at
// least two keys owns one instance of the class of its extrapolation type.

#include <orn/base/containers/vector.h>
#include <orn/base/geometryBase/floatUtil.h>
#include <orn/base/geometryBase/gePoint2.h>
#include <orn/base/rc/lkCounter.h>
#include <orn/base/rc/rcBase.h>
#include <orn/base/rc/rcShdPtr.h>
#include <orn/pluginAPI/tmTimeCurve.h>

#include <cstddef>
#include <utility>

namespace Orn {

class TcExtrapolator : public RCBase<LkCounter<int>> {
public:
  using Polyline = Vector<GePoint2<double>>;
  using Polylines = Vector<Polyline>;

  ~TcExtrapolator() override;

  // Value at a time before the first key or after the last one.
  virtual double evaluate(double time, RCShdPtr<TmTimeCurve const> const& curve) const = 0;
  // Time of the next key, or of the next image of a key, after time.
  virtual double getNextKeyTime(double time, RCShdPtr<TmTimeCurve const> const& curve) const = 0;
  // Whether the curve repeats outside its keys.
  virtual bool isCyclic() const;
  // Append to out the polylines that cover [x, first key] and [last key, x]; base holds the
  // polylines of the keyed range. Nothing when x is not beyond that end.
  virtual void tessellateBefore(double x, RCShdPtr<TmTimeCurve const> const& curve, Polylines const& base,
                                Polylines& out) const = 0;
  virtual void tessellateAfter(double x, RCShdPtr<TmTimeCurve const> const& curve, Polylines const& base,
                               Polylines& out) const = 0;
  // Brings time into the key range by whole periods, counting them in cycle. The last key's
  // time maps to the first key's. mirrored tells an odd cycle of a back-and-forth repetition.
  virtual double mapTime(double time, RCShdPtr<TmTimeCurve const> const& curve, int& cycle, bool& mirrored) const;

protected:
  // Times and values of the first and last keys; null keys raise RCEx::ExNullPtr.
  struct Ends {
    double t0, v0, t1, v1;
  };
  static Ends getEnds(RCShdPtr<TmTimeCurve const> const& curve);
  // The ends, or false when the curve lacks a key at either end.
  static bool findEnds(RCShdPtr<TmTimeCurve const> const& curve, Ends& ends);
  // Appends the two-point polylines of the non-repeating extrapolators.
  void tessellateBeforeAsLine(double x, RCShdPtr<TmTimeCurve const> const& curve, Polylines& out) const;
  void tessellateAfterAsLine(double x, RCShdPtr<TmTimeCurve const> const& curve, Polylines& out) const;
  // Appends, for each cycle i from 1 to the cycle count of x, a copy of base whose points are
  // mapped by shift(point, i, ends). Nothing when the period is at most 1e-05.
  template <class Shift>
  void repeat(double x, RCShdPtr<TmTimeCurve const> const& curve, Polylines const& base, Polylines& out,
              Shift const& shift) const {
    Ends ends;
    if (!findEnds(curve, ends)) return;
    if (FloatUtil::isAbsZero(ends.t1 - ends.t0, 1e-05)) return;
    int cycle = 0;
    bool mirrored = false;
    mapTime(x, curve, cycle, mirrored);
    out.reserve(out.size() + std::size_t(cycle) * base.size());
    for (int i = 1; i <= cycle; ++i) {
      for (Polyline const& polyline : base) {
        Polyline copy;
        copy.reserve(polyline.size());
        for (GePoint2<double> const& p : polyline) copy.push_back(shift(p, i, ends));
        out.push_back(std::move(copy));
      }
    }
  }
  // Next key after time for the repeating extrapolators, through mapTime.
  double getNextKeyTimeByLoop(double time, RCShdPtr<TmTimeCurve const> const& curve) const;
};

}  // namespace Orn
