#pragma once
// Animation curve: keyframes ordered by time, one extrapolator for the times outside them, a
// default interpolation for new keys, an optional time path and change handlers.
//
// A key is named by a time within TcConstants::kTimeTolerance of its own. Every edit calls the
// change handlers, in the order they were added, over a copy of the handler list (a handler may
// remove itself or another one). Curves are shared objects: create them with new and hold them by
// RCShdPtr, since evaluation and notification hand out handles to the curve.

#include <orn/base/callbacks/cbDispatcher.h>
#include <orn/base/callbacks/cbHandler.h>
#include <orn/base/containers/constIterator.h>
#include <orn/base/containers/set.h>
#include <orn/base/containers/vector.h>
#include <orn/base/geometryBase/gePoint2.h>
#include <orn/base/geometryBase/geRectangle.h>
#include <orn/base/geometryBase/geVector2.h>
#include <orn/base/rc/rcProxyPvtEngPtr.h>
#include <orn/base/rc/rcShdPtr.h>
#include <orn/base/viewing/vwView.h>
#include <orn/pluginAPI/piTimePath.h>
#include <orn/pluginAPI/tmTimeCurve.h>
#include <orn/primitives/timeCurves/tcExtrapolator.h>
#include <orn/primitives/timeCurves/tcKeyframe.h>

#include <cstdint>
#include <string>

namespace Orn {

class TcTimeCurve : public TmTimeCurve {
public:
  // Orders keys by exact time; also compares a key with a bare time, for lookups.
  struct LtKey {
    using is_transparent = void;
    bool operator()(RCShdPtr<TmKeyframe> const& a, RCShdPtr<TmKeyframe> const& b) const {
      return a->getTime() < b->getTime();
    }
    bool operator()(RCShdPtr<TmKeyframe> const& a, double time) const { return a->getTime() < time; }
    bool operator()(double time, RCShdPtr<TmKeyframe> const& b) const { return time < b->getTime(); }
  };
  using KeySet = Set<RCShdPtr<TmKeyframe>, LtKey>;
  using KeyIterator = KeySet::const_iterator;
  using KeyReverseIterator = KeySet::const_reverse_iterator;
  using Keys = Vector<RCShdPtr<TmKeyframe>>;
  using Polyline = Vector<GePoint2<double>>;
  using Polylines = Vector<Polyline>;
  using ChangedHandler = CbHandler<RCShdPtr<TcTimeCurve> const>;

  // Handles of a key, as a bit set.
  enum TangentSide { IN_TANGENT = 1, OUT_TANGENT = 2, BOTH_TANGENTS = 3 };

  // Empty, Bezier by default, constant extrapolation.
  TcTimeCurve();
  explicit TcTimeCurve(TmAnimTypes::InterpolationType defaultType);
  // From the packed form: six doubles per key (in handle x, y, time, value, out handle x, y), one
  // interpolation type and one constraint set (TcKeyframe::getConstraintData) per key.
  TcTimeCurve(RCProxyPvtEngPtr<Vector<double>> const& keyframes, RCProxyPvtEngPtr<Vector<int>> const& interpolations,
              RCProxyPvtEngPtr<Vector<int>> const& constraints, TmAnimTypes::ExtrapolationType extrapolation,
              TmAnimTypes::InterpolationType defaultType);
  // Copies clone the keys and take everything else but the change handlers.
  TcTimeCurve(TcTimeCurve const& other);
  TcTimeCurve& operator=(TcTimeCurve const& other);
  ~TcTimeCurve() override;

  // Only for TcTimeCurve itself: a subclass must give its own.
  TmTimeCurve* clone() const override;

  // 0 without keys; the key's value at every time with one key.
  double evaluate(double time) const override;
  // Sets the value of a key at time if there is one (its time stays); otherwise inserts a key
  // that continues the interpolation of the segment it falls in.
  void addKeyframe(double time, double value) override;
  // Replaces a key at the same time; the key itself is inserted, not a copy.
  virtual void addKeyframe(RCShdPtr<TmKeyframe> const& key);
  bool removeKeyframe(double time) override;
  bool setKeyframeInterpolation(double time, TmAnimTypes::InterpolationType type) override;
  // Of the key at time, or of the key before; the default type before the first key.
  TmAnimTypes::InterpolationType getInterpolationType(double time) const override;
  // Refused (null) when another key sits at newTime; handles travel with the key.
  RCShdPtr<TmKeyframe> moveKeyframe(double oldTime, double newTime, double newValue, NotifyType notify) override;
  // Moves every key by delta in time; a time-locked key stays, which can break the time order.
  void moveAllKeyframes(double delta) override;
  bool hasKeyframe(double time) const override;
  RCShdPtr<TmKeyframe const> getFirstKeyframe() const override;
  RCShdPtr<TmKeyframe> getFirstKeyframe() override;
  RCShdPtr<TmKeyframe const> getLastKeyframe() const override;
  RCShdPtr<TmKeyframe> getLastKeyframe() override;
  RCShdPtr<TmKeyframe const> getNextKeyframe(double time) const override;
  RCShdPtr<TmKeyframe> getNextKeyframe(double time) override;
  RCShdPtr<TmKeyframe const> getPreviousKeyframe(double time) const override;
  RCShdPtr<TmKeyframe> getPreviousKeyframe(double time) override;
  ConstIterator<RCShdPtr<TmKeyframe>> retrieveKeyframe(double time) const override;
  ConstIterator<RCShdPtr<TmKeyframe>> retrieveNearestKeyframe(GePoint2<double> const& point,
                                                              double tolerance) const override;
  ConstIterator<RCShdPtr<TmKeyframe>> getKeyframes() const override;
  // Replaces the keys by clones of the given ones.
  void setKeyframes(ConstIterator<RCShdPtr<TmKeyframe>> keyframes) override;
  int size() const override { return int(_keyframes.size()); }
  bool empty() const override { return _keyframes.empty(); }
  void setExtrapolationType(TmAnimTypes::ExtrapolationType type) override;
  TmAnimTypes::ExtrapolationType getExtrapolationType() const override { return _extrapolationType; }
  // Applies to keys added later only.
  void setDefaultInterpolationType(TmAnimTypes::InterpolationType type) override;
  TmAnimTypes::InterpolationType getDefaultInterpolationType() const override { return _defaultInterpolationType; }

  // Handle setters apply the key's constraints with the given aspect and turn its auto tangents
  // off. Flag setters and handle setters return false when there is no key at time; on a key of
  // another class than TcKeyframe they raise RCEx::ExCastFailed.
  virtual bool setInTangent(double time, GePoint2<double> const& tangent, double aspect);
  virtual bool setOutTangent(double time, GePoint2<double> const& tangent, double aspect);
  virtual bool setValueLocked(double time, bool locked);
  virtual bool setTangentOrientationLocked(double time, bool locked);
  virtual bool setTangentLengthLocked(double time, bool locked);
  bool setTimeLocked(double time, bool locked);
  bool setTangentOrientationUnified(double time, bool unified);
  bool setTangentLengthUnified(double time, bool unified);
  // Stores the flag, then recomputes the automatic handles around the key.
  bool setAutoTangent(double time, bool on);

  // Flag queries: false when there is no key at time, or it is not a TcKeyframe.
  bool isTimeLocked(double time) const;
  bool isValueLocked(double time) const;
  bool isTangentOrientationLocked(double time) const;
  bool isTangentLengthLocked(double time) const;
  bool isAutoTangent(double time) const;
  bool isTangentOrientationUnified(double time) const;
  bool isTangentLengthUnified(double time) const;

  // Handles of the key at time, cut at the previous (in) or next (out) key; false without a key.
  bool getInTangent(double time, GePoint2<double>& tangent) const;
  bool getOutTangent(double time, GePoint2<double>& tangent) const;
  GePoint2<double> getInTangent(KeyIterator key) const;
  GePoint2<double> getOutTangent(KeyIterator key) const;

  // Set lookups. findKeyframe gives the key within the time tolerance, or end().
  KeyIterator findKeyframe(double time) const;
  // First key strictly after time, last key strictly before; end() when none.
  KeyIterator getNextKeyframeIt(double time) const;
  KeyIterator getPreviousKeyframeIt(double time) const;
  // Key nearest to point.x in time if it is closer than tolerance; a tie goes to the later key.
  KeyIterator getNearestKeyframe(GePoint2<double> const& point, double tolerance) const;
  KeyIterator begin() const { return _keyframes.begin(); }
  KeyIterator end() const { return _keyframes.end(); }
  KeyReverseIterator rbegin() const { return _keyframes.rbegin(); }
  KeyReverseIterator rend() const { return _keyframes.rend(); }

  // Derives the handles of the key at time from its neighbours: sides is a TangentSide set. Both
  // sides are set under the key's constraints, a single side is set as it is. False without key.
  bool computeAutoTangent(double time, int sides);

  // Scales the key times about the first key (factor at least the time tolerance); false, and
  // nothing done, for a factor of 1.
  bool scaleTime(double factor);

  // Links the curve to a time path. Applied, the keys shift by the change of the path's offset
  // from its time to its head time. Neither member notifies.
  void setTimePath(RCShdPtr<PiTimePath const> const& path, bool apply);
  void resetTimePath();
  RCShdPtr<PiTimePath const> const& getTimePath() const { return _timePath; }
  double getTimeOffset() const { return _timeOffset; }
  bool hasTimeTransform() const { return _hasTimeTransform; }

  std::int64_t getId() const { return _id; }
  void setId(std::int64_t id) { _id = id; }
  // moveKeyframe keeps a key between its neighbours (0.001 away from them) when set.
  void setLimitToNeighbours(bool limit) { _limitToNeighbours = limit; }
  bool isLimitToNeighbours() const { return _limitToNeighbours; }

  // Change handlers. Adding a handler twice adds it once.
  void addCurveChangedHandler(ChangedHandler* handler);
  void removeCurveChangedHandler(ChangedHandler* handler);
  int getNbCurveChangedHandlers() const;
  // Calls the handlers with a handle to the curve.
  void touch();

  // The packed form (see the packed constructor). Keys must be TcKeyframes.
  RCProxyPvtEngPtr<Vector<double>> getKeyframesData() const;
  RCProxyPvtEngPtr<Vector<int>> getInterpolationsData() const;
  RCProxyPvtEngPtr<Vector<int>> getConstraintsData() const;

  // One polyline per segment drawn within tolerance (curve units), and the polylines of the
  // extrapolated stretches, covering the time range of rect.
  RCProxyPvtEngPtr<Polylines> tessellate(GeRectangle<double> const& rect, double tolerance) const;
  // World rectangle of the view's viewport, and the tessellation tolerance in curve units that
  // windowTolerance pixels make (at least 5e-07).
  static double computeTessellationData(VwView const& view, double windowTolerance, GeRectangle<double>& rect);
  // The curve evaluated every pixelStep pixels across the view.
  RCProxyPvtEngPtr<Polyline> sample(VwView const& view, double pixelStep) const;

  // World point under a window point, and the world size of 5 pixels on each axis.
  static GePoint2<double> computePickData(VwView const& view, GePoint2<double> const& windowPoint,
                                          GeVector2<double>& tolerance);
  // Whether the curve passes within the pick box around the point. On a hit key is the key
  // nearest in time (end() on an empty curve) and hit, if given, the nearest point of the curve.
  bool pick(GePoint2<double> const& windowPoint, VwView const& view, KeyIterator& key,
            GePoint2<double>* hit = nullptr) const;
  bool pick(GePoint2<double> const& point, GeVector2<double> const& tolerance, Polylines const& polylines,
            KeyIterator& key, GePoint2<double>* hit = nullptr) const;
  // Keys inside the rectangle, bounds included; true also when the curve crosses its edges.
  bool pickRect(GeRectangle<int> const& windowRect, VwView const& view, Keys& keys) const;
  bool pickRect(GeRectangle<double> const& rect, Polylines const& polylines, Keys& keys) const;
  // Keys strictly inside the window circle.
  bool pickKeyframesCircle(GePoint2<double> const& center, double radius, VwView const& view, Keys& keys) const;
  // The handle (cut at the neighbours) nearest to the window point within the pick box.
  bool pickTangent(GePoint2<double> const& windowPoint, VwView const& view, KeyIterator& key,
                   TangentSide& side) const;

  // Writes "time value" lines from start to end by step to a text file.
  void dataDump(double start, double end, double step, std::string const& fileName) const;

protected:
  // Stores the type and installs the extrapolator of its class.
  virtual void installExtrapolator(TmAnimTypes::ExtrapolationType type);
  // The keyframe class of the curve.
  virtual RCShdPtr<TmKeyframe> createKeyframe(double time, double value, TmAnimTypes::InterpolationType type);

private:
  // Last key whose time is at most time + tolerance, or end().
  KeyIterator findSegment(double time) const;
  // Recomputes the automatic handles of the key at time (if includeKey) and of its neighbours.
  void updateAutoTangents(double time, bool includeKey);
  // Moves every key by delta in time, in the order that keeps the set ordered.
  void shiftKeys(double delta);
  // Applies edit to the TcKeyframe at time, taken out of the set meanwhile, and notifies.
  template <class Edit>
  bool editKeyframe(double time, Edit const& edit);
  void copyFrom(TcTimeCurve const& other);
  void pruneHandlers();
  // The only ways keys join or leave the set: they keep _sortedKeys in step with it.
  bool insertKey(RCShdPtr<TmKeyframe> const& key);
  void eraseKey(KeyIterator it);
  void clearKeys();
  // Reads the key times into _sortedTimes again after keys moved in place.
  void refreshSortedTimes();

  KeySet _keyframes;
  // The keys of the set in the same order and their times, in one block each: evaluation searches
  // the times without branches. A key moved in place by its holder leaves a time stale; evaluation
  // checks what it finds against the keys themselves.
  Vector<RCShdPtr<TmKeyframe>> _sortedKeys;
  Vector<double> _sortedTimes;
  RCShdPtr<TcExtrapolator> _extrapolator;
  TmAnimTypes::ExtrapolationType _extrapolationType;
  TmAnimTypes::InterpolationType _defaultInterpolationType;
  CbDispatcher<RCShdPtr<TcTimeCurve> const> _curveChanged;
  // The handlers in the order they were added; the dispatcher says which are still attached.
  Vector<ChangedHandler*> _handlerOrder;
  std::int64_t _id;
  RCShdPtr<PiTimePath const> _timePath;
  double _timeOffset;
  bool _hasTimeTransform;
  bool _limitToNeighbours;
};

}  // namespace Orn
