#pragma once
// Line of space: an origin point and a direction vector; the points origin + t * direction.

#include <orn/base/geometryBase/gePoint3.h>
#include <orn/base/geometryBase/geVector3.h>

#include <istream>
#include <ostream>

namespace Orn {

template <class T>
class GeLine3 {
public:
  // Through the origin along z.
  GeLine3() : _origin(), _direction(T(0), T(0), T(1)) {}
  GeLine3(GePoint3<T> const& origin, GeVector3<T> const& direction) : _origin(origin), _direction(direction) {}

  GePoint3<T> const& getOrigin() const { return _origin; }
  GeVector3<T> const& getDirection() const { return _direction; }
  void setOrigin(GePoint3<T> const& origin) { _origin = origin; }
  void setDirection(GeVector3<T> const& direction) { _direction = direction; }

  GePoint3<T> getPoint(T t) const { return _origin + _direction * t; }

  // The parameter of the point of the line nearest to p; 0 for a zero direction.
  T getNearestParameter(GePoint3<T> const& p) const {
    T const len2 = _direction.getSquaredLength();
    if (!(len2 > T(0))) return T(0);
    return (p - _origin).dot(_direction) / len2;
  }
  GePoint3<T> getNearestPoint(GePoint3<T> const& p) const { return getPoint(getNearestParameter(p)); }
  T getDistance(GePoint3<T> const& p) const { return (p - getNearestPoint(p)).getLength(); }

  bool operator==(GeLine3 const& o) const { return _origin == o._origin && _direction == o._direction; }
  bool operator!=(GeLine3 const& o) const { return !(*this == o); }

  // Origin, then direction.
  void dump(std::ostream& out) const {
    _origin.dump(out);
    out << ' ';
    _direction.dump(out);
  }
  void read(std::istream& in) {
    _origin.read(in);
    _direction.read(in);
  }

private:
  GePoint3<T> _origin;
  GeVector3<T> _direction;
};

}  // namespace Orn
