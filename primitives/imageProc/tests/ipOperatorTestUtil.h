#pragma once
// Helpers of the operator tests: values of components whatever the depth, and the condition of
// a failed assertion.

#include <orn/base/except/assertions.h>

#include <string>

#include "ixPixelLoopTestUtil.h"

namespace OrnTest {

// Component c of pixel (x, y) as a float: a byte as 0..255, a half or a float as its value.
inline float getValue(IxTile const& tile, int x, int y, int c) {
  std::uint32_t const raw = getRaw(tile, x, y, c);
  switch (tile.getPixelFormat().getDepth()) {
    case IxPixelFormat::UINT8: return float(raw);
    case IxPixelFormat::FLOAT16: return Half::toFloat(Half::Bits(raw));
    default: return std::bit_cast<float>(raw);
  }
}

// The inverse of getValue; bytes take the value as it is.
inline void setValue(IxTile const& tile, int x, int y, int c, float v) {
  switch (tile.getPixelFormat().getDepth()) {
    case IxPixelFormat::UINT8: setRaw(tile, x, y, c, std::uint32_t(v)); break;
    case IxPixelFormat::FLOAT16: setRaw(tile, x, y, c, Half::fromFloat(v)); break;
    default: setRaw(tile, x, y, c, std::bit_cast<std::uint32_t>(v)); break;
  }
}

// The condition of the assertion that run raises, or "" when it raises none.
template <class Run>
std::string failedCondition(Run&& run) {
  try {
    run();
  } catch (AssertionsEx::ExAssertionFailed const& e) {
    return e.getCondition();
  }
  return "";
}

}  // namespace OrnTest
