#include <orn/base/rc/oPtr.h>
#include <orn/base/rc/oPtrRet.h>

#include <gtest/gtest.h>

using namespace Orn;

namespace {

struct Item {
  static inline int alive = 0;
  explicit Item(int v = 0) : value(v) { ++alive; }
  virtual ~Item() { --alive; }
  int value;
};

struct Special : Item {
  Special() : Item(42) {}
};

int consume(OPtr<Item> owner) { return owner->value; }
OPtrRet<Special> makeSpecial() { return OPtrRet<Special>(new Special); }
OPtrRet<Item> forward(OPtr<Item> owner) { return owner; }

}  // namespace

TEST(OPtrTest, CopyAndAssignmentMoveOwnership) {
  OPtr<Item> a(new Item(1));
  OPtr<Item> b(a);
  EXPECT_TRUE(a.isNull());
  EXPECT_EQ(consume(b), 1);
  EXPECT_TRUE(b.isNull());
  EXPECT_EQ(Item::alive, 0) << "the by-value parameter deleted it";

  OPtr<Item> c(new Item(2));
  OPtr<Item> d(new Item(3));
  d = c;
  d = d;
  d.reset(d.get());
  EXPECT_TRUE(c.isNull());
  EXPECT_EQ(d->value, 2);
  EXPECT_EQ(Item::alive, 1);
  d.reset();
  EXPECT_EQ(Item::alive, 0);
  EXPECT_THROW(d->value, RCEx::ExNullPtr);
}

TEST(OPtrTest, ReturnedOwnerConvertsToOPtr) {
  OPtr<Item> a = makeSpecial();
  a = makeSpecial();
  EXPECT_EQ(Item::alive, 1);
  OPtr<Item> b(forward(a));
  EXPECT_TRUE(a.isNull());
  EXPECT_EQ(b->value, 42);
  makeSpecial();  // unclaimed: deleted at once
  EXPECT_EQ(Item::alive, 1);
  EXPECT_THROW(*OPtrRet<Item const>(), RCEx::ExNullPtr);
}
