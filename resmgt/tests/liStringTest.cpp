#include <orn/resmgt/liString.h>
#include <orn/resmgt/liStringTokenizer.h>
#include <orn/resmgt/liStringUtil.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <sstream>
#include <string>
#include <vector>

using namespace Orn;

namespace {

std::vector<std::string> tokens(LiStringTokenizer const& t) { return std::vector<std::string>(t.begin(), t.end()); }

}  // namespace

TEST(LiString, ConvertsBothWaysAndOrdersLikeStandardStrings) {
  std::string const standard = "Video";
  LiString const fromStd(standard);
  LiString const fromChars("Image");
  LiString const copy(fromStd);
  LiString const fromNull(static_cast<char const*>(nullptr));
  EXPECT_TRUE(fromNull.empty());

  std::string const back = fromStd;
  EXPECT_EQ(back, "Video");
  EXPECT_STREQ(fromChars.c_str(), "Image");
  EXPECT_EQ(copy, fromStd);
  EXPECT_EQ(fromStd, standard);
  EXPECT_EQ(fromChars, "Image");
  EXPECT_NE(fromChars, fromStd);

  LiString assigned("x");
  assigned = fromChars;
  EXPECT_EQ(assigned, "Image");

  // Byte-wise order, as std::string: upper case before lower case, prefix before longer text.
  EXPECT_LT(LiString("Image"), LiString("Video"));
  EXPECT_LT(LiString("Zeta"), LiString("alpha"));
  EXPECT_LT(LiString("ab"), LiString("abc"));
  EXPECT_FALSE(LiString("abc") < LiString("abc"));

  std::ostringstream out;
  out << (LiString("1") + LiString("-") + "2");
  EXPECT_EQ(out.str(), "1-2");
}

TEST(LiStringUtil, DecimalTextOfIntegers) {
  EXPECT_EQ(LiStringUtil::convertNb(0), "0");
  EXPECT_EQ(LiStringUtil::convertNb(2600), "2600");
  EXPECT_EQ(LiStringUtil::convertNb(-42), "-42");
  EXPECT_EQ(LiStringUtil::convertNb(INT_MIN), "-2147483648");
}

TEST(LiStringTokenizer, SplitsAtAnySeparatorSkippingOrKeepingEmptyTokens) {
  EXPECT_EQ(tokens(LiStringTokenizer("a b\tc", " \t")), (std::vector<std::string>{"a", "b", "c"}));
  EXPECT_EQ(tokens(LiStringTokenizer(",,a,,b,", ",")), (std::vector<std::string>{"a", "b"}));
  EXPECT_EQ(tokens(LiStringTokenizer("no separator", ",")), (std::vector<std::string>{"no separator"}));
  EXPECT_TRUE(LiStringTokenizer("", ",").empty());
  EXPECT_TRUE(LiStringTokenizer(",,,", ",").empty());

  // Kept empty tokens keep the position of each field.
  LiStringTokenizer const fields("7-two words-x--3:2", "-", LiStringTokenizer::KEEP_EMPTY);
  ASSERT_EQ(fields.size(), 5u);
  EXPECT_EQ(fields[1], "two words");
  EXPECT_EQ(fields[3], "");
  EXPECT_EQ(fields[4], "3:2");
  EXPECT_EQ(tokens(LiStringTokenizer("-a-", "-", LiStringTokenizer::KEEP_EMPTY)), (std::vector<std::string>{"", "a", ""}));
  EXPECT_TRUE(LiStringTokenizer("", "-", LiStringTokenizer::KEEP_EMPTY).empty());

  // A predicate filters the tokens; All keeps them.
  auto isNumber = [](std::string const& t) { return std::all_of(t.begin(), t.end(), ::isdigit); };
  EXPECT_EQ(tokens(LiStringTokenizer("12 ab 7 x9", " ", isNumber)), (std::vector<std::string>{"12", "7"}));
  EXPECT_EQ(tokens(LiStringTokenizer("a b", " ", LiStringTokenizer::All())), (std::vector<std::string>{"a", "b"}));
}
