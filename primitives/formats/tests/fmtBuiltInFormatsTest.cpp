#include "fmtTestUtil.h"

#include <orn/base/init/inInitService.h>
#include <orn/primitives/formats/fmtBuiltInFormats.h>
#include <orn/primitives/formats/fmtFormatName.h>
#include <orn/primitives/formats/fmtFormatRegistry.h>
#include <orn/primitives/formats/fmtVideoFormat.h>

#include <array>
#include <map>
#include <set>
#include <string>

using namespace Orn;
using FmtTest::failedCondition;

namespace {

class FmtBuiltInTable : public ::testing::Test {
protected:
  static void SetUpTestSuite() { InInitService::initialize(); }
};

bool isRegistered(char const* name) {
  FmtFormatRegistry const& reg = FmtFormatRegistry::getInstance();
  return reg.findFormatByName(name) != reg.end();
}

}  // namespace

TEST_F(FmtBuiltInTable, EveryRowGivesOneVideoFormatPerRatioAndRate) {
  FmtFormatRegistry const& reg = FmtFormatRegistry::getInstance();
  EXPECT_EQ(reg.nbFormats(), 72u);

  // Ratios x rates per display name, summed over the rows that share it.
  std::map<std::string, int> const expected = {
      {"NTSC", 2},    {"Half NTSC", 2}, {"Quarter NTSC", 2}, {"PAL", 1},     {"Half PAL", 1},
      {"Quarter PAL", 1}, {"HD 480p", 6}, {"HD 483p", 1},    {"HD 288p", 2}, {"HD 576p", 10},
      {"HD 720p", 6}, {"HD 1080p", 5}};
  std::map<std::string, int> counted;
  int nbFilm = 0;
  for (auto const& [key, desc] : reg) {
    FmtFormatName const name(key.first);
    EXPECT_EQ(key.second, FmtVideoFormat::TYPE);
    EXPECT_EQ(desc.getDescription(), name.getFieldValue(FmtFormatName::DISPLAY_NAME));
    auto const* video = dynamic_cast<FmtVideoFormat const*>(&desc.getNative());
    ASSERT_NE(video, nullptr) << key.first;
    // Square pixels and 8-bit RGB in every descriptor; size and rate as the name says.
    EXPECT_EQ(video->getPixelFormat(), ImPixelFormat(3, 8));
    EXPECT_EQ(video->getPixelRatio(), Rational(1, 1));
    EXPECT_EQ(std::to_string(video->getWidth()), name.getFieldValue(FmtFormatName::WIDTH).str());
    EXPECT_EQ(std::to_string(video->getHeight()), name.getFieldValue(FmtFormatName::HEIGHT).str());
    EXPECT_EQ(video->getRateEntry().getEnumName(), name.getFieldValue(FmtFormatName::RATE_NAME).str());
    if (name.getFieldValue(FmtFormatName::CATEGORY) == "film") {
      ++nbFilm;
      EXPECT_EQ(name.getFieldValue(FmtFormatName::RATE).str(), "24/1");
    } else {
      ++counted[desc.getDescription()];
    }
  }
  EXPECT_EQ(counted, expected);
  EXPECT_EQ(nbFilm, 33);
}

TEST_F(FmtBuiltInTable, NamesCarryCategoryDefinitionScanAndUnreducedRatios) {
  // Pixel ratio of an image ratio a:b is (a * height):(b * width); image ratio of a pixel ratio
  // c:d is (c * width):(d * height). Neither is reduced.
  EXPECT_TRUE(isRegistered("1-NTSC-720-486-video-sd-interlaced-4:3-1944:2160-RATE_29_97-30000/1001"));
  EXPECT_TRUE(isRegistered("1-Half NTSC-360-243-proxy---4:3-972:1080-RATE_30-30/1"));
  EXPECT_TRUE(isRegistered("3-HD 576p-352-576-video-hd-progressive-16:9-9216:3168-RATE_25-25/1"));
  EXPECT_TRUE(isRegistered("2-HD 720p-1280-720-video-hd-progressive-16:9-11520:11520-RATE_59_94-60000/1001"));
  EXPECT_TRUE(isRegistered("2-35mm Full Aperture 4K-4096-3112-film---4096:3112-1:1-RATE_24-24/1"));
  EXPECT_TRUE(isRegistered("2-Cinemascope/Panavision 4K-3656-3112-film---7312:3112-2:1-RATE_24-24/1"));
  EXPECT_FALSE(isRegistered("1-PAL-720-576-video-sd-interlaced-4:3-2304:2160-RATE_50-50/1"));

  // The two "HD 1080p" rows differ in the rate fields only.
  FmtFormatName filter;
  filter.setFieldValue(FmtFormatName::DISPLAY_NAME, "HD 1080p");
  std::set<std::string> rates;
  for (ConstIterator<FmtFormatName> it = FmtFormatName::getFilteredList(filter); !it.atEnd(); ++it) {
    rates.insert(it->getFieldValue(FmtFormatName::RATE_NAME).str());
    EXPECT_EQ(it->getFieldValue(FmtFormatName::PIXEL_RATIO), "17280:17280");
  }
  EXPECT_EQ(rates, (std::set<std::string>{"RATE_25", "RATE_23_976", "RATE_24", "RATE_29_97", "RATE_30"}));
}

TEST(FmtBuiltInRows, BothScansExpandAndBadRowsFail) {
  FmtTest::inFreshProcess([] {
    InInitService::initialize();
    FmtFormatRegistry const& reg = FmtFormatRegistry::getInstance();
    LiRateRegistry const& rateReg = LiRateRegistry::getInstance();
    Vector<LiRateRegistry::Entry> const rates{rateReg.get(2), rateReg.get(5)};
    Vector<Rational> const none;
    std::size_t const nbBefore = reg.nbFormats();

    FmtBuiltInFormats::addFormats("Test", 100, 50, FmtBuiltInFormats::GRAPHICS, FmtBuiltInFormats::NO_DEFINITION,
                                  FmtBuiltInFormats::BOTH_SCANS, {Rational(2, 1), Rational(4, 1)}, none, rates, 7);
    EXPECT_EQ(reg.nbFormats(), nbBefore + 8);
    EXPECT_TRUE(isRegistered("7-Test-100-50-graphics--interlaced-2:1-100:100-RATE_25-25/1"));
    EXPECT_TRUE(isRegistered("7-Test-100-50-graphics--progressive-4:1-200:100-RATE_50-50/1"));
    EXPECT_EQ(failedCondition([&] {
                FmtBuiltInFormats::addFormats("Test", 100, 50, 2, 2, 2, {Rational(2, 1)}, none, rates, 7);
              }),
              "formatReg.findFormatByName( formatName ) == formatReg.end()");
    EXPECT_EQ(failedCondition([&] { FmtBuiltInFormats::addFormats("X", 1, 1, 2, 2, 3, none, none, rates, 7); }),
              "( !imgRatios.empty() && pixRatios.empty() ) || ( imgRatios.empty() && !pixRatios.empty() )");
    std::size_t const nbValid = reg.nbFormats();
    // Category, definition or scan out of range.
    for (auto [category, definition, scan] : {std::array{4, 2, 3}, {-1, 2, 3}, {2, 3, 3}, {2, 2, 4}, {2, 2, -1}}) {
      EXPECT_THROW(FmtBuiltInFormats::addFormats("X", 1, 1, category, definition, scan, {Rational(1, 1)}, none, rates, 7),
                   AssertionsEx::ExProgramAborted);
    }
    EXPECT_EQ(reg.nbFormats(), nbValid);
  });
}
