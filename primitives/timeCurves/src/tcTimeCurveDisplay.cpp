// Drawing and picking of a time curve through a view: tessellation, sampling, picks, dumps.

#include <orn/base/except/assertions.h>
#include <orn/base/geometryBase/floatUtil.h>
#include <orn/base/geometryBase/geVector2Utils.h>
#include <orn/base/viewing/vwUtils.h>
#include <orn/primitives/timeCurves/tcConstants.h>
#include <orn/primitives/timeCurves/tcTimeCurve.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <iterator>
#include <limits>
#include <typeinfo>
#include <utility>

namespace Orn {

namespace {

using P = GePoint2<double>;

bool isSameTime(double a, double b) { return FloatUtil::isAbsEqual(a, b, TcConstants::kTimeTolerance); }

// Whether q, known to be collinear with a and b, lies between them.
bool isWithin(P const& a, P const& b, P const& q) {
  return std::min(a.x, b.x) <= q.x && q.x <= std::max(a.x, b.x) && std::min(a.y, b.y) <= q.y &&
         q.y <= std::max(a.y, b.y);
}

// Whether segments ab and cd share a point, ends and collinear overlaps included.
bool segmentsIntersect(P const& a, P const& b, P const& c, P const& d) {
  double const d1 = (d - c).cross(a - c);
  double const d2 = (d - c).cross(b - c);
  double const d3 = (b - a).cross(c - a);
  double const d4 = (b - a).cross(d - a);
  if (((d1 > 0.0 && d2 < 0.0) || (d1 < 0.0 && d2 > 0.0)) && ((d3 > 0.0 && d4 < 0.0) || (d3 < 0.0 && d4 > 0.0)))
    return true;
  return (d1 == 0.0 && isWithin(c, d, a)) || (d2 == 0.0 && isWithin(c, d, b)) || (d3 == 0.0 && isWithin(a, b, c)) ||
         (d4 == 0.0 && isWithin(a, b, d));
}

bool crossesEdges(P const& a, P const& b, GeRectangle<double> const& rect) {
  P const corners[4] = {P(rect.x1(), rect.y1()), P(rect.x2(), rect.y1()), P(rect.x2(), rect.y2()),
                        P(rect.x1(), rect.y2())};
  for (int i = 0; i < 4; ++i)
    if (segmentsIntersect(a, b, corners[i], corners[(i + 1) % 4])) return true;
  return false;
}

// Squared distance of an offset measured in pick boxes; a value of 1 or more is outside the box,
// as is an offset that reaches the box's edge on either axis.
double boxDistance(GeVector2<double> const& offset, GeVector2<double> const& tolerance) {
  double const tx = std::fabs(tolerance.x);
  double const ty = std::fabs(tolerance.y);
  if (!(std::fabs(offset.x) < tx && std::fabs(offset.y) < ty)) return std::numeric_limits<double>::infinity();
  return (offset.x / tx) * (offset.x / tx) + (offset.y / ty) * (offset.y / ty);
}

}  // namespace

RCProxyPvtEngPtr<TcTimeCurve::Polylines> TcTimeCurve::tessellate(GeRectangle<double> const& rect,
                                                                 double tolerance) const {
  Polylines* const result = new Polylines();
  RCProxyPvtEngPtr<Polylines> handle(result);
  if (_keyframes.size() < 2) {
    double const y = _keyframes.empty() ? 0.0 : (*_keyframes.begin())->getValue();
    result->push_back(Polyline{P(rect.x1(), y), P(rect.x2(), y)});
    return handle;
  }

  // The keys just outside the rectangle take part, so that the segments entering it are drawn.
  KeyIterator start = getPreviousKeyframeIt(rect.x1());
  if (start == _keyframes.end()) start = _keyframes.begin();
  KeyIterator stop = getNextKeyframeIt(rect.x2());
  if (stop == _keyframes.end()) stop = std::prev(_keyframes.end());
  Polylines base;
  for (KeyIterator it = start; it != stop; ++it) {
    TmKeyframe const* const key = it->operator->();
    TcKeyframe const* const tc = dynamic_cast<TcKeyframe const*>(key);
    if (!tc)
      RCExUtil::throwExCastFailed(demangleTypeName(typeid(*key).name()).c_str(), typeNameOf<TcKeyframe>().c_str());
    Polyline points;
    tc->tessellate(*std::next(it), tolerance, points);
    base.push_back(std::move(points));
  }

  RCShdPtr<TmKeyframe const> const firstKey = getFirstKeyframe();
  RCShdPtr<TmKeyframe const> const lastKey = getLastKeyframe();
  ORN_ASSERT(!firstKey.isNull());
  ORN_ASSERT(!lastKey.isNull());
  RCShdPtr<TmTimeCurve const> const self(this);
  Polylines before;
  Polylines after;
  if (rect.x1() < firstKey->getTime()) _extrapolator->tessellateBefore(rect.x1(), self, base, before);
  if (lastKey->getTime() < rect.x2()) _extrapolator->tessellateAfter(rect.x2(), self, base, after);

  result->reserve(before.size() + base.size() + after.size());
  for (Polylines* part : {&before, &base, &after})
    std::move(part->begin(), part->end(), std::back_inserter(*result));
  return handle;
}

double TcTimeCurve::computeTessellationData(VwView const& view, double windowTolerance, GeRectangle<double>& rect) {
  ORN_ASSERT(windowTolerance > 0.);
  GeRectangle<int> const viewport = view.getViewport();
  rect = VwUtils::windowToWorldOrtho(viewport, view);
  double const tx = rect.getWidth() * windowTolerance / double(viewport.x2() - viewport.x1());
  double const ty = windowTolerance * rect.getHeight() / double(viewport.y2() - viewport.y1());
  double const tolerance = std::min(tx, ty);
  // The floor bounds the depth of the Bezier flattening.
  return tolerance < 5e-07 ? 5e-07 : tolerance;
}

RCProxyPvtEngPtr<TcTimeCurve::Polyline> TcTimeCurve::sample(VwView const& view, double pixelStep) const {
  GeRectangle<int> const viewport = view.getViewport();
  GeRectangle<double> const world = VwUtils::windowToWorldOrtho(viewport, view);
  double const xmin = world.x1();
  double const xmax = world.x2();
  double const stepEnd = VwUtils::windowToWorldOrtho(P(viewport.x1() + pixelStep, viewport.y1()), view).x;
  double const step = std::max(stepEnd - xmin, TcConstants::kTimeTolerance);

  Polyline* const points = new Polyline();
  RCProxyPvtEngPtr<Polyline> handle(points);
  if (_keyframes.size() < 2) {
    double const y = _keyframes.empty() ? 0.0 : (*_keyframes.begin())->getValue();
    points->push_back(P(xmin, y));
    points->push_back(P(xmax, y));
    return handle;
  }

  points->reserve(std::size_t((xmax - xmin) / step + 1.0));
  RCShdPtr<TmTimeCurve const> const self(this);
  double const t0 = (*_keyframes.begin())->getTime();
  double const t1 = (*_keyframes.rbegin())->getTime();
  double t = xmin;
  double const beforeEnd = std::min(t0, xmax);
  for (; t < beforeEnd; t += step) points->push_back(P(t, _extrapolator->evaluate(t, self)));

  double const keysEnd = std::min(t1, xmax);
  while (t < keysEnd) {
    KeyIterator const at = findKeyframe(t);
    if (at != _keyframes.end()) {
      points->push_back(P(t, (*at)->getValue()));
      t += step;
      continue;
    }
    // The segment is looked up once and sampled to its end.
    KeyIterator const key = findSegment(t);
    KeyIterator const next = std::next(key);
    double const segmentEnd = std::min((*next)->getTime(), xmax);
    for (; t < segmentEnd; t += step) points->push_back(P(t, (*key)->evaluate(t, *next)));
  }

  for (; t < xmax && !isSameTime(t, xmax); t += step) points->push_back(P(t, _extrapolator->evaluate(t, self)));
  return handle;
}

GePoint2<double> TcTimeCurve::computePickData(VwView const& view, GePoint2<double> const& windowPoint,
                                              GeVector2<double>& tolerance) {
  GeRectangle<int> const viewport = view.getViewport();
  P const origin = VwUtils::windowToWorldOrtho(P(viewport.x1(), viewport.y1()), view);
  P const corner = VwUtils::windowToWorldOrtho(P(viewport.x1() + 5, viewport.y1() + 5), view);
  tolerance = corner - origin;
  return VwUtils::windowToWorldOrtho(windowPoint, view);
}

bool TcTimeCurve::pick(GePoint2<double> const& windowPoint, VwView const& view, KeyIterator& key,
                       GePoint2<double>* hit) const {
  GeVector2<double> tolerance;
  P const point = computePickData(view, windowPoint, tolerance);
  GeRectangle<double> rect;
  double const curveTolerance = computeTessellationData(view, 1.0, rect);
  RCProxyPvtEngPtr<Polylines> const polylines = tessellate(rect, curveTolerance);
  return pick(point, tolerance, *polylines, key, hit);
}

bool TcTimeCurve::pick(GePoint2<double> const& point, GeVector2<double> const& tolerance, Polylines const& polylines,
                       KeyIterator& key, GePoint2<double>* hit) const {
  key = _keyframes.end();
  if (_keyframes.size() < 2) {
    if (_keyframes.empty()) return false;
    TmKeyframe const& only = **_keyframes.begin();
    P const keyPoint(only.getTime(), only.getValue());
    if (std::isinf(boxDistance(keyPoint - point, tolerance))) return false;
    key = _keyframes.begin();
    if (hit) *hit = keyPoint;
    return true;
  }

  double const tx = std::fabs(tolerance.x);
  double best = std::numeric_limits<double>::infinity();
  P bestPoint;
  for (Polyline const& polyline : polylines) {
    for (std::size_t i = 0; i + 1 < polyline.size(); ++i) {
      P const& a = polyline[i];
      P const& b = polyline[i + 1];
      if (std::max(a.x, b.x) < point.x - tx || std::min(a.x, b.x) > point.x + tx) continue;
      P const nearest = GeVector2Utils<double>::getNearestPointOnSegment(point, a, b);
      double const distance = boxDistance(nearest - point, tolerance);
      if (distance < best) {
        best = distance;
        bestPoint = nearest;
      }
    }
  }
  if (std::isinf(best)) return false;
  key = getNearestKeyframe(point, std::numeric_limits<double>::infinity());
  if (hit) *hit = bestPoint;
  return true;
}

bool TcTimeCurve::pickRect(GeRectangle<int> const& windowRect, VwView const& view, Keys& keys) const {
  GeRectangle<double> const rect = VwUtils::windowToWorldOrtho(windowRect, view);
  GeRectangle<double> visible;
  double const tolerance = computeTessellationData(view, 1.0, visible);
  RCProxyPvtEngPtr<Polylines> const polylines = tessellate(rect, tolerance);
  return pickRect(rect, *polylines, keys);
}

bool TcTimeCurve::pickRect(GeRectangle<double> const& rect, Polylines const& polylines, Keys& keys) const {
  bool found = false;
  for (RCShdPtr<TmKeyframe> const& key : _keyframes) {
    double const t = key->getTime();
    double const v = key->getValue();
    if (rect.x1() <= t && t <= rect.x2() && rect.y1() <= v && v <= rect.y2()) {
      keys.push_back(key);
      found = true;
    }
  }
  if (found) return true;
  for (Polyline const& polyline : polylines)
    for (std::size_t i = 0; i + 1 < polyline.size(); ++i)
      if (crossesEdges(polyline[i], polyline[i + 1], rect)) return true;
  return false;
}

bool TcTimeCurve::pickKeyframesCircle(GePoint2<double> const& center, double radius, VwView const& view,
                                      Keys& keys) const {
  P const c = VwUtils::windowToWorldOrtho(center, view);
  double const rx = VwUtils::windowToWorldOrtho(P(center.x + radius, center.y), view).x - c.x;
  double const ry = VwUtils::windowToWorldOrtho(P(center.x, center.y + radius), view).y - c.y;
  bool found = false;
  for (RCShdPtr<TmKeyframe> const& key : _keyframes) {
    double const dt = key->getTime() - c.x;
    double const dv = key->getValue() - c.y;
    if ((dt * dt) / (rx * rx) + (dv * dv) / (ry * ry) < 1.0) {
      keys.push_back(key);
      found = true;
    }
  }
  return found;
}

bool TcTimeCurve::pickTangent(GePoint2<double> const& windowPoint, VwView const& view, KeyIterator& key,
                              TangentSide& side) const {
  GeVector2<double> tolerance;
  P const point = computePickData(view, windowPoint, tolerance);
  key = _keyframes.end();
  double best = std::numeric_limits<double>::infinity();
  for (KeyIterator it = _keyframes.begin(); it != _keyframes.end(); ++it) {
    double const in = boxDistance(getInTangent(it) - point, tolerance);
    double const out = boxDistance(getOutTangent(it) - point, tolerance);
    if (in < best) {
      best = in;
      key = it;
      side = IN_TANGENT;
    }
    if (out < best) {
      best = out;
      key = it;
      side = OUT_TANGENT;
    }
  }
  return !std::isinf(best);
}

void TcTimeCurve::dataDump(double start, double end, double step, std::string const& fileName) const {
  ORN_ASSERT(step > 0.);
  std::ofstream out(fileName);
  ORN_ASSERT(out.is_open());
  out.precision(17);
  for (double t = start; t <= end; t += step) out << t << ' ' << evaluate(t) << '\n';
}

}  // namespace Orn
