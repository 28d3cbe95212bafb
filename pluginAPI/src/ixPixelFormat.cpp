#include <orn/pluginAPI/ixPixelFormat.h>

#include <orn/base/except/assertions.h>
#include <orn/base/geometryBase/floatUtil.h>


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
  // Tolerant test: any positive finite value or +infinity passes; zero, negatives and NaN fail.
  Rational const& aspectRatio = _aspectRatio;
  ORN_ASSERT_FLOAT_GREATER(aspectRatio.getFloat(), 0.F);
}

void IxPixelFormat::dump(std::ostream& out) const {
  out << "comps " << int(_comps) << ", depth " << int(_depth) << ", aspect " << _aspectRatio.getNumerator()
      << ':' << _aspectRatio.getDenominator() << ", order " << _channelOrder;
}

}  // namespace Orn
