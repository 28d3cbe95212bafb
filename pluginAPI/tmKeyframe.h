#pragma once
// Interface of one control point of an animation function value(time): a time, a value, two
// tangent handles in absolute (time, value) coordinates and the interpolation of the segment that
// begins at the key. Keyframes are shared objects: create them with new and hold them by RCShdPtr.

#include <orn/base/geometryBase/gePoint2.h>
#include <orn/base/rc/lkCounter.h>
#include <orn/base/rc/rcBase.h>
#include <orn/base/rc/rcShdPtr.h>
#include <orn/pluginAPI/tmAnimTypes.h>

#include <cstdint>

namespace Orn {

class TmKeyframe : public RCBase<LkCounter<int>> {
public:
  // Whether setting a handle obeys the key's locks and unification flags.
  enum ContraintOptions : std::int32_t { APPLY_CONSTRAINTS = 0, IGNORE_CONSTRAINTS = 1 };

  ~TmKeyframe() override;

  virtual TmKeyframe* clone() const = 0;
  // Value of the segment from this key to next at time.
  virtual double evaluate(double time, RCShdPtr<TmKeyframe> const& next) const = 0;
  virtual double getTime() const = 0;
  virtual double getValue() const = 0;
  virtual TmAnimTypes::InterpolationType getInterpolationType() const = 0;
  virtual void setTime(double time) = 0;
  virtual void setValue(double value) = 0;
  virtual void setInterpolationType(TmAnimTypes::InterpolationType type) = 0;
  // Moves the key and both handles with it.
  virtual void move(double time, double value) = 0;
  // aspect is the screen size of one value unit over that of one time unit.
  virtual void setInTangent(GePoint2<double> const& tangent, ContraintOptions option, double aspect) = 0;
  virtual void setOutTangent(GePoint2<double> const& tangent, ContraintOptions option, double aspect) = 0;
  // The stored handle.
  virtual GePoint2<double> const& getInTangent() const = 0;
  // The handle cut where it would pass the neighbour's time; a null neighbour cuts nothing.
  virtual GePoint2<double> getInTangent(RCShdPtr<TmKeyframe const> const& neighbour) const = 0;
  virtual GePoint2<double> const& getOutTangent() const = 0;
  virtual GePoint2<double> getOutTangent(RCShdPtr<TmKeyframe const> const& neighbour) const = 0;
};

}  // namespace Orn
