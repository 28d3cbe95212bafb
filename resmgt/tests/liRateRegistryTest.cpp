#include <orn/base/init/inInitService.h>
#include <orn/base/init/inSingletonEx.h>
#include <orn/resmgt/liRateRegistry.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <vector>

using namespace Orn;

namespace {

class LiRateRegistryTable : public ::testing::Test {
protected:
  static void SetUpTestSuite() { InInitService::initialize(); }
};

struct ExpectedRate {
  char const* name;
  int numerator;
  int denominator;
};

// The usual video and film rates, the NTSC ones as exact fractions over 1001.
ExpectedRate const expected[] = {{"RATE_23_976", 24000, 1001}, {"RATE_24", 24, 1},   {"RATE_25", 25, 1},
                                 {"RATE_29_97", 30000, 1001},  {"RATE_30", 30, 1},   {"RATE_50", 50, 1},
                                 {"RATE_59_94", 60000, 1001},  {"RATE_60", 60, 1}};

template <class Ex, class F>
bool raises(F f) {
  try {
    f();
  } catch (Ex const&) {
    return true;
  } catch (...) {
  }
  return false;
}

// Walks the registry through its life in a fresh process; returns the number of the failed check.
int runLifecycle() {
  if (!raises<InSingletonEx::ExNotInitialized>([] { LiRateRegistry::getInstance(); })) return 1;
  InInitService::initialize();
  if (LiRateRegistry::getInstance().get(2).getRate() != Rational(25, 1)) return 2;
  InInitService::finalize();
  if (!raises<InSingletonEx::ExAlreadyDestroyed>([] { LiRateRegistry::getInstance(); })) return 3;
  // The registry does not come back: a new start-up fails in the resmgt step.
  if (!raises<InSingletonEx::ExAlreadyDestroyed>([] { InInitService::initialize(); })) return 4;
  return InInitService::isInitialized() ? 5 : 0;
}

}  // namespace

TEST(LiRateRegistryLifecycle, ExistsOnlyBetweenStartUpAndCleanUp) {
  // Runs in a re-executed process, so that no other test has started the packages.
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(std::exit(runLifecycle()), ::testing::ExitedWithCode(0), "");
}

TEST_F(LiRateRegistryTable, IdsAndNamesGiveTheSameEightRates) {
  LiRateRegistry const& registry = LiRateRegistry::getInstance();
  ASSERT_EQ(registry.getAllEntries().size(), 8u);
  for (int id = 0; id < 8; ++id) {
    ExpectedRate const& e = expected[id];
    LiRateRegistry::Entry const byId = registry.get(id);
    ASSERT_FALSE(byId.isNull()) << id;
    EXPECT_EQ(byId.getId(), id);
    EXPECT_EQ(byId.getEnumName(), e.name);
    EXPECT_EQ(byId.getRate().getNumerator(), e.numerator) << id;
    EXPECT_EQ(byId.getRate().getDenominator(), e.denominator) << id;
    EXPECT_EQ(registry.get(e.name), byId);
    EXPECT_EQ(registry.getAllEntries()[std::size_t(id)], byId);
    // Names are usable as a field of a '-'-separated name.
    EXPECT_EQ(byId.getEnumName().find('-'), std::string::npos);
  }
}

TEST_F(LiRateRegistryTable, UnknownIdsAndNamesGiveTheNullEntryWhichSortsFirst) {
  LiRateRegistry const& registry = LiRateRegistry::getInstance();
  LiRateRegistry::Entry const null;
  EXPECT_TRUE(null.isNull());
  EXPECT_EQ(null.getEnumName(), "");
  for (LiRateRegistry::Entry const& e : {registry.get(-1), registry.get(8), registry.get("RATE_48"),
                                         registry.get("rate_24"), registry.get(""), registry.get("1:1"),
                                         registry.get(static_cast<char const*>(nullptr))}) {
    EXPECT_TRUE(e.isNull());
    EXPECT_EQ(e, null);
  }

  std::vector<LiRateRegistry::Entry> entries{registry.get(7), registry.get(0), null, registry.get(3),
                                             registry.get(1)};
  std::sort(entries.begin(), entries.end());
  EXPECT_TRUE(entries[0].isNull());
  EXPECT_EQ(entries[1].getEnumName(), "RATE_23_976");
  EXPECT_EQ(entries[2].getEnumName(), "RATE_24");
  EXPECT_EQ(entries[3].getEnumName(), "RATE_29_97");
  EXPECT_EQ(entries[4].getEnumName(), "RATE_60");
  EXPECT_FALSE(registry.get(2) < registry.get(2));
}
