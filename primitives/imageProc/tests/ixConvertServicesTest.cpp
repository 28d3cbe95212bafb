#include <orn/primitives/imageProc/ixConvertServices.h>

#include <orn/base/except/assertions.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <xmmintrin.h>

using namespace Orn;

namespace {

// Restores the thread's MXCSR and the environment after each case.
class ConvertServices : public ::testing::Test {
protected:
  void SetUp() override { _saved = _mm_getcsr(); }
  void TearDown() override {
    _mm_setcsr(_saved);
    unsetenv("ORN_ASSERT_CONFIG_SSE");
  }
  unsigned int _saved = 0;
};

std::string failedCondition() {
  try {
    IxConvertServices::assertConfigSSE();
  } catch (AssertionsEx::ExAssertionFailed const& e) {
    return e.getCondition();
  }
  return "";
}

}  // namespace

TEST_F(ConvertServices, ConfiguredValueTouchesOnlyModeBits) {
  // Round-toward-zero bits cleared, FTZ, DAZ and the six masks set; flags kept.
  EXPECT_EQ(IxConvertServices::configuredMxcsr(0x7F80u | 0x3Fu), 0x9FC0u | 0x3Fu);
  EXPECT_EQ(IxConvertServices::configuredMxcsr(0x1F80u), 0x9FC0u);
  EXPECT_EQ(IxConvertServices::configuredMxcsr(0x9FC0u), 0x9FC0u);
}

TEST_F(ConvertServices, ConfigureThenAssertAndEachFailure) {
  _mm_setcsr(0x1F80u | _MM_ROUND_UP);
  IxConvertServices::configureSSE();
  unsigned int const configured = _mm_getcsr();
  EXPECT_EQ(configured & 0xFFC0u, 0x9FC0u);
  EXPECT_EQ(failedCondition(), "");
  // A denormal input is read as zero and a denormal result flushed.
  volatile float tiny = 1e-39f;
  EXPECT_EQ(tiny * 1.f, 0.f);

  _mm_setcsr(configured | _MM_ROUND_DOWN);
  EXPECT_EQ(failedCondition(), "( mxcsr & _MM_ROUND_MASK ) == _MM_ROUND_NEAREST");
  _mm_setcsr(configured & ~_MM_MASK_OVERFLOW);
  EXPECT_EQ(failedCondition(), "( mxcsr & _MM_MASK_MASK ) == _MM_MASK_MASK");
  _mm_setcsr(configured);

  // The checks are skipped unless the variable is 1.
  _mm_setcsr(configured | _MM_ROUND_DOWN);
  setenv("ORN_ASSERT_CONFIG_SSE", "0", 1);
  EXPECT_EQ(failedCondition(), "");
  setenv("ORN_ASSERT_CONFIG_SSE", "1", 1);
  EXPECT_NE(failedCondition(), "");
}
