#include "fmtTestUtil.h"

#include <orn/base/init/inInitService.h>
#include <orn/primitives/formats/fmtVideoFormat.h>

using namespace Orn;
using FmtTest::failedCondition;

namespace {

class FmtDescriptions : public ::testing::Test {
protected:
  static void SetUpTestSuite() { InInitService::initialize(); }
  static LiRateRegistry::Entry rate(int id) { return LiRateRegistry::getInstance().get(id); }
};

}  // namespace

TEST(ImPixelFormat, SizeInWholeBytes) {
  EXPECT_EQ(ImPixelFormat(3, 8).getSize(), 3);
  EXPECT_EQ(ImPixelFormat(4, 16).getSize(), 8);
  EXPECT_EQ(ImPixelFormat(3, 10).getSize(), 4);
  EXPECT_THROW(ImPixelFormat(0, 8), AssertionsEx::ExAssertionFailed);
}

TEST_F(FmtDescriptions, GeneratedTextsNameSizeDepthLayoutRatioAndRate) {
  EXPECT_EQ(FmtImageFormat(1920, 1080, ImPixelFormat(3, 8), Rational(1, 1)).generateDesc(), "1920x1080 8-Bits RGB");
  EXPECT_EQ(FmtImageFormat::generateDesc(64, 32, ImPixelFormat(1, 16), Rational(2, 2)), "64x32 16-Bits GrayScale");
  EXPECT_EQ(FmtImageFormat::generateDesc(6, 3, ImPixelFormat(2, 32), Rational(1, 1)), "6x3 32-Bits TwoComponents");
  EXPECT_EQ(FmtImageFormat::generateDesc(720, 486, ImPixelFormat(4, 8), Rational(1944, 2160)),
            "720x486 8-Bits RGBA 1944:2160");
  EXPECT_THROW(FmtImageFormat::generateDesc(1, 1, ImPixelFormat(3, 10), Rational(1, 1)), AssertionsEx::ExProgramAborted);
  EXPECT_THROW(FmtImageFormat::generateDesc(1, 1, ImPixelFormat(5, 8), Rational(1, 1)), AssertionsEx::ExProgramAborted);

  EXPECT_EQ(FmtVideoFormat(1920, 1080, ImPixelFormat(3, 8), Rational(1, 1), rate(2)).generateDesc(),
            "1920x1080 8-Bits RGB 25Hz");
  EXPECT_EQ(FmtVideoFormat(720, 486, ImPixelFormat(3, 8), Rational(9, 10), rate(3)).generateDesc(),
            "720x486 8-Bits RGB 9:10 29.97Hz");
  EXPECT_EQ(FmtVideoFormat::generateDesc(2048, 1556, ImPixelFormat(3, 8), Rational(1, 1), Rational(24000, 1001)),
            "2048x1556 8-Bits RGB 23.976Hz");
}

TEST_F(FmtDescriptions, EqualityNeedsTheSameTypeAndValues) {
  FmtImageFormat const image(720, 576, ImPixelFormat(3, 8), Rational(1, 2));
  FmtVideoFormat const video(720, 576, ImPixelFormat(3, 8), Rational(1, 2), rate(2));
  FmtFormatDesc::Native const& asNative = video;
  EXPECT_FALSE(image == asNative);
  EXPECT_FALSE(asNative == image);
  EXPECT_TRUE(image == FmtImageFormat(720, 576, ImPixelFormat(3, 8), Rational(2, 4)));
  EXPECT_FALSE(image == FmtImageFormat(720, 576, ImPixelFormat(3, 16), Rational(1, 2)));
  EXPECT_TRUE(video == FmtVideoFormat(720, 576, ImPixelFormat(3, 8), Rational(1, 2), rate(2)));
  EXPECT_FALSE(video == FmtVideoFormat(720, 576, ImPixelFormat(3, 8), Rational(1, 2), rate(5)));
  EXPECT_FALSE(video == FmtVideoFormat(720, 576, ImPixelFormat(3, 8), Rational(1, 1), rate(2)));
}

TEST_F(FmtDescriptions, DescriptorsOwnAndCloneTheirNative) {
  EXPECT_EQ(failedCondition([] { FmtFormatDesc("none", OPtr<FmtFormatDesc::Native const>()); }), "!n.isNull()");
  FmtFormatDesc const original("PAL", new FmtVideoFormat(720, 576, ImPixelFormat(3, 8), Rational(1, 1), rate(2)));
  FmtFormatDesc copy(original);
  EXPECT_NE(&copy.getNative(), &original.getNative());
  EXPECT_TRUE(copy.getNative() == original.getNative());
  auto const* cloned = dynamic_cast<FmtVideoFormat const*>(&copy.getNative());
  ASSERT_NE(cloned, nullptr);
  EXPECT_EQ(cloned->getRateEntry(), rate(2));

  copy = FmtFormatDesc("Still", new FmtImageFormat(8, 8, ImPixelFormat(1, 8), Rational(1, 1)));
  EXPECT_EQ(copy.getDescription(), "Still");
  EXPECT_EQ(copy.getNative().generateDesc(), "8x8 8-Bits GrayScale");
}
