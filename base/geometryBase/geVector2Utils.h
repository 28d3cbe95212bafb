#pragma once
// Plane geometry on points, segments and polylines. A polyline is a Vector of points whose
// segments join each point to the next; with closed set, the last point also joins the first.

#include <orn/base/containers/vector.h>
#include <orn/base/geometryBase/gePoint2.h>
#include <orn/base/geometryBase/geRectangle.h>
#include <orn/base/geometryBase/geVector2.h>

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace Orn {

template <class T>
class GeVector2Utils {
public:
  // Signed angle in radians, in [-pi, pi], that turns a onto the direction of b: positive
  // counterclockwise (from x towards y). 0 when either vector is zero.
  static T getAngle(GeVector2<T> const& a, GeVector2<T> const& b) {
    return T(std::atan2(a.cross(b), a.dot(b)));
  }

  static T distanceBetweenPoints(GePoint2<T> const& a, GePoint2<T> const& b) { return (b - a).getLength(); }

  // Parameter along a -> b of the point of the segment nearest to p, clamped to [0, 1]; 0 when
  // the segment is a single point.
  static T getNearestParameterOnSegment(GePoint2<T> const& p, GePoint2<T> const& a, GePoint2<T> const& b) {
    GeVector2<T> const ab = b - a;
    T const len2 = ab.getSquaredLength();
    if (!(len2 > T(0))) return T(0);
    T const t = (p - a).dot(ab) / len2;
    return std::clamp(t, T(0), T(1));
  }

  // The same parameter, with the nearest point.
  static T getNearestPointOnSegment(GePoint2<T> const& p, GePoint2<T> const& a, GePoint2<T> const& b,
                                    GePoint2<T>& nearest) {
    T const t = getNearestParameterOnSegment(p, a, b);
    nearest = pointAt(a, b, t);
    return t;
  }

  static GePoint2<T> getNearestPointOnSegment(GePoint2<T> const& p, GePoint2<T> const& a, GePoint2<T> const& b) {
    return pointAt(a, b, getNearestParameterOnSegment(p, a, b));
  }

  static T getDistanceToSegment(GePoint2<T> const& p, GePoint2<T> const& a, GePoint2<T> const& b) {
    return distanceBetweenPoints(p, getNearestPointOnSegment(p, a, b));
  }

  // Number of segments that the ray from point towards +x crosses. A segment counts when its ends
  // lie on either side of the ray's line, an end on the line counting as below, so a vertex on
  // the ray is counted once. An odd count means the point is inside. The outline is closed by
  // default (a repeated first point adds nothing); closed false leaves out the last segment.
  static int getCrossings(Vector<GePoint2<T>> const& polyline, GePoint2<T> const& point, bool closed = true) {
    int crossings = 0;
    forEachSegment(polyline, closed, [&](GePoint2<T> const& a, GePoint2<T> const& b) {
      if ((a.y > point.y) != (b.y > point.y)) {
        T const x = a.x + (point.y - a.y) * (b.x - a.x) / (b.y - a.y);
        if (x > point.x) ++crossings;
      }
      return false;
    });
    return crossings;
  }

  // Whether point lies within tolerance of a segment. With a tolerance of 0 the test is exact:
  // collinear and between the ends. A polyline of one point is that point.
  static bool pointIntersectsSegments(Vector<GePoint2<T>> const& polyline, GePoint2<T> const& point,
                                      T tolerance = T(0), bool closed = false) {
    if (polyline.size() == 1) return distanceBetweenPoints(polyline[0], point) <= tolerance;
    return forEachSegment(polyline, closed, [&](GePoint2<T> const& a, GePoint2<T> const& b) {
      if (tolerance > T(0)) return getDistanceToSegment(point, a, b) <= tolerance;
      if ((b - a).cross(point - a) != T(0)) return false;
      return std::min(a.x, b.x) <= point.x && point.x <= std::max(a.x, b.x) && std::min(a.y, b.y) <= point.y &&
             point.y <= std::max(a.y, b.y);
    });
  }

  // Whether some segment has a point in the rectangle, bounds included (Liang-Barsky clipping). A
  // polyline of one point is that point.
  static bool rectangleIntersectsSegments(Vector<GePoint2<T>> const& polyline, GeRectangle<T> const& rect,
                                          bool closed = false) {
    if (polyline.size() == 1) {
      GePoint2<T> const& p = polyline[0];
      return rect.x1() <= p.x && p.x <= rect.x2() && rect.y1() <= p.y && p.y <= rect.y2();
    }
    return forEachSegment(polyline, closed, [&](GePoint2<T> const& a, GePoint2<T> const& b) {
      return segmentIntersectsRectangle(a, b, rect);
    });
  }

  static bool segmentIntersectsRectangle(GePoint2<T> const& a, GePoint2<T> const& b, GeRectangle<T> const& rect) {
    T t0 = T(0);
    T t1 = T(1);
    T const d[2] = {b.x - a.x, b.y - a.y};
    T const o[2] = {a.x, a.y};
    for (int axis = 0; axis < 2; ++axis) {
      T const lo = rect.getSlab(axis).min;
      T const hi = rect.getSlab(axis).max;
      if (d[axis] == T(0)) {
        if (o[axis] < lo || o[axis] > hi) return false;
        continue;
      }
      T ta = (lo - o[axis]) / d[axis];
      T tb = (hi - o[axis]) / d[axis];
      if (ta > tb) std::swap(ta, tb);
      t0 = std::max(t0, ta);
      t1 = std::min(t1, tb);
      if (t0 > t1) return false;
    }
    return true;
  }

private:
  static GePoint2<T> pointAt(GePoint2<T> const& a, GePoint2<T> const& b, T t) { return a + (b - a) * t; }

  // Calls f(a, b) on each segment until it returns true; returns whether one did.
  template <class F>
  static bool forEachSegment(Vector<GePoint2<T>> const& polyline, bool closed, F&& f) {
    std::size_t const n = polyline.size();
    if (n < 2) return false;
    for (std::size_t i = 0; i + 1 < n; ++i)
      if (f(polyline[i], polyline[i + 1])) return true;
    if (closed && n > 2 && f(polyline[n - 1], polyline[0])) return true;
    return false;
  }
};

}  // namespace Orn
