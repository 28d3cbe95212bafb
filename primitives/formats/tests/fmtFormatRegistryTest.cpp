#include "fmtTestUtil.h"

#include <orn/base/init/inInitService.h>
#include <orn/base/init/inSingleton.h>
#include <orn/primitives/formats/fmtFormatRegistry.h>
#include <orn/primitives/formats/fmtVideoFormat.h>

#include <string>

using namespace Orn;
using FmtTest::failedCondition;

namespace {

class FmtRegistryLookUps : public ::testing::Test {
protected:
  static void SetUpTestSuite() { InInitService::initialize(); }
};

FmtVideoFormat video(unsigned width, unsigned height, int rateId, Rational pixelRatio = Rational(1, 1)) {
  return FmtVideoFormat(width, height, ImPixelFormat(3, 8), pixelRatio, LiRateRegistry::getInstance().get(rateId));
}

template <class Ex, class F>
bool raises(F f) {
  try {
    f();
  } catch (Ex const& e) {
    return std::string(e.getReason()).find("FmtFormatRegistry") != std::string::npos;
  } catch (...) {
  }
  return false;
}

}  // namespace

TEST(FmtRegistryLifecycle, LivesFromTheFormatsStartUpToItsCleanUp) {
  FmtTest::inFreshProcess([] {
    using Singleton = InSingleton<FmtFormatRegistry>;
    EXPECT_TRUE(raises<InSingletonEx::ExNotInitialized>([] { FmtFormatRegistry::getInstance(); }));
    InInitService::initialize();
    EXPECT_TRUE(raises<InSingletonEx::ExAlreadyInitialized>([] { Singleton::create(); }));
    EXPECT_GT(FmtFormatRegistry::getInstance().nbFormats(), 0u);
    InInitService::finalize();
    EXPECT_TRUE(raises<InSingletonEx::ExAlreadyDestroyed>([] { FmtFormatRegistry::getInstance(); }));
    EXPECT_TRUE(raises<InSingletonEx::ExAlreadyDestroyed>([] { Singleton::create(); }));
  });
}

TEST_F(FmtRegistryLookUps, EqualDescriptionsResolveToTheFirstInNameOrder) {
  FmtFormatRegistry const& reg = FmtFormatRegistry::getInstance();
  // 704x480 at 29.97 Hz exists with image ratios 4:3 and 16:9; "...-16:9-..." sorts first although
  // 4:3 was registered first.
  FmtVideoFormat const hd480 = video(704, 480, 3);
  auto const found = reg.findFormatByDesc(&hd480);
  ASSERT_TRUE(found != reg.end());
  EXPECT_EQ(found->first.first.str(), "2-HD 480p-704-480-video-hd-progressive-16:9-7680:6336-RATE_29_97-30000/1001");
  // 720x576 at 25 Hz: PAL (group 1) before the two "HD 576p" of group 2.
  EXPECT_EQ(reg.describeFormat(video(720, 576, 2)), "PAL");
  EXPECT_EQ(reg.describeFormat(video(1920, 1080, 0)), "HD 1080p");
  // Display names are not format names.
  EXPECT_TRUE(reg.findFormatByName("HD 1080p") == reg.end());

  // No match: another rate, another pixel ratio, or an image format of a built-in size.
  EXPECT_EQ(reg.describeFormat(video(720, 576, 7)), "720x576 8-Bits RGB 60Hz");
  EXPECT_EQ(reg.describeFormat(video(1920, 1080, 2, Rational(4, 3))), "1920x1080 8-Bits RGB 4:3 25Hz");
  FmtImageFormat const image(1920, 1080, ImPixelFormat(3, 8), Rational(1, 1));
  EXPECT_TRUE(reg.findFormatByDesc(&image) == reg.end());
  EXPECT_EQ(reg.describeFormat(image), "1920x1080 8-Bits RGB");
  EXPECT_EQ(failedCondition([&] { reg.findFormatByDesc(nullptr); }), "n != nullptr");
}

TEST(FmtRegistryClients, TypesAndFormatsRegisteredByClients) {
  FmtTest::inFreshProcess([] {
    InInitService::initialize();
    FmtFormatRegistry& reg = FmtFormatRegistry::getInstance();
    std::string const unknownType = "_formatTypes.find( t ) != _formatTypes.end()";
    FmtFormatDesc const still("Still", new FmtImageFormat(64, 32, ImPixelFormat(4, 16), Rational(1, 1)));
    EXPECT_EQ(failedCondition([&] { reg.registerFormat("still", "Texture", still); }), unknownType);
    EXPECT_EQ(failedCondition([&] { reg.findFormatsByType("Texture"); }), unknownType);

    reg.registerFormatType("Texture");
    reg.registerFormat("still", "Texture", still);
    reg.registerFormat("still", FmtImageFormat::TYPE, still);
    reg.registerFormat("a still", FmtImageFormat::TYPE, still);
    EXPECT_EQ(failedCondition([&] { reg.registerFormat("still", "Texture", still); }),
              "formatReg.findFormatByName( formatName ) == formatReg.end()");

    // One name under two types: the smaller type comes first.
    auto const byName = reg.findFormatByName("still");
    ASSERT_TRUE(byName != reg.end());
    EXPECT_EQ(byName->first.second, FmtImageFormat::TYPE);
    // Only the image entries, in name order, whatever the order of registration.
    std::string names;
    FmtFormatRegistry::TypeRange const images = reg.findFormatsByType(FmtImageFormat::TYPE);
    for (auto it = images.first; it != images.second; ++it) names += it->first.first.str() + ",";
    EXPECT_EQ(names, "a still,still,");
    // Equal natives: the first in map order, across types.
    EXPECT_TRUE(reg.findFormatByDesc(&still.getNative()) == reg.findFormatByName("a still"));
  });
}
