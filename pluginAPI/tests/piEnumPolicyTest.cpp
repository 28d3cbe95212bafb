#include <gtest/gtest.h>
#include <orn/base/except/assertions.h>
#include <orn/pluginAPI/piEnumPolicy.h>

using namespace Orn;

namespace {

TEST(PiEnumPolicyTest, BuilderKeepsPairsInOrderWithTheirSettings) {
  PiEnumPolicy::Builder builder;
  RCShdPtr<PiEnumPolicy const> const empty = builder.create();
  EXPECT_EQ(empty->getNbPairs(), 0);
  EXPECT_EQ(empty->getDefaultValue(), 0);
  EXPECT_FALSE(empty->isAnimatable());

  builder.addPair(7, "Seven").addPair(3, LiString("Three"));
  builder.setDefaultValue(3).setAnimatable(true);
  builder.addPair(-2, "Minus two");
  RCShdPtr<PiEnumPolicy const> const policy = builder.create();
  ASSERT_EQ(policy->getNbPairs(), 3);
  EXPECT_EQ(policy->getValue(0), 7);
  EXPECT_EQ(policy->getValue(1), 3);
  EXPECT_EQ(policy->getValue(2), -2);
  EXPECT_EQ(policy->getName(0), LiString("Seven"));
  EXPECT_EQ(policy->getName(2), LiString("Minus two"));
  EXPECT_EQ(policy->getDefaultValue(), 3);
  EXPECT_TRUE(policy->isAnimatable());
  EXPECT_EQ(policy->findValue(-2), 2);
  EXPECT_EQ(policy->findValue(4), -1);

  // A policy is a snapshot: the builder's later pairs do not reach it.
  builder.addPair(9, "Nine");
  EXPECT_EQ(policy->getNbPairs(), 3);
  EXPECT_EQ(builder.create()->getNbPairs(), 4);
  EXPECT_EQ(empty->getNbPairs(), 0);

  EXPECT_THROW(policy->getValue(3), AssertionsEx::ExAssertionFailed);
  EXPECT_THROW(policy->getName(-1), AssertionsEx::ExAssertionFailed);
}

}  // namespace
