#pragma once
// Composition of two straight RGBA images by the Porter-Duff operators. The result is straight:
// the colour numerator times the reciprocal of the result alpha. On purpose, and unlike the
// textbook operators, the result alpha of in, out and atop is the union of the two alphas, atop
// takes the second colour unweighted by its alpha, and a result alpha of 0 is not guarded.

#include <orn/base/geometryBase/geRectangle.h>
#include <orn/pluginAPI/coRgbaColorTyped.h>
#include <orn/pluginAPI/ixReadGuard.h>
#include <orn/pluginAPI/ixWriteGuard.h>

namespace Orn {

class IpLogicOps {
public:
  // With a, b the two alphas, ia = 1 - a, ib = 1 - b, A, B the colours: result alpha and colour
  // numerator.
  enum Operator : int {
    A_OVER_B = 0,  // a + b ia,  A a + (B b) ia
    B_OVER_A = 1,  // b + a ib,  B b + (A a) ib
    A_IN_B = 2,    // a + ia b,  (A a) b
    B_IN_A = 3,    // b + ib a,  (B b) a
    A_OUT_B = 4,   // a + ia b,  (A a) ib
    B_OUT_A = 5,   // b + ib a,  (B b) ia
    A_ATOP_B = 6,  // a + b ia,  (A a + B ia) b
    B_ATOP_A = 7,  // b + a ib,  (B b + A ib) a
    A_XOR_B = 8,   // a + ia b,  B (ia b) + A (ib a)
  };

  // One pixel, in float.
  static CoRgbaColorTyped<float> process(CoRgbaColorTyped<float> const& a, CoRgbaColorTyped<float> const& b,
                                         Operator op);

  // A region of RGBA tiles of one format; regions are clipped to their tiles as in every pixel
  // loop. In 8 bits colours stay on the byte scale, the result alpha is computed on it and both are
  // truncated and clamped to 0..255.
  static void process(IxWriteGuard const& dst, IxReadGuard const& a, IxReadGuard const& b, Operator op,
                      GeRectangle<int> const* dstRegion, GeRectangle<int> const* aRegion,
                      GeRectangle<int> const* bRegion);
};

}  // namespace Orn
