#include <orn/base/rc/rcStrongPtr.h>

#include <gtest/gtest.h>

#include <thread>
#include <vector>

using namespace Orn;

namespace {

struct Value {
  static inline int alive = 0;
  explicit Value(int v) : value(v) { ++alive; }
  virtual ~Value() { --alive; }
  int value;
  RCStrongPtr<Value> next;
};

struct Derived : Value {
  Derived() : Value(0) {}
};

struct SelfCounted : RCSWBase<> {
  static inline int alive = 0;
  SelfCounted() { ++alive; }
  ~SelfCounted() override { --alive; }
};

}  // namespace

TEST(RCStrongPtrTest, StrongCountOwnsThePointeeAndTheBlockOutlivesIt) {
  RCStrongPtr<Value> a(new Value(1));
  {
    RCStrongPtr<Value> b(a);
    RCStrongPtr<Value> c;
    c = b;
    c = c;
    EXPECT_EQ(a.getStrongCount(), 3);
  }
  EXPECT_EQ(a.getStrongCount(), 1);
  RCStrongPtr<Value>::CountPtr block = a.getCount();
  a.reset();
  EXPECT_EQ(Value::alive, 0);
  EXPECT_EQ(block->getStrongCount(), 0);
  EXPECT_EQ(block->getRefCount(), 1);

  SelfCounted* raw = new SelfCounted;
  {
    // A pointee with its own block: separate handles made from it share one strong count.
    RCStrongPtr<SelfCounted> x(raw);
    RCStrongPtr<SelfCounted const> y(raw);
    EXPECT_EQ(x.getStrongCount(), 2);
  }
  EXPECT_EQ(SelfCounted::alive, 0);
}

TEST(RCStrongPtrTest, AssignOverLastOwnerAndNullBlock) {
  RCStrongPtr<Value> a(new Value(1));
  a->next = new Value(2);
  a = a->next;
  EXPECT_EQ(a->value, 2);
  EXPECT_EQ(a.getStrongCount(), 1);
  EXPECT_EQ(Value::alive, 1);

  // A pointee without a block cannot be counted: the old pointee is still released, the
  // rejected one stays the caller's.
  Derived rejected;
  EXPECT_THROW(a.assign(&rejected, RCStrongPtr<Value>::CountPtr()), RCEx::ExNullPtr);
  EXPECT_TRUE(a.isNull());
  EXPECT_EQ(Value::alive, 1);
}

TEST(RCStrongPtrTest, NullDereferenceAndCasts) {
  EXPECT_THROW(RCStrongPtr<Value>()->value, RCEx::ExNullPtr);
  RCStrongPtr<Value> base(new Derived);
  RCStrongPtr<Derived> derived = base.dynamicCast<Derived>();
  EXPECT_EQ(base.getStrongCount(), 2);
  EXPECT_THROW(RCStrongPtr<Value>(new Value(3)).dynamicCast<Derived>(), RCEx::ExCastFailed);
}

TEST(RCStrongPtrTest, CopiesOnSeveralThreadsKeepBothCounts) {
  RCStrongPtr<Value> shared(new Value(5));
  std::vector<std::thread> threads;
  for (int t = 0; t < 4; ++t)
    threads.emplace_back([&shared] {
      for (int i = 0; i < 20000; ++i) {
        RCStrongPtr<Value> copy(shared);
        RCStrongPtr<Value> other;
        other = copy;
      }
    });
  for (auto& t : threads) t.join();
  EXPECT_EQ(shared.getStrongCount(), 1);
  EXPECT_EQ(shared.getCount()->getRefCount(), 1);
  shared.reset();
  EXPECT_EQ(Value::alive, 0);
}
