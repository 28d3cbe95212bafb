#include <orn/base/except/assertions.h>
#include <orn/base/geometryBase/floatUtil.h>
#include <orn/primitives/timeCurves/tcBezierInterpolator.h>
#include <orn/primitives/timeCurves/tcConstantInterpolator.h>
#include <orn/primitives/timeCurves/tcKeyframe.h>
#include <orn/primitives/timeCurves/tcLinearInterpolator.h>

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <typeinfo>

namespace Orn {

namespace {

// Offset of a handle from its key, in aspect space (one value unit is aspect time units wide).
GeVector2<double> toAspect(GePoint2<double> const& handle, double time, double value, double aspect) {
  return GeVector2<double>(handle.x - time, (handle.y - value) * aspect);
}

// Unit vector of v, or fallback when v has no direction.
GeVector2<double> directionOf(GeVector2<double> const& v, GeVector2<double> const& fallback) {
  double const length = v.getLength();
  if (length <= DBL_MIN) return fallback;
  return GeVector2<double>(v.x / length, v.y / length);
}

// The handle at aspect-space length along an aspect-space direction.
GePoint2<double> handleAt(double time, double value, GeVector2<double> const& dir, double length, double aspect) {
  return GePoint2<double>(time + dir.x * length, value + dir.y * length / aspect);
}

}  // namespace

TcKeyframe::TcKeyframe(double time, double value, TmAnimTypes::InterpolationType type)
    : _time(time),
      _value(value),
      _interpolationType(type),
      _inTangent(time - 0.1, value),
      _outTangent(time + 0.1, value),
      _timeLocked(false),
      _valueLocked(false),
      _tangentOrientationLocked(false),
      _tangentLengthLocked(false),
      _autoTangent(true),
      _tangentOrientationUnified(true),
      _tangentLengthUnified(false),
      _linkedToCueMark(false) {
  setInterpolationType(type);
}

TcKeyframe::TcKeyframe(GePoint2<double> const& inTangent, double time, double value,
                       GePoint2<double> const& outTangent, TmAnimTypes::InterpolationType type, int constraints)
    : _time(time),
      _value(value),
      _interpolationType(type),
      _inTangent(inTangent),
      _outTangent(outTangent),
      _timeLocked((constraints & TIME_LOCKED) != 0),
      _valueLocked((constraints & VALUE_LOCKED) != 0),
      _tangentOrientationLocked((constraints & TANGENT_ORIENTATION_LOCKED) != 0),
      _tangentLengthLocked((constraints & TANGENT_LENGTH_LOCKED) != 0),
      _autoTangent((constraints & AUTO_TANGENT) != 0),
      _tangentOrientationUnified((constraints & TANGENT_ORIENTATION_UNIFIED) != 0),
      _tangentLengthUnified((constraints & TANGENT_LENGTH_UNIFIED) != 0),
      _linkedToCueMark(false) {
  setInterpolationType(type);
}

TcKeyframe::TcKeyframe(TcKeyframe const& other)
    : TmKeyframe(other),
      _time(other._time),
      _value(other._value),
      _interpolationType(other._interpolationType),
      _inTangent(other._inTangent),
      _outTangent(other._outTangent),
      _timeLocked(other._timeLocked),
      _valueLocked(other._valueLocked),
      _tangentOrientationLocked(other._tangentOrientationLocked),
      _tangentLengthLocked(other._tangentLengthLocked),
      _autoTangent(other._autoTangent),
      _tangentOrientationUnified(other._tangentOrientationUnified),
      _tangentLengthUnified(other._tangentLengthUnified),
      _linkedToCueMark(other._linkedToCueMark) {
  setInterpolationType(other._interpolationType);
}

TcKeyframe& TcKeyframe::operator=(TcKeyframe const& other) {
  if (this == &other) return *this;
  _time = other._time;
  _value = other._value;
  _inTangent = other._inTangent;
  _outTangent = other._outTangent;
  _timeLocked = other._timeLocked;
  _valueLocked = other._valueLocked;
  _tangentOrientationLocked = other._tangentOrientationLocked;
  _tangentLengthLocked = other._tangentLengthLocked;
  _autoTangent = other._autoTangent;
  _tangentOrientationUnified = other._tangentOrientationUnified;
  _tangentLengthUnified = other._tangentLengthUnified;
  _linkedToCueMark = other._linkedToCueMark;
  setInterpolationType(other._interpolationType);
  return *this;
}

TcKeyframe::~TcKeyframe() = default;

TmKeyframe* TcKeyframe::clone() const {
  ORN_ASSERT_TEXT(typeid(*this) == typeid(TcKeyframe), "typeid( *this ) == typeid( TcKeyframe )");
  return new TcKeyframe(*this);
}

double TcKeyframe::evaluate(double time, RCShdPtr<TmKeyframe> const& next) const {
  return _interpolator->evaluateKeys(time, *this, *next);
}

void TcKeyframe::tessellate(RCShdPtr<TmKeyframe const> const& next, double tolerance,
                            Vector<GePoint2<double>>& points) const {
  _interpolator->tessellate(RCShdPtr<TmKeyframe const>(this), next, tolerance, points);
}

void TcKeyframe::setTime(double time) {
  if (!_timeLocked) _time = time;
}

void TcKeyframe::setValue(double value) {
  if (!_valueLocked) _value = value;
}

void TcKeyframe::setInterpolationType(TmAnimTypes::InterpolationType type) {
  _interpolationType = type;
  switch (type) {
    case TmAnimTypes::INTERPOLATION_CONSTANT:
      _interpolator = new TcConstantInterpolator();
      break;
    case TmAnimTypes::INTERPOLATION_LINEAR:
      _interpolator = new TcLinearInterpolator();
      break;
    default:
      _interpolator = new TcBezierInterpolator();
      break;
  }
}

void TcKeyframe::move(double time, double value) {
  double dt = 0.0;
  double dv = 0.0;
  if (!_timeLocked) {
    dt = time - _time;
    _time = time;
  }
  if (!_valueLocked) {
    dv = value - _value;
    _value = value;
  }
  GeVector2<double> const shift(dt, dv);
  _inTangent += shift;
  _outTangent += shift;
}

void TcKeyframe::setValueLocked(bool locked) { _valueLocked = locked; }

void TcKeyframe::setTangentOrientationLocked(bool locked) { _tangentOrientationLocked = locked; }

void TcKeyframe::setTangentLengthLocked(bool locked) { _tangentLengthLocked = locked; }

int TcKeyframe::getConstraintData() const {
  return (_timeLocked ? TIME_LOCKED : 0) | (_valueLocked ? VALUE_LOCKED : 0) |
         (_tangentOrientationLocked ? TANGENT_ORIENTATION_LOCKED : 0) |
         (_tangentLengthLocked ? TANGENT_LENGTH_LOCKED : 0) | (_autoTangent ? AUTO_TANGENT : 0) |
         (_tangentOrientationUnified ? TANGENT_ORIENTATION_UNIFIED : 0) |
         (_tangentLengthUnified ? TANGENT_LENGTH_UNIFIED : 0);
}

GePoint2<double> TcKeyframe::getOutTangent(RCShdPtr<TmKeyframe const> const& neighbour) const {
  return neighbour.isNull() ? _outTangent : getOutTangentCutAt(neighbour->getTime());
}

GePoint2<double> TcKeyframe::getInTangent(RCShdPtr<TmKeyframe const> const& neighbour) const {
  return neighbour.isNull() ? _inTangent : getInTangentCutAt(neighbour->getTime());
}

GePoint2<double> TcKeyframe::getOutTangentCutAt(double tn) const {
  if (!(_outTangent.x > tn)) return _outTangent;
  if (FloatUtil::isRelEqual(_outTangent.y, _value)) return GePoint2<double>(tn, _value);
  return GePoint2<double>(tn, _value + (_outTangent.y - _value) * (tn - _time) / (_outTangent.x - _time));
}

GePoint2<double> TcKeyframe::getInTangentCutAt(double tp) const {
  if (!(tp > _inTangent.x)) return _inTangent;
  if (FloatUtil::isRelEqual(_inTangent.y, _value)) return GePoint2<double>(tp, _value);
  return GePoint2<double>(tp, _value + (_inTangent.y - _value) * (_time - tp) / (_time - _inTangent.x));
}

void TcKeyframe::setInTangent(GePoint2<double> const& tangent, ContraintOptions option, double aspect) {
  if (option == IGNORE_CONSTRAINTS) {
    _inTangent = tangent;
    return;
  }
  setTangent(tangent, aspect, -1.0, _inTangent, _outTangent);
}

void TcKeyframe::setOutTangent(GePoint2<double> const& tangent, ContraintOptions option, double aspect) {
  if (option == IGNORE_CONSTRAINTS) {
    _outTangent = tangent;
    return;
  }
  setTangent(tangent, aspect, 1.0, _outTangent, _inTangent);
}

// The in handle (sign -1) stays left of the key, the out handle (sign +1) right of it. Lengths and
// directions are measured in aspect space so that they match what the user sees.
void TcKeyframe::setTangent(GePoint2<double> const& point, double aspect, double sign, GePoint2<double>& set,
                            GePoint2<double>& opposite) {
  if (_tangentOrientationLocked && _tangentLengthLocked) return;

  double const dx = point.x - _time;
  double const dy = point.y - _value;
  double const cx = sign < 0.0 ? std::min(0.0, dx) : std::max(0.0, dx);
  GeVector2<double> const ownDefault(sign, 0.0);
  GeVector2<double> const oppositeDefault(-sign, 0.0);

  if (_tangentOrientationLocked) {
    GeVector2<double> const dir = directionOf(toAspect(set, _time, _value, aspect), ownDefault);
    double const length = std::sqrt(dx * dx + (dy * aspect) * (dy * aspect));
    set = handleAt(_time, _value, dir, length, aspect);
  } else if (_tangentLengthLocked) {
    double const length = toAspect(set, _time, _value, aspect).getLength();
    // The in handle takes its direction from the request as it is, the out handle from the
    // request pulled onto its own side.
    double const rx = sign < 0.0 ? dx : cx;
    GeVector2<double> const dir = directionOf(GeVector2<double>(rx, dy * aspect), ownDefault);
    set = handleAt(_time, _value, dir, length, aspect);
  } else {
    set = GePoint2<double>(_time + cx, _value + dy);
  }

  if (_tangentOrientationUnified && _tangentLengthUnified) {
    opposite = GePoint2<double>(_time - (set.x - _time), _value - (set.y - _value));
  } else if (_tangentOrientationUnified) {
    GeVector2<double> const dir = directionOf(
        GeVector2<double>(_time - set.x, (_value - set.y) * aspect), oppositeDefault);
    double const length = toAspect(opposite, _time, _value, aspect).getLength();
    opposite = handleAt(_time, _value, dir, length, aspect);
  } else if (_tangentLengthUnified) {
    GeVector2<double> const dir = directionOf(toAspect(opposite, _time, _value, aspect), oppositeDefault);
    double const length = toAspect(set, _time, _value, aspect).getLength();
    opposite = handleAt(_time, _value, dir, length, aspect);
  }

  if (_tangentLengthUnified) {
    double const setLength = toAspect(set, _time, _value, aspect).getLength();
    double const oppositeLength = toAspect(opposite, _time, _value, aspect).getLength();
    if (setLength != oppositeLength) {
      GeVector2<double> const dir = directionOf(toAspect(set, _time, _value, aspect), ownDefault);
      set = handleAt(_time, _value, dir, oppositeLength, aspect);
    }
  }
}

}  // namespace Orn
