#include <orn/base/except/assertions.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>

using namespace Orn;

TEST(Assertions, FailureCarriesConditionFileAndLineAndRaisesItsOwnType) {
  try {
    ORN_ASSERT(1 + 1 == 3);
    FAIL() << "no raise";
  } catch (AssertionsEx::ExAssertionFailed const& e) {
    EXPECT_STREQ(e.getCondition(), "1 + 1 == 3");
    EXPECT_NE(std::string(e.getReason()).find("1 + 1 == 3"), std::string::npos);
    EXPECT_STREQ(e.what(), e.getReason());
    EXPECT_NE(std::string(e.getFile()).find("assertionsTest.cpp"), std::string::npos);
    EXPECT_GT(e.getLine(), 0);
    // A stored copy raises again with its full type.
    std::unique_ptr<ExBase> stored(e.clone());
    EXPECT_THROW(stored->raise(), AssertionsEx::ExAssertionFailed);
  }
}

TEST(Assertions, ProgramAbortWithAndWithoutMessage) {
  try {
    Assertions::throwProgramAborted("x.cpp", 7, "no way");
  } catch (AssertionsEx::ExProgramAborted const& e) {
    EXPECT_NE(std::string(e.getReason()).find("no way"), std::string::npos);
    EXPECT_EQ(std::string(e.getDetailedReason()).rfind("x.cpp:7: ", 0), 0u);
  }
  try {
    Assertions::throwProgramAborted("x.cpp", 7, nullptr);
  } catch (AssertionsEx const& e) {
    EXPECT_STREQ(static_cast<AssertionsEx::ExProgramAborted const&>(e).getMessage(), "");
  }
}
