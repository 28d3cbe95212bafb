#pragma once
// Shared set-up of the scanline and row converter tests.

#include <orn/base/except/assertions.h>
#include <orn/primitives/imageProc/ixScanlineImp.h>

#include <gtest/gtest.h>

#include <xmmintrin.h>

#include <functional>
#include <string>

namespace Orn {

// Installs the scanline factories and runs each test in the floating-point mode of the image
// package (round to nearest, exceptions masked, flush-to-zero and denormals-are-zero on),
// restoring the thread's mode afterwards.
class IxScanlineTestBase : public ::testing::Test {
protected:
  void SetUp() override {
    IxScanlineImpFactories::install();
    _saved = _mm_getcsr();
    _mm_setcsr((_saved & ~0x6000u) | 0x9FC0u);
  }
  void TearDown() override { _mm_setcsr(_saved); }

  static bool isFlushToZeroOn() { return (_mm_getcsr() & 0x8000u) != 0; }

private:
  unsigned _saved = 0;
};

// The condition text of the assertion that f raises.
inline std::string conditionOf(std::function<void()> const& f) {
  try {
    f();
  } catch (AssertionsEx::ExAssertionFailed const& e) {
    return e.getCondition();
  }
  return "no assertion";
}

}  // namespace Orn
