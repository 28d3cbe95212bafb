#pragma once
// Interface of an animation function: an ordered set of keyframes, an extrapolation for the times
// outside them and a default interpolation for new keys. Every time argument that names a key
// finds it within the curves' time tolerance. Curves are shared objects: create them with new and
// hold them by RCShdPtr.

#include <orn/base/containers/constIterator.h>
#include <orn/base/geometryBase/gePoint2.h>
#include <orn/base/rc/lkCounter.h>
#include <orn/base/rc/rcBase.h>
#include <orn/base/rc/rcShdPtr.h>
#include <orn/pluginAPI/tmAnimTypes.h>
#include <orn/pluginAPI/tmKeyframe.h>

#include <cstdint>

namespace Orn {

class TmTimeCurve : public RCBase<LkCounter<int>> {
public:
  // Whether an edit calls the curve's change handlers.
  enum NotifyType : std::int32_t { DONT_NOTIFY = 0, NOTIFY = 1 };

  ~TmTimeCurve() override;

  virtual TmTimeCurve* clone() const = 0;
  virtual double evaluate(double time) const = 0;
  virtual void addKeyframe(double time, double value) = 0;
  virtual bool removeKeyframe(double time) = 0;
  virtual bool setKeyframeInterpolation(double time, TmAnimTypes::InterpolationType type) = 0;
  virtual TmAnimTypes::InterpolationType getInterpolationType(double time) const = 0;
  // The moved key, or null when there is no key at oldTime or newTime is taken.
  virtual RCShdPtr<TmKeyframe> moveKeyframe(double oldTime, double newTime, double newValue,
                                            NotifyType notify) = 0;
  virtual void moveAllKeyframes(double delta) = 0;
  virtual bool hasKeyframe(double time) const = 0;
  virtual RCShdPtr<TmKeyframe const> getFirstKeyframe() const = 0;
  virtual RCShdPtr<TmKeyframe> getFirstKeyframe() = 0;
  virtual RCShdPtr<TmKeyframe const> getLastKeyframe() const = 0;
  virtual RCShdPtr<TmKeyframe> getLastKeyframe() = 0;
  // The first key strictly after time; null when none.
  virtual RCShdPtr<TmKeyframe const> getNextKeyframe(double time) const = 0;
  virtual RCShdPtr<TmKeyframe> getNextKeyframe(double time) = 0;
  // The last key strictly before time; null when none.
  virtual RCShdPtr<TmKeyframe const> getPreviousKeyframe(double time) const = 0;
  virtual RCShdPtr<TmKeyframe> getPreviousKeyframe(double time) = 0;
  // One key, or an empty range.
  virtual ConstIterator<RCShdPtr<TmKeyframe>> retrieveKeyframe(double time) const = 0;
  virtual ConstIterator<RCShdPtr<TmKeyframe>> retrieveNearestKeyframe(GePoint2<double> const& point,
                                                                      double tolerance) const = 0;
  // All keys in time order; the range lives as long as the curve is not edited.
  virtual ConstIterator<RCShdPtr<TmKeyframe>> getKeyframes() const = 0;
  virtual void setKeyframes(ConstIterator<RCShdPtr<TmKeyframe>> keyframes) = 0;
  virtual int size() const = 0;
  virtual bool empty() const = 0;
  virtual void setExtrapolationType(TmAnimTypes::ExtrapolationType type) = 0;
  virtual TmAnimTypes::ExtrapolationType getExtrapolationType() const = 0;
  virtual void setDefaultInterpolationType(TmAnimTypes::InterpolationType type) = 0;
  virtual TmAnimTypes::InterpolationType getDefaultInterpolationType() const = 0;
};

}  // namespace Orn
