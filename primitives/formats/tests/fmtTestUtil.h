#pragma once
// Helpers of the format tests.

#include <orn/base/except/assertions.h>

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace FmtTest {

// The condition text of the assertion that f fails, or a marker when it fails none.
template <class F>
std::string failedCondition(F f) {
  try {
    f();
  } catch (Orn::AssertionsEx::ExAssertionFailed const& e) {
    return e.getCondition();
  }
  return "<no assertion failed>";
}

// Ends a death-test child: its failures go to stderr, which the parent shows.
[[noreturn]] inline void exitWithFailures() {
  ::testing::TestResult const* result = ::testing::UnitTest::GetInstance()->current_test_info()->result();
  for (int i = 0; i < result->total_part_count(); ++i) {
    ::testing::TestPartResult const& part = result->GetTestPartResult(i);
    if (part.failed()) std::fprintf(stderr, "%s:%d: %s\n", part.file_name(), part.line_number(), part.message());
  }
  std::exit(::testing::Test::HasFailure() ? 1 : 0);
}

// Runs body in a re-executed process, so that what it registers or destroys stays out of the
// process that runs the other tests. Failures inside body fail the test through the exit code.
template <class Body>
void inFreshProcess(Body body) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(
      {
        body();
        exitWithFailures();
      },
      ::testing::ExitedWithCode(0), "");
}

}  // namespace FmtTest
