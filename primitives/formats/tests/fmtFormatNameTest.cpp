#include "fmtTestUtil.h"

#include <orn/base/init/inInitService.h>
#include <orn/primitives/formats/fmtFormatName.h>
#include <orn/primitives/formats/fmtVideoFormat.h>

#include <vector>

using namespace Orn;
using FmtTest::failedCondition;

namespace {

class FmtNameFilters : public ::testing::Test {
protected:
  static void SetUpTestSuite() { InInitService::initialize(); }
};

unsigned count(ConstIterator<FmtFormatName> it) {
  unsigned n = 0;
  for (; !it.atEnd(); ++it) ++n;
  return n;
}

}  // namespace

TEST(FmtFormatName, FieldsSplitAtEverySeparatorAndKeepTheirPlaces) {
  LiString const text("1-Half NTSC-360-243-proxy---4:3-972:1080-RATE_30-30/1");
  FmtFormatName const name(text);
  EXPECT_EQ(name.getFieldValue(FmtFormatName::DISPLAY_NAME), "Half NTSC");
  EXPECT_EQ(name.getFieldValue(FmtFormatName::DEFINITION), "");
  EXPECT_EQ(name.getFieldValue(FmtFormatName::SCAN), "");
  EXPECT_EQ(name.getFieldValue(FmtFormatName::RATE_NAME), "RATE_30");
  EXPECT_EQ(name.getFieldValue(FmtFormatName::RATE), "30/1");
  EXPECT_EQ(name.toString(), text);

  EXPECT_TRUE(FmtFormatName::isWellFormed("----------"));
  EXPECT_FALSE(FmtFormatName::isWellFormed(""));
  EXPECT_FALSE(FmtFormatName::isWellFormed("-----------"));
  EXPECT_EQ(failedCondition([] { FmtFormatName("a-b"); }), "tokens.size() == NB_FIELDS");

  FmtFormatName filter;
  EXPECT_EQ(filter.toString(), "*-*-*-*-*-*-*-*-*-*-*");
  EXPECT_TRUE(filter.matches(name));
  filter.setFieldValue(FmtFormatName::CATEGORY, "proxy");
  filter.setFieldValue(FmtFormatName::SCAN, "");
  EXPECT_TRUE(filter.matches(name));
  filter.setFieldValue(FmtFormatName::RATE, "30");
  EXPECT_FALSE(filter.matches(name));
  // The wildcard is a whole field: a name holding "*" does not match everything.
  EXPECT_FALSE(name.matches(FmtFormatName()));
  EXPECT_NE(failedCondition([&] { filter.setFieldValue(FmtFormatName::RATE, "a-b"); }), "<no assertion failed>");
}

TEST_F(FmtNameFilters, FilteredListsOfTheRegistry) {
  FmtFormatName filter;
  EXPECT_EQ(count(FmtFormatName::getFilteredList(filter)), 72u);
  EXPECT_EQ(count(FmtFormatName::getFilteredList(filter, FmtImageFormat::TYPE)), 0u);
  filter.setFieldValue(FmtFormatName::CATEGORY, "film");
  filter.setFieldValue(FmtFormatName::PIXEL_RATIO, "2:1");
  ConstIterator<FmtFormatName> cinemascope = FmtFormatName::getFilteredList(filter, FmtVideoFormat::TYPE);
  ASSERT_EQ(count(cinemascope), 3u);
  // In name order: "...1K" < "...2K" < "...4K".
  EXPECT_EQ(cinemascope->getFieldValue(FmtFormatName::WIDTH), "914");
  EXPECT_EQ((++cinemascope)->getFieldValue(FmtFormatName::WIDTH), "1828");
  filter.setFieldValue(FmtFormatName::PIXEL_RATIO, FmtFormatName::All);
  filter.setFieldValue(FmtFormatName::RATE_NAME, "RATE_24");
  EXPECT_EQ(count(FmtFormatName::getFilteredList(filter)), 33u);
  EXPECT_EQ(failedCondition([&] { FmtFormatName::getFilteredList(filter, "Sound"); }),
            "_formatTypes.find( t ) != _formatTypes.end()");
}

TEST_F(FmtNameFilters, AllVideoRatesAreTheDistinctRatesInRateOrder) {
  // Every one of the eight rates is used by some built-in format, most of them several times.
  std::vector<int> ids;
  for (ConstIterator<LiRateRegistry::Entry> rate = FmtVideoFormat::getAllVideoRates(); !rate.atEnd(); ++rate) {
    ids.push_back(rate->getId());
  }
  EXPECT_EQ(ids, (std::vector<int>{0, 1, 2, 3, 4, 5, 6, 7}));
}
