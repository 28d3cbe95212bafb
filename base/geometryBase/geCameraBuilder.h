#pragma once
// Projection matrices of a camera that looks down its -z axis with y up, for row vectors on the
// left (p_clip = p_camera * M). Points between the near and far planes go to z in [-1, 1] after
// the division by w, x and y of the visible window to [-1, 1]. aspect is the picture's height
// divided by its width.

#include <orn/base/except/assertions.h>
#include <orn/base/geometryBase/geProjectiveMatrix3.h>

#include <cmath>

namespace Orn {

template <class T>
class GeCameraBuilder {
public:
  // Perspective with a horizontal field of view fov (radians). The window is shifted by
  // (offsetX, offsetY), measured in camera units on the plane at focalDistance in front of the
  // camera: the point (offsetX, offsetY, -focalDistance) lands at the centre of the picture.
  static GeProjectiveMatrix3<T> makePerspectiveOffset(T fov, T near, T far, T aspect, T offsetX, T offsetY,
                                                      T focalDistance) {
    T const sx = T(1) / T(std::tan(fov / T(2)));
    T const sy = sx / aspect;
    T shiftX = T(0);
    T shiftY = T(0);
    if (offsetX != T(0) || offsetY != T(0)) {
      ORN_ASSERT(focalDistance != 0);
      shiftX = sx * offsetX / focalDistance;
      shiftY = sy * offsetY / focalDistance;
    }
    T const depth = far - near;
    GeProjectiveMatrix3<T> m(sx, T(0), T(0), T(0),
                             T(0), sy, T(0), T(0),
                             shiftX, shiftY, -(far + near) / depth, T(-1),
                             T(0), T(0), T(-2) * far * near / depth, T(0));
    return m;
  }

  static GeProjectiveMatrix3<T> makePerspective(T fov, T near, T far, T aspect) {
    return makePerspectiveOffset(fov, near, far, aspect, T(0), T(0), T(1));
  }

  // Orthographic, the window height in camera units, centred on the axis; its width is
  // height / aspect.
  static GeProjectiveMatrix3<T> makeOrthographicWithHeight(T height, T near, T far, T aspect) {
    T const sy = T(2) / height;
    T const sx = sy * aspect;
    T const depth = far - near;
    return GeProjectiveMatrix3<T>(sx, T(0), T(0), T(0),
                                  T(0), sy, T(0), T(0),
                                  T(0), T(0), T(-2) / depth, T(0),
                                  T(0), T(0), -(far + near) / depth, T(1));
  }
};

}  // namespace Orn
