#pragma once
// Strategy that evaluates and flattens one curve segment, from a key to the next. Stateless: each
// keyframe owns an instance of the class of its interpolation type.

#include <orn/base/containers/vector.h>
#include <orn/base/geometryBase/gePoint2.h>
#include <orn/base/rc/lkCounter.h>
#include <orn/base/rc/rcBase.h>
#include <orn/base/rc/rcShdPtr.h>
#include <orn/pluginAPI/tmKeyframe.h>

namespace Orn {

class TcInterpolator : public RCBase<LkCounter<int>> {
public:
  ~TcInterpolator() override;

  // Value at time of the segment from key to next; null keys raise RCEx::ExNullPtr.
  virtual double evaluate(double time, RCShdPtr<TmKeyframe> const& key, RCShdPtr<TmKeyframe> const& next) const;
  // Appends a polyline of the segment, within tolerance in curve units, to points.
  virtual void tessellate(RCShdPtr<TmKeyframe const> const& key, RCShdPtr<TmKeyframe const> const& next,
                          double tolerance, Vector<GePoint2<double>>& points) const = 0;
  // What evaluate computes, for keys at hand: a keyframe passes itself this way, without making a
  // handle to itself.
  virtual double evaluateKeys(double time, TmKeyframe const& key, TmKeyframe const& next) const = 0;
};

}  // namespace Orn
