#include <orn/base/rc/rcShdPtr.h>

#include <gtest/gtest.h>

#include <sstream>

using namespace Orn;

namespace {

struct Node : RCBase<> {
  static inline int alive = 0;
  explicit Node(int v) : value(v) { ++alive; }
  ~Node() override { --alive; }
  int value;
  RCShdPtr<Node> next;
};

struct Padding {
  virtual ~Padding() = default;
  double pad = 0;
};
struct Counted : RCBase<> {};
// The counted part is not the first base: its address differs from the object's.
struct Shifted : Padding, Counted {};

}  // namespace

TEST(RCShdPtrTest, AssignmentKeepsCountsRight) {
  RCShdPtr<Node> a(new Node(1));
  a = a;
  EXPECT_EQ(a->getRefCount(), 1);
  // The only owner of node 1 is replaced by a pointer that node 1 holds.
  a->next = new Node(2);
  a = a->next;
  EXPECT_EQ(a->value, 2);
  EXPECT_EQ(a->getRefCount(), 1);
  EXPECT_EQ(Node::alive, 1);
  a.reset();
  EXPECT_EQ(Node::alive, 0);
}

TEST(RCShdPtrTest, NullDereferenceAndFailedCastRaise) {
  RCShdPtr<Node> p;
  EXPECT_TRUE(p.isNull());
  try {
    p->value = 1;
    FAIL();
  } catch (RCEx::ExNullPtr const& e) {
    EXPECT_NE(std::string(e.getReason()).find("Node"), std::string::npos);
  }
  RCShdPtr<RCBase<>> base(new Node(1));
  EXPECT_THROW(base.dynamicCast<Shifted>(), RCEx::ExCastFailed);
  EXPECT_EQ(base.dynamicCast<Node>()->getRefCount(), 2);
}

TEST(RCShdPtrTest, DumpWritesTypesCountAndBothAddresses) {
  Shifted* raw = new Shifted;
  void* const counted = static_cast<RCBase<>*>(raw);
  ASSERT_NE(static_cast<void*>(raw), counted);
  RCShdPtr<Counted> p(raw);
  RCShdPtr<Shifted> q(raw);
  std::ostringstream expectedQ, outQ, expectedP, outP;
  expectedQ << "Pointee type = " << typeNameOf<Shifted>() << ", T type = " << typeNameOf<Shifted>()
            << ", ref: 2, pointer:" << static_cast<void*>(raw) << ", RCBase pointer: " << counted;
  q.dump(outQ);
  EXPECT_EQ(outQ.str(), expectedQ.str());
  expectedP << "Pointee type = " << typeNameOf<Shifted>() << ", T type = " << typeNameOf<Counted>()
            << ", ref: 2, pointer:" << counted << ", RCBase pointer: " << counted;
  p.dump(outP);
  EXPECT_EQ(outP.str(), expectedP.str());

  std::ostringstream nullOut;
  RCShdPtr<Node>().dump(nullOut);
  EXPECT_EQ(nullOut.str().rfind("Pointee type = null, T type = " + typeNameOf<Node>() + ", ref: 0, pointer:", 0), 0u);
}
