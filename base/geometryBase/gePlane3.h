#pragma once
// Plane of space: the points p with normal . p == offset. With a unit normal, offset is the
// signed distance of the plane from the origin along the normal.

#include <orn/base/geometryBase/geStreamUtil.h>
#include <orn/base/geometryBase/gePoint3.h>
#include <orn/base/geometryBase/geVector3.h>

#include <istream>
#include <ostream>

namespace Orn {

template <class T>
class GePlane3 {
public:
  // The plane z = 0.
  GePlane3() : _normal(T(0), T(0), T(1)), _offset(T(0)) {}
  GePlane3(GeVector3<T> const& normal, T offset) : _normal(normal), _offset(offset) {}
  // Through point.
  GePlane3(GeVector3<T> const& normal, GePoint3<T> const& point)
      : _normal(normal), _offset(normal.dot(point.asVector())) {}

  GeVector3<T> const& getNormal() const { return _normal; }
  T getOffset() const { return _offset; }
  void setNormal(GeVector3<T> const& normal) { _normal = normal; }
  void setOffset(T offset) { _offset = offset; }

  // normal . p - offset: positive on the side the normal points to, a true distance for a unit
  // normal.
  T getSignedDistance(GePoint3<T> const& p) const { return _normal.dot(p.asVector()) - _offset; }

  // The parameter t at which origin + t * direction meets the plane, whatever its sign. False,
  // with t unchanged, when the direction is parallel to the plane.
  bool intersectRay(GePoint3<T> const& origin, GeVector3<T> const& direction, T& t) const {
    T const denominator = _normal.dot(direction);
    if (denominator == T(0)) return false;
    t = (_offset - _normal.dot(origin.asVector())) / denominator;
    return true;
  }

  bool operator==(GePlane3 const& o) const { return _normal == o._normal && _offset == o._offset; }
  bool operator!=(GePlane3 const& o) const { return !(*this == o); }

  // Normal, then offset.
  void dump(std::ostream& out) const {
    _normal.dump(out);
    out << ' ';
    GeStreamUtil::write(out, _offset);
  }
  void read(std::istream& in) {
    _normal.read(in);
    in >> _offset;
  }

private:
  GeVector3<T> _normal;
  T _offset;
};

}  // namespace Orn
