#include <orn/resmgt/envIntVar.h>
#include <orn/resmgt/lgTrace.h>
#include <orn/resmgt/trace.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <sstream>

using namespace Orn;

TEST(EnvIntVar, ReadsIntegersAndFallsBackOnAnythingElse) {
  char const* const name = "ORN_TEST_ENV_INT_VAR";
  EnvIntVar const var(name, "a test variable", -10000);
  EXPECT_EQ(var.getName(), name);
  EXPECT_EQ(var.getDescription(), "a test variable");

  unsetenv(name);
  EXPECT_EQ(var.getValue(), -10000);
  struct {
    char const* text;
    int value;
  } const cases[] = {{"1", 1},        {"-12", -12},     {" 42 ", 42},      {"+7", 7},
                     {"", -10000},    {"abc", -10000},  {"12abc", -10000}, {"1.5", -10000},
                     {"0x10", -10000}, {"2147483647", 2147483647}, {"2147483648", -10000},
                     {"-2147483649", -10000}, {"99999999999999999999", -10000}};
  for (auto const& c : cases) {
    setenv(name, c.text, 1);
    EXPECT_EQ(var.getValue(), c.value) << '"' << c.text << '"';
  }
  unsetenv(name);
  EXPECT_EQ(var.getValue(), -10000);
}

TEST(Trace, SilentUntilTheThresholdReachesTheLevel) {
  std::ostringstream captured;
  std::ostream* const previous = LgTrace::setStream(&captured);

  Trace::setThreshold(0);
  EXPECT_FALSE(Trace::isEnabled(Trace::MainTraceLevel));
  LgTrace::print("hidden");
  EXPECT_EQ(captured.str(), "");

  Trace::setThreshold(1);
  EXPECT_TRUE(Trace::isEnabled(Trace::MainTraceLevel));
  EXPECT_FALSE(Trace::isEnabled(Trace::DetailTraceLevel));
  LgTrace::print("shown");
  EXPECT_EQ(captured.str(), "shown\n");

  std::ostringstream log;
  Trace::log(log, "file.cpp", 12) << "message";
  EXPECT_EQ(log.str(), "file.cpp:12: message");

  // The environment sets the threshold when asked to read it again.
  setenv("ORN_TRACE_LEVEL", "2", 1);
  Trace::resetThreshold();
  EXPECT_TRUE(Trace::isEnabled(Trace::DetailTraceLevel));
  unsetenv("ORN_TRACE_LEVEL");
  Trace::resetThreshold();
  EXPECT_EQ(Trace::getThreshold(), 0);

  LgTrace::setStream(previous);
}
