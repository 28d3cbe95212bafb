#include <orn/base/containers/constIteratorSTL.h>
#include <orn/base/except/assertions.h>
#include <orn/base/geometryBase/floatUtil.h>
#include <orn/primitives/timeCurves/tcConstantExtrapolator.h>
#include <orn/primitives/timeCurves/tcConstants.h>
#include <orn/primitives/timeCurves/tcKeyLinearExtrapolator.h>
#include <orn/primitives/timeCurves/tcLinearExtrapolator.h>
#include <orn/primitives/timeCurves/tcLoopExtrapolator.h>
#include <orn/primitives/timeCurves/tcPingPongExtrapolator.h>
#include <orn/primitives/timeCurves/tcRelativeExtrapolator.h>
#include <orn/primitives/timeCurves/tcTimeCurve.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <typeinfo>
#include <utility>

namespace Orn {

namespace {

bool isSameTime(double a, double b) { return FloatUtil::isAbsEqual(a, b, TcConstants::kTimeTolerance); }

// The key as a TcKeyframe; RCEx::ExNullPtr for a null key, RCEx::ExCastFailed for another class.
TcKeyframe& asTcKeyframe(RCShdPtr<TmKeyframe> const& key) {
  TmKeyframe* const k = key.operator->();
  TcKeyframe* const tc = dynamic_cast<TcKeyframe*>(k);
  if (!tc) RCExUtil::throwExCastFailed(demangleTypeName(typeid(*k).name()).c_str(), typeNameOf<TcKeyframe>().c_str());
  return *tc;
}

// The key as a TcKeyframe, or null.
TcKeyframe const* findTcKeyframe(RCShdPtr<TmKeyframe> const& key) { return dynamic_cast<TcKeyframe const*>(key.get()); }

}  // namespace

TcTimeCurve::TcTimeCurve() : TcTimeCurve(TmAnimTypes::INTERPOLATION_BEZIER) {}

TcTimeCurve::TcTimeCurve(TmAnimTypes::InterpolationType defaultType)
    : _extrapolationType(TmAnimTypes::EXTRAPOLATION_CONSTANT),
      _defaultInterpolationType(defaultType),
      _id(0),
      _timeOffset(0.0),
      _hasTimeTransform(false),
      _limitToNeighbours(false) {
  installExtrapolator(TmAnimTypes::EXTRAPOLATION_CONSTANT);
}

TcTimeCurve::TcTimeCurve(RCProxyPvtEngPtr<Vector<double>> const& keyframes,
                         RCProxyPvtEngPtr<Vector<int>> const& interpolations,
                         RCProxyPvtEngPtr<Vector<int>> const& constraints, TmAnimTypes::ExtrapolationType extrapolation,
                         TmAnimTypes::InterpolationType defaultType)
    : TcTimeCurve(defaultType) {
  ORN_ASSERT(!keyframes.isNull());
  ORN_ASSERT(!interpolations.isNull());
  ORN_ASSERT(!constraints.isNull());
  ORN_ASSERT(keyframes->size() == interpolations->size() * 6);
  ORN_ASSERT(keyframes->size() == constraints->size() * 6);
  installExtrapolator(extrapolation);
  Vector<double> const& data = *keyframes;
  for (std::size_t i = 0; i < interpolations->size(); ++i) {
    double const* d = &data[6 * i];
    insertKey(RCShdPtr<TmKeyframe>(
        new TcKeyframe(GePoint2<double>(d[0], d[1]), d[2], d[3], GePoint2<double>(d[4], d[5]),
                       TmAnimTypes::InterpolationType((*interpolations)[i]), (*constraints)[i])));
  }
}

TcTimeCurve::TcTimeCurve(TcTimeCurve const& other) : TmTimeCurve(other) { copyFrom(other); }

TcTimeCurve& TcTimeCurve::operator=(TcTimeCurve const& other) {
  if (this != &other) copyFrom(other);
  return *this;
}

TcTimeCurve::~TcTimeCurve() = default;

void TcTimeCurve::copyFrom(TcTimeCurve const& other) {
  clearKeys();
  for (RCShdPtr<TmKeyframe> const& key : other._keyframes) insertKey(RCShdPtr<TmKeyframe>(key->clone()));
  installExtrapolator(other._extrapolationType);
  _defaultInterpolationType = other._defaultInterpolationType;
  _id = other._id;
  _timePath = other._timePath;
  _timeOffset = other._timeOffset;
  _hasTimeTransform = other._hasTimeTransform;
  _limitToNeighbours = other._limitToNeighbours;
}

bool TcTimeCurve::insertKey(RCShdPtr<TmKeyframe> const& key) {
  if (!_keyframes.insert(key).second) return false;
  auto const at = std::upper_bound(_sortedKeys.begin(), _sortedKeys.end(), key, LtKey());
  _sortedTimes.insert(_sortedTimes.begin() + (at - _sortedKeys.begin()), key->getTime());
  _sortedKeys.insert(at, key);
  return true;
}

void TcTimeCurve::eraseKey(KeyIterator it) {
  // By identity: a caller may have changed the key's time in place before taking it out.
  auto const at = std::find(_sortedKeys.begin(), _sortedKeys.end(), *it);
  _sortedTimes.erase(_sortedTimes.begin() + (at - _sortedKeys.begin()));
  _sortedKeys.erase(at);
  _keyframes.erase(it);
}

void TcTimeCurve::clearKeys() {
  _keyframes.clear();
  _sortedKeys.clear();
  _sortedTimes.clear();
}

void TcTimeCurve::refreshSortedTimes() {
  for (std::size_t i = 0; i < _sortedKeys.size(); ++i) _sortedTimes[i] = _sortedKeys[i]->getTime();
}

TmTimeCurve* TcTimeCurve::clone() const {
  ORN_ASSERT_TEXT(typeid(*this) == typeid(TcTimeCurve), "typeid( *this ) == typeid( TcTimeCurve )");
  return new TcTimeCurve(*this);
}

void TcTimeCurve::installExtrapolator(TmAnimTypes::ExtrapolationType type) {
  _extrapolationType = type;
  switch (type) {
    case TmAnimTypes::EXTRAPOLATION_LINEAR:
      _extrapolator = new TcLinearExtrapolator();
      break;
    case TmAnimTypes::EXTRAPOLATION_LOOP:
      _extrapolator = new TcLoopExtrapolator();
      break;
    case TmAnimTypes::EXTRAPOLATION_PING_PONG:
      _extrapolator = new TcPingPongExtrapolator();
      break;
    case TmAnimTypes::EXTRAPOLATION_RELATIVE:
      _extrapolator = new TcRelativeExtrapolator();
      break;
    case TmAnimTypes::EXTRAPOLATION_KEY_LINEAR:
      _extrapolator = new TcKeyLinearExtrapolator();
      break;
    default:
      _extrapolator = new TcConstantExtrapolator();
      break;
  }
}

RCShdPtr<TmKeyframe> TcTimeCurve::createKeyframe(double time, double value, TmAnimTypes::InterpolationType type) {
  return new TcKeyframe(time, value, type);
}

// ---- Lookups

TcTimeCurve::KeyIterator TcTimeCurve::findKeyframe(double time) const {
  KeyIterator const it = _keyframes.lower_bound(time);
  if (it != _keyframes.end() && isSameTime((*it)->getTime(), time)) return it;
  if (it != _keyframes.begin()) {
    KeyIterator const before = std::prev(it);
    if (isSameTime((*before)->getTime(), time)) return before;
  }
  if (it != _keyframes.end()) {
    KeyIterator const after = std::next(it);
    if (after != _keyframes.end() && isSameTime((*after)->getTime(), time)) return after;
  }
  return _keyframes.end();
}

TcTimeCurve::KeyIterator TcTimeCurve::findSegment(double time) const {
  KeyIterator it = _keyframes.upper_bound(time + TcConstants::kTimeTolerance);
  if (it == _keyframes.begin()) return _keyframes.end();
  return --it;
}

TcTimeCurve::KeyIterator TcTimeCurve::getNextKeyframeIt(double time) const { return _keyframes.upper_bound(time); }

TcTimeCurve::KeyIterator TcTimeCurve::getPreviousKeyframeIt(double time) const {
  KeyIterator const it = _keyframes.lower_bound(time);
  return it == _keyframes.begin() ? _keyframes.end() : std::prev(it);
}

TcTimeCurve::KeyIterator TcTimeCurve::getNearestKeyframe(GePoint2<double> const& point, double tolerance) const {
  double const time = point.x;
  KeyIterator const next = _keyframes.lower_bound(time);
  KeyIterator const previous = next == _keyframes.begin() ? _keyframes.end() : std::prev(next);
  double const dNext = next != _keyframes.end() ? (*next)->getTime() - time : TcConstants::kFarTime;
  double const dPrevious = previous != _keyframes.end() ? time - (*previous)->getTime() : TcConstants::kFarTime;
  if (!(tolerance > std::min(dPrevious, dNext))) return _keyframes.end();
  return !(dNext > dPrevious) ? next : previous;
}

bool TcTimeCurve::hasKeyframe(double time) const { return findKeyframe(time) != _keyframes.end(); }

RCShdPtr<TmKeyframe const> TcTimeCurve::getFirstKeyframe() const {
  return _keyframes.empty() ? RCShdPtr<TmKeyframe const>() : RCShdPtr<TmKeyframe const>(*_keyframes.begin());
}

RCShdPtr<TmKeyframe> TcTimeCurve::getFirstKeyframe() {
  return _keyframes.empty() ? RCShdPtr<TmKeyframe>() : *_keyframes.begin();
}

RCShdPtr<TmKeyframe const> TcTimeCurve::getLastKeyframe() const {
  return _keyframes.empty() ? RCShdPtr<TmKeyframe const>() : RCShdPtr<TmKeyframe const>(*_keyframes.rbegin());
}

RCShdPtr<TmKeyframe> TcTimeCurve::getLastKeyframe() {
  return _keyframes.empty() ? RCShdPtr<TmKeyframe>() : *_keyframes.rbegin();
}

RCShdPtr<TmKeyframe const> TcTimeCurve::getNextKeyframe(double time) const {
  KeyIterator const it = getNextKeyframeIt(time);
  return it == _keyframes.end() ? RCShdPtr<TmKeyframe const>() : RCShdPtr<TmKeyframe const>(*it);
}

RCShdPtr<TmKeyframe> TcTimeCurve::getNextKeyframe(double time) {
  KeyIterator const it = getNextKeyframeIt(time);
  return it == _keyframes.end() ? RCShdPtr<TmKeyframe>() : *it;
}

RCShdPtr<TmKeyframe const> TcTimeCurve::getPreviousKeyframe(double time) const {
  KeyIterator const it = getPreviousKeyframeIt(time);
  return it == _keyframes.end() ? RCShdPtr<TmKeyframe const>() : RCShdPtr<TmKeyframe const>(*it);
}

RCShdPtr<TmKeyframe> TcTimeCurve::getPreviousKeyframe(double time) {
  KeyIterator const it = getPreviousKeyframeIt(time);
  return it == _keyframes.end() ? RCShdPtr<TmKeyframe>() : *it;
}

ConstIterator<RCShdPtr<TmKeyframe>> TcTimeCurve::retrieveKeyframe(double time) const {
  KeyIterator const it = findKeyframe(time);
  if (it == _keyframes.end()) return ConstIterator<RCShdPtr<TmKeyframe>>();
  return makeConstIterator(Keys{*it});
}

ConstIterator<RCShdPtr<TmKeyframe>> TcTimeCurve::retrieveNearestKeyframe(GePoint2<double> const& point,
                                                                         double tolerance) const {
  KeyIterator const it = getNearestKeyframe(point, tolerance);
  if (it == _keyframes.end()) return ConstIterator<RCShdPtr<TmKeyframe>>();
  return makeConstIterator(Keys{*it});
}

ConstIterator<RCShdPtr<TmKeyframe>> TcTimeCurve::getKeyframes() const { return makeConstIterator(_keyframes); }

TmAnimTypes::InterpolationType TcTimeCurve::getInterpolationType(double time) const {
  KeyIterator it = findKeyframe(time);
  if (it == _keyframes.end()) it = findSegment(time);
  return it == _keyframes.end() ? _defaultInterpolationType : (*it)->getInterpolationType();
}

bool TcTimeCurve::getInTangent(double time, GePoint2<double>& tangent) const {
  KeyIterator const it = findKeyframe(time);
  if (it == _keyframes.end()) return false;
  tangent = getInTangent(it);
  return true;
}

bool TcTimeCurve::getOutTangent(double time, GePoint2<double>& tangent) const {
  KeyIterator const it = findKeyframe(time);
  if (it == _keyframes.end()) return false;
  tangent = getOutTangent(it);
  return true;
}

GePoint2<double> TcTimeCurve::getInTangent(KeyIterator key) const {
  RCShdPtr<TmKeyframe const> const previous =
      key == _keyframes.begin() ? RCShdPtr<TmKeyframe const>() : RCShdPtr<TmKeyframe const>(*std::prev(key));
  return (*key)->getInTangent(previous);
}

GePoint2<double> TcTimeCurve::getOutTangent(KeyIterator key) const {
  KeyIterator const next = std::next(key);
  RCShdPtr<TmKeyframe const> const neighbour =
      next == _keyframes.end() ? RCShdPtr<TmKeyframe const>() : RCShdPtr<TmKeyframe const>(*next);
  return (*key)->getOutTangent(neighbour);
}

#define ORN_TC_FLAG_QUERY(name)                                  \
  bool TcTimeCurve::name(double time) const {                    \
    KeyIterator const it = findKeyframe(time);                   \
    if (it == _keyframes.end()) return false;                    \
    TcKeyframe const* const key = findTcKeyframe(*it);           \
    return key && key->name();                                   \
  }
ORN_TC_FLAG_QUERY(isTimeLocked)
ORN_TC_FLAG_QUERY(isValueLocked)
ORN_TC_FLAG_QUERY(isTangentOrientationLocked)
ORN_TC_FLAG_QUERY(isTangentLengthLocked)
ORN_TC_FLAG_QUERY(isAutoTangent)
ORN_TC_FLAG_QUERY(isTangentOrientationUnified)
ORN_TC_FLAG_QUERY(isTangentLengthUnified)
#undef ORN_TC_FLAG_QUERY

// ---- Evaluation

double TcTimeCurve::evaluate(double time) const {
  std::size_t const nbKeys = _sortedKeys.size();
  if (nbKeys == 0) return 0.0;
  TmKeyframe const& first = *_sortedKeys.front();
  if (nbKeys == 1) return first.getValue();
  TmKeyframe const& last = *_sortedKeys.back();
  double const t0 = first.getTime();
  double const t1 = last.getTime();
  if (t0 > time || (time > t1 && !isSameTime(time, t1)))
    return _extrapolator->evaluate(time, RCShdPtr<TmTimeCurve const>(this));
  if (isSameTime(time, t0)) return first.getValue();
  if (isSameTime(time, t1)) return last.getValue();
  // The last key at or before time + tolerance (the first key always is: t0 <= time), found by
  // halving without branches on the comparison, which is as good as random for random times.
  double const limit = time + TcConstants::kTimeTolerance;
  double const* times = _sortedTimes.data();
  std::size_t n = nbKeys;
  while (n > 1) {
    std::size_t const half = n / 2;
    times = limit < times[half] ? times : times + half;
    n -= half;
  }
  std::size_t const at = std::size_t(times - _sortedTimes.data());
  TmKeyframe const& key = *_sortedKeys[at];
  double const keyTime = key.getTime();
  if (at + 1 < nbKeys && !(limit < keyTime) && limit < _sortedKeys[at + 1]->getTime()) {
    if (isSameTime(keyTime, time)) return key.getValue();
    return key.evaluate(time, _sortedKeys[at + 1]);
  }
  // A stale time: the keys themselves decide.
  KeyIterator const it = findSegment(time);
  if (isSameTime((*it)->getTime(), time)) return (*it)->getValue();
  return (*it)->evaluate(time, *std::next(it));
}

// ---- Edits

void TcTimeCurve::addKeyframe(double time, double value) {
  if (_keyframes.empty()) {
    insertKey(createKeyframe(time, value, _defaultInterpolationType));
  } else {
    KeyIterator const existing = findKeyframe(time);
    if (existing != _keyframes.end()) {
      (*existing)->setValue(value);
    } else {
      // A key inserted within a segment continues that segment's kind.
      KeyIterator const segment = findSegment(time);
      TmAnimTypes::InterpolationType const type =
          segment == _keyframes.end() ? _defaultInterpolationType : (*segment)->getInterpolationType();
      insertKey(createKeyframe(time, value, type));
      updateAutoTangents(time, true);
    }
  }
  touch();
}

void TcTimeCurve::addKeyframe(RCShdPtr<TmKeyframe> const& key) {
  double const time = key->getTime();
  KeyIterator const existing = findKeyframe(time);
  if (existing != _keyframes.end()) eraseKey(existing);
  insertKey(key);
  updateAutoTangents(time, true);
  touch();
}

bool TcTimeCurve::removeKeyframe(double time) {
  KeyIterator const it = findKeyframe(time);
  if (it == _keyframes.end()) return false;
  bool const hasPrevious = it != _keyframes.begin();
  double const previousTime = hasPrevious ? (*std::prev(it))->getTime() : 0.0;
  KeyIterator const next = std::next(it);
  bool const hasNext = next != _keyframes.end();
  double const nextTime = hasNext ? (*next)->getTime() : 0.0;
  eraseKey(it);
  // The handles that faced the removed key are derived anew, auto tangents or not.
  if (hasPrevious) computeAutoTangent(previousTime, OUT_TANGENT);
  if (hasNext) computeAutoTangent(nextTime, IN_TANGENT);
  touch();
  return true;
}

RCShdPtr<TmKeyframe> TcTimeCurve::moveKeyframe(double oldTime, double newTime, double newValue, NotifyType notify) {
  KeyIterator const it = findKeyframe(oldTime);
  if (it == _keyframes.end()) return RCShdPtr<TmKeyframe>();
  RCShdPtr<TmKeyframe> const key = *it;
  TcKeyframe const* const tc = findTcKeyframe(key);

  bool timeChanged = false;
  if (!(tc && tc->isTimeLocked()) && !isSameTime(newTime, oldTime)) {
    KeyIterator const occupied = findKeyframe(newTime);
    if (occupied != _keyframes.end() && occupied != it) return RCShdPtr<TmKeyframe>();
    if (_limitToNeighbours) {
      if (it != _keyframes.begin()) {
        double const previousTime = (*std::prev(it))->getTime();
        if (newTime < previousTime) newTime = previousTime + 0.001;
      }
      KeyIterator const next = std::next(it);
      if (next != _keyframes.end()) {
        double const nextTime = (*next)->getTime();
        if (newTime > nextTime) newTime = nextTime - 0.001;
      }
    }
    timeChanged = !isSameTime(newTime, oldTime);
  }
  bool const valueChanged = !(tc && tc->isValueLocked()) && !FloatUtil::isRelEqual(newValue, key->getValue());

  if (!timeChanged && !valueChanged) {
    if (notify == NOTIFY) touch();
    return key;
  }
  eraseKey(it);
  key->move(timeChanged ? newTime : key->getTime(), valueChanged ? newValue : key->getValue());
  insertKey(key);
  updateAutoTangents(key->getTime(), true);
  if (notify == NOTIFY) touch();
  return key;
}

void TcTimeCurve::moveAllKeyframes(double delta) {
  shiftKeys(delta);
  touch();
}

// The keys move in place: leftwards starting from the first, rightwards starting from the last,
// so that uniform moves never pass each other.
void TcTimeCurve::shiftKeys(double delta) {
  if (delta < 0.0) {
    for (RCShdPtr<TmKeyframe> const& key : _keyframes) key->move(key->getTime() + delta, key->getValue());
  } else if (delta > 0.0) {
    for (auto it = _keyframes.rbegin(); it != _keyframes.rend(); ++it)
      (*it)->move((*it)->getTime() + delta, (*it)->getValue());
  }
  refreshSortedTimes();
}

bool TcTimeCurve::scaleTime(double factor) {
  if (factor == 1.0) return false;
  factor = std::max(TcConstants::kTimeTolerance, factor);
  if (!_keyframes.empty()) {
    double const t0 = (*_keyframes.begin())->getTime();
    auto const scale = [&](RCShdPtr<TmKeyframe> const& key) {
      key->move((key->getTime() - t0) * factor + t0, key->getValue());
    };
    if (factor > 1.0)
      std::for_each(_keyframes.rbegin(), _keyframes.rend(), scale);
    else
      std::for_each(_keyframes.begin(), _keyframes.end(), scale);
    refreshSortedTimes();
  }
  touch();
  return true;
}

bool TcTimeCurve::setKeyframeInterpolation(double time, TmAnimTypes::InterpolationType type) {
  KeyIterator const it = findKeyframe(time);
  if (it == _keyframes.end()) return false;
  if ((*it)->getInterpolationType() == type) return true;
  RCShdPtr<TmKeyframe> const key = *it;
  eraseKey(it);
  key->setInterpolationType(type);
  insertKey(key);
  touch();
  return true;
}

template <class Edit>
bool TcTimeCurve::editKeyframe(double time, Edit const& edit) {
  KeyIterator const it = findKeyframe(time);
  if (it == _keyframes.end()) return false;
  RCShdPtr<TmKeyframe> const key = *it;
  TcKeyframe& tc = asTcKeyframe(key);
  eraseKey(it);
  edit(tc);
  insertKey(key);
  touch();
  return true;
}

bool TcTimeCurve::setTimeLocked(double time, bool locked) {
  return editKeyframe(time, [locked](TcKeyframe& key) { key.setTimeLocked(locked); });
}

bool TcTimeCurve::setValueLocked(double time, bool locked) {
  return editKeyframe(time, [locked](TcKeyframe& key) { key.setValueLocked(locked); });
}

bool TcTimeCurve::setTangentOrientationLocked(double time, bool locked) {
  return editKeyframe(time, [locked](TcKeyframe& key) { key.setTangentOrientationLocked(locked); });
}

bool TcTimeCurve::setTangentLengthLocked(double time, bool locked) {
  return editKeyframe(time, [locked](TcKeyframe& key) { key.setTangentLengthLocked(locked); });
}

bool TcTimeCurve::setTangentOrientationUnified(double time, bool unified) {
  return editKeyframe(time, [unified](TcKeyframe& key) { key.setTangentOrientationUnified(unified); });
}

bool TcTimeCurve::setTangentLengthUnified(double time, bool unified) {
  return editKeyframe(time, [unified](TcKeyframe& key) { key.setTangentLengthUnified(unified); });
}

bool TcTimeCurve::setAutoTangent(double time, bool on) {
  KeyIterator const it = findKeyframe(time);
  if (it == _keyframes.end()) return false;
  asTcKeyframe(*it).setAutoTangent(on);
  updateAutoTangents(time, true);
  touch();
  return true;
}

bool TcTimeCurve::setInTangent(double time, GePoint2<double> const& tangent, double aspect) {
  return editKeyframe(time, [&](TcKeyframe& key) {
    key.setInTangent(tangent, TmKeyframe::APPLY_CONSTRAINTS, aspect);
    key.setAutoTangent(false);
  });
}

bool TcTimeCurve::setOutTangent(double time, GePoint2<double> const& tangent, double aspect) {
  return editKeyframe(time, [&](TcKeyframe& key) {
    key.setOutTangent(tangent, TmKeyframe::APPLY_CONSTRAINTS, aspect);
    key.setAutoTangent(false);
  });
}

void TcTimeCurve::setKeyframes(ConstIterator<RCShdPtr<TmKeyframe>> keyframes) {
  // Clones first: the range may be this curve's own keys.
  Keys clones;
  for (keyframes.first(); !keyframes.atEnd(); keyframes.next())
    clones.push_back(RCShdPtr<TmKeyframe>(keyframes.item()->clone()));
  clearKeys();
  for (RCShdPtr<TmKeyframe> const& key : clones) insertKey(key);
  touch();
}

void TcTimeCurve::setExtrapolationType(TmAnimTypes::ExtrapolationType type) {
  installExtrapolator(type);
  touch();
}

void TcTimeCurve::setDefaultInterpolationType(TmAnimTypes::InterpolationType type) {
  _defaultInterpolationType = type;
  touch();
}

// ---- Automatic handles

bool TcTimeCurve::computeAutoTangent(double time, int sides) {
  KeyIterator const it = findKeyframe(time);
  if (it == _keyframes.end()) return false;
  RCShdPtr<TmKeyframe> const key = *it;
  double const t = key->getTime();
  double const v = key->getValue();
  bool const hasPrevious = it != _keyframes.begin();
  KeyIterator const next = std::next(it);
  bool const hasNext = next != _keyframes.end();

  GePoint2<double> in(t, v);
  GePoint2<double> out(t, v);
  if (hasNext && !hasPrevious) {
    // First key: flat, a third of the segment long, mirrored.
    out = GePoint2<double>(t + ((*next)->getTime() - t) * 0.333, v);
    in = GePoint2<double>(2.0 * t - out.x, v);
  } else if (hasPrevious && !hasNext) {
    in = GePoint2<double>(t + ((*std::prev(it))->getTime() - t) * 0.333, v);
    out = GePoint2<double>(2.0 * t - in.x, v);
  } else if (hasPrevious && hasNext) {
    TmKeyframe const& p = **std::prev(it);
    TmKeyframe const& n = **next;
    double const tp = p.getTime();
    double const tn = n.getTime();
    if (!(tn - tp < 0.0001)) {
      // Along the chord of the neighbours; the shorter side sets both lengths so that neither
      // handle passes a neighbour.
      double const slope = (n.getValue() - p.getValue()) / (tn - tp);
      double const h = std::min(std::fabs(t - tp), std::fabs(t - tn)) * 0.333;
      in = GePoint2<double>(t - h, v - h * slope);
      out = GePoint2<double>(t + h, v + h * slope);
    }
  }

  eraseKey(it);
  if (sides == BOTH_TANGENTS) {
    key->setInTangent(in, TmKeyframe::APPLY_CONSTRAINTS, 1.0);
    key->setOutTangent(out, TmKeyframe::APPLY_CONSTRAINTS, 1.0);
  } else if (sides & IN_TANGENT) {
    key->setInTangent(in, TmKeyframe::IGNORE_CONSTRAINTS, 1.0);
  } else if (sides & OUT_TANGENT) {
    key->setOutTangent(out, TmKeyframe::IGNORE_CONSTRAINTS, 1.0);
  }
  insertKey(key);
  return true;
}

void TcTimeCurve::updateAutoTangents(double time, bool includeKey) {
  KeyIterator const it = findKeyframe(time);
  KeyIterator previous;
  KeyIterator next;
  if (it != _keyframes.end()) {
    previous = it == _keyframes.begin() ? _keyframes.end() : std::prev(it);
    next = std::next(it);
  } else {
    previous = getPreviousKeyframeIt(time);
    next = getNextKeyframeIt(time);
  }
  double times[3];
  int nbTimes = 0;
  auto const collect = [&](KeyIterator k) {
    if (k == _keyframes.end()) return;
    TcKeyframe const* const tc = findTcKeyframe(*k);
    if (tc && tc->isAutoTangent()) times[nbTimes++] = tc->getTime();
  };
  if (includeKey) collect(it);
  collect(previous);
  collect(next);
  for (int i = 0; i < nbTimes; ++i) computeAutoTangent(times[i], BOTH_TANGENTS);
}

// ---- Time path

void TcTimeCurve::setTimePath(RCShdPtr<PiTimePath const> const& path, bool apply) {
  double headTime = 0.0;
  if (path.isNull() || !path->getHeadTime(path->getTime(), headTime)) {
    _timePath = path;
    _hasTimeTransform = false;
    return;
  }
  double const offset = path->getHeadTime() - path->getTime();
  if (!_timePath.isNull() && isSameTime(offset, _timeOffset)) return;
  _timePath = path;
  _hasTimeTransform = apply;
  if (apply) {
    shiftKeys(offset - _timeOffset);
    _timeOffset = offset;
  }
}

void TcTimeCurve::resetTimePath() {
  shiftKeys(0.0 - _timeOffset);
  _hasTimeTransform = false;
  _timeOffset = 0.0;
  _timePath.reset();
}

// ---- Notification

void TcTimeCurve::pruneHandlers() {
  _handlerOrder.erase(std::remove_if(_handlerOrder.begin(), _handlerOrder.end(),
                                     [this](ChangedHandler* h) { return !_curveChanged.hasHandler(h); }),
                      _handlerOrder.end());
}

void TcTimeCurve::addCurveChangedHandler(ChangedHandler* handler) {
  pruneHandlers();
  if (_curveChanged.hasHandler(handler)) return;
  _curveChanged.addHandler(handler);
  _handlerOrder.push_back(handler);
}

void TcTimeCurve::removeCurveChangedHandler(ChangedHandler* handler) {
  _curveChanged.removeHandler(handler);
  pruneHandlers();
}

int TcTimeCurve::getNbCurveChangedHandlers() const { return _curveChanged.getNbHandlers(); }

void TcTimeCurve::touch() {
  if (_curveChanged.isEmpty()) return;
  pruneHandlers();
  // The handle keeps the curve alive should a handler drop the last other reference.
  RCShdPtr<TcTimeCurve> const self(this);
  Vector<ChangedHandler*> const handlers(_handlerOrder);
  for (ChangedHandler* handler : handlers)
    if (_curveChanged.hasHandler(handler)) handler->call(self);
}

// ---- Packed form

RCProxyPvtEngPtr<Vector<double>> TcTimeCurve::getKeyframesData() const {
  Vector<double>* const data = new Vector<double>();
  RCProxyPvtEngPtr<Vector<double>> result(data);
  data->reserve(6 * _keyframes.size());
  for (RCShdPtr<TmKeyframe> const& key : _keyframes) {
    GePoint2<double> const& in = key->getInTangent();
    GePoint2<double> const& out = key->getOutTangent();
    data->insert(data->end(), {in.x, in.y, key->getTime(), key->getValue(), out.x, out.y});
  }
  return result;
}

RCProxyPvtEngPtr<Vector<int>> TcTimeCurve::getInterpolationsData() const {
  Vector<int>* const data = new Vector<int>();
  RCProxyPvtEngPtr<Vector<int>> result(data);
  data->reserve(_keyframes.size());
  for (RCShdPtr<TmKeyframe> const& key : _keyframes) data->push_back(int(key->getInterpolationType()));
  return result;
}

RCProxyPvtEngPtr<Vector<int>> TcTimeCurve::getConstraintsData() const {
  Vector<int>* const data = new Vector<int>();
  RCProxyPvtEngPtr<Vector<int>> result(data);
  data->reserve(_keyframes.size());
  for (RCShdPtr<TmKeyframe> const& key : _keyframes) data->push_back(asTcKeyframe(key).getConstraintData());
  return result;
}

}  // namespace Orn
