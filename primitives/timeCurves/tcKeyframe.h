#pragma once
// The concrete keyframe: time, value, handles, editing locks and unification flags, and the
// strategy that interpolates the segment beginning at the key.

#include <orn/base/containers/vector.h>
#include <orn/base/geometryBase/gePoint2.h>
#include <orn/base/rc/rcShdPtr.h>
#include <orn/pluginAPI/tmKeyframe.h>
#include <orn/primitives/timeCurves/tcInterpolator.h>

namespace Orn {

class TcKeyframe : public TmKeyframe {
public:
  // Bits of getConstraintData(), in field order.
  enum ConstraintBits {
    TIME_LOCKED = 1,
    VALUE_LOCKED = 2,
    TANGENT_ORIENTATION_LOCKED = 4,
    TANGENT_LENGTH_LOCKED = 8,
    AUTO_TANGENT = 16,
    TANGENT_ORIENTATION_UNIFIED = 32,
    TANGENT_LENGTH_UNIFIED = 64
  };

  // Handles 0.1 to either side, flat; auto tangents and unified orientation on, everything else off.
  TcKeyframe(double time, double value, TmAnimTypes::InterpolationType type);
  // Everything as given; constraints packed as by getConstraintData().
  TcKeyframe(GePoint2<double> const& inTangent, double time, double value, GePoint2<double> const& outTangent,
             TmAnimTypes::InterpolationType type, int constraints);
  // Copies every field and gives the copy a strategy of its own.
  TcKeyframe(TcKeyframe const& other);
  TcKeyframe& operator=(TcKeyframe const& other);
  ~TcKeyframe() override;

  // Only for TcKeyframe itself: a subclass must give its own.
  TmKeyframe* clone() const override;
  double evaluate(double time, RCShdPtr<TmKeyframe> const& next) const override;
  double getTime() const override { return _time; }
  double getValue() const override { return _value; }
  TmAnimTypes::InterpolationType getInterpolationType() const override { return _interpolationType; }
  // Ignored on a time-locked key; the handles stay where they are.
  void setTime(double time) override;
  // Ignored on a value-locked key; the handles stay where they are.
  void setValue(double value) override;
  // Stores the type and installs a new strategy for it.
  void setInterpolationType(TmAnimTypes::InterpolationType type) override;
  // The unlocked coordinates move; both handles follow by the same offset.
  void move(double time, double value) override;
  void setInTangent(GePoint2<double> const& tangent, ContraintOptions option, double aspect) override;
  void setOutTangent(GePoint2<double> const& tangent, ContraintOptions option, double aspect) override;
  GePoint2<double> const& getInTangent() const override { return _inTangent; }
  GePoint2<double> getInTangent(RCShdPtr<TmKeyframe const> const& neighbour) const override;
  GePoint2<double> const& getOutTangent() const override { return _outTangent; }
  GePoint2<double> getOutTangent(RCShdPtr<TmKeyframe const> const& neighbour) const override;
  // The handles cut at a neighbour at the given time, as the two members above do.
  GePoint2<double> getInTangentCutAt(double neighbourTime) const;
  GePoint2<double> getOutTangentCutAt(double neighbourTime) const;

  // Appends the polyline of the segment from this key to next.
  virtual void tessellate(RCShdPtr<TmKeyframe const> const& next, double tolerance,
                          Vector<GePoint2<double>>& points) const;
  virtual void setValueLocked(bool locked);
  virtual void setTangentOrientationLocked(bool locked);
  virtual void setTangentLengthLocked(bool locked);

  void setTimeLocked(bool locked) { _timeLocked = locked; }
  void setAutoTangent(bool on) { _autoTangent = on; }
  void setTangentOrientationUnified(bool on) { _tangentOrientationUnified = on; }
  void setTangentLengthUnified(bool on) { _tangentLengthUnified = on; }
  void setLinkedToCueMark(bool linked) { _linkedToCueMark = linked; }
  bool isTimeLocked() const { return _timeLocked; }
  bool isValueLocked() const { return _valueLocked; }
  bool isTangentOrientationLocked() const { return _tangentOrientationLocked; }
  bool isTangentLengthLocked() const { return _tangentLengthLocked; }
  bool isAutoTangent() const { return _autoTangent; }
  bool isTangentOrientationUnified() const { return _tangentOrientationUnified; }
  bool isTangentLengthUnified() const { return _tangentLengthUnified; }
  bool isLinkedToCueMark() const { return _linkedToCueMark; }

  // The first seven flags as bits (ConstraintBits); the cue mark is not part of it.
  int getConstraintData() const;

  RCShdPtr<TcInterpolator> const& getInterpolator() const { return _interpolator; }

private:
  // Shared body of setInTangent (sign -1) and setOutTangent (sign +1): set is the handle being
  // set, opposite the other one.
  void setTangent(GePoint2<double> const& point, double aspect, double sign, GePoint2<double>& set,
                  GePoint2<double>& opposite);

  double _time;
  double _value;
  TmAnimTypes::InterpolationType _interpolationType;
  GePoint2<double> _inTangent;
  GePoint2<double> _outTangent;
  RCShdPtr<TcInterpolator> _interpolator;
  bool _timeLocked;
  bool _valueLocked;
  bool _tangentOrientationLocked;
  bool _tangentLengthLocked;
  bool _autoTangent;
  bool _tangentOrientationUnified;
  bool _tangentLengthUnified;
  bool _linkedToCueMark;
};

}  // namespace Orn
