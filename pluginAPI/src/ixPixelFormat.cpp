#include <orn/pluginAPI/ixPixelFormat.h>

#include <orn/base/except/assertions.h>

#include <algorithm>
#include <cmath>

namespace Orn {

IxPixelFormat::IxPixelFormat(Comps comps, Depth depth, Rational aspectRatio)
    : IxPixelFormat(comps, depth, aspectRatio, ORDER_RGBA) {}

IxPixelFormat::IxPixelFormat(Comps comps, Depth depth, Rational aspectRatio, int channelOrder)
    : _comps(comps), _depth(depth), _aspectRatio(aspectRatio), _channelOrder(channelOrder) {
  check();
}

void IxPixelFormat::check() const {
  ORN_ASSERT(_comps == ALPHA || _comps == RGB || _comps == RGBA);
  ORN_ASSERT(_depth == UINT8 || _depth == FLOAT16 || _depth == FLOAT32 || _depth == COMPLEX);
  // Tolerant greater-than: value > max(|value|, 0) * epsilon, an infinite magnitude counting as 0.
  // Any positive finite value or +infinity passes; zero, negatives and NaN fail.
  float const value = _aspectRatio.getFloat();
  float magnitude = std::fabs(value);
  if (std::isinf(magnitude)) magnitude = 0.f;
  if (!(value > std::max(magnitude, 0.f) * 1.1920929e-7f))
    Assertions::throwAssertionFailed(__FILE__, __LINE__, "aspectRatio.getFloat() is greater than 0.F");
}

void IxPixelFormat::dump(std::ostream& out) const {
  out << "comps " << int(_comps) << ", depth " << int(_depth) << ", aspect " << _aspectRatio.getNumerator()
      << ':' << _aspectRatio.getDenominator() << ", order " << _channelOrder;
}

}  // namespace Orn
