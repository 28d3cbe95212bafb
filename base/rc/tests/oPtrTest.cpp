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
  EXPECT_EQ(b->value, 1);

  EXPECT_EQ(consume(b), 1);
  EXPECT_TRUE(b.isNull());
  EXPECT_EQ(Item::alive, 0) << "the by-value parameter deleted it";

  OPtr<Item> c(new Item(2));
  OPtr<Item> d(new Item(3));
  d = c;
  EXPECT_TRUE(c.isNull());
  EXPECT_EQ(d->value, 2);
  EXPECT_EQ(Item::alive, 1);
  d = d;
  EXPECT_EQ(d->value, 2);
  d.reset(d.get());
  EXPECT_EQ(Item::alive, 1);
  d.reset();
  EXPECT_EQ(Item::alive, 0);
}

TEST(OPtrTest, ReturnedOwnerConvertsToOPtr) {
  OPtr<Item> a = makeSpecial();
  EXPECT_EQ(a->value, 42);
  a = makeSpecial();
  EXPECT_EQ(Item::alive, 1);
  OPtr<Item> b(forward(a));
  EXPECT_TRUE(a.isNull());
  EXPECT_EQ(b->value, 42);
  makeSpecial();  // unclaimed: deleted at once
  EXPECT_EQ(Item::alive, 1);

  Item* raw = b.release();
  EXPECT_TRUE(b.isNull());
  delete raw;
}

TEST(OPtrTest, NullDereferenceNamesType) {
  OPtr<Item const> a;
  try {
    (void)a->value;
    FAIL();
  } catch (RCEx::ExNullPtr const& e) {
    EXPECT_NE(std::string(e.getReason()).find("Item"), std::string::npos);
  }
  EXPECT_THROW(*OPtrRet<Item>(), RCEx::ExNullPtr);
}
