#include <orn/base/rc/rcProxyPvtEngPtr.h>
#include <orn/base/rc/rcPvtEngPtr.h>

#include <gtest/gtest.h>

#include <sstream>
#include <vector>

using namespace Orn;

namespace {

struct Engine : RCBase<> {
  static inline int clones = 0;
  static inline bool cloneReturnsNull = false;
  int position = 0;
  Engine* clone() const {
    ++clones;
    return cloneReturnsNull ? nullptr : new Engine(*this);
  }
};

}  // namespace

TEST(RCPvtEngPtrTest, WriteClonesOnlyASharedEngine) {
  RCPvtEngPtr<Engine> a(new Engine);
  Engine const* original = a.get();
  a.getMutable()->position = 1;
  EXPECT_EQ(a.get(), original) << "a sole owner writes in place";
  EXPECT_EQ(Engine::clones, 0);

  RCPvtEngPtr<Engine> b(a);
  b.getMutable()->position = 2;
  EXPECT_EQ(Engine::clones, 1);
  EXPECT_EQ(a->position, 1);
  EXPECT_EQ(b->position, 2);
  EXPECT_EQ(a->getRefCount(), 1);
  EXPECT_EQ(b->getRefCount(), 1);

  RCPvtEngPtr<Engine> c(b);
  Engine::cloneReturnsNull = true;
  EXPECT_THROW(c.getMutable(), RCEx::ExNullPtr);
  Engine::cloneReturnsNull = false;
  EXPECT_EQ(c.get(), b.get()) << "a failed clone leaves the handle as it was";
  EXPECT_THROW(RCPvtEngPtr<Engine>().getMutable(), RCEx::ExNullPtr);
}

TEST(RCProxyPvtEngPtrTest, CopiesShareUntilOneWrites) {
  RCProxyPvtEngPtr<std::vector<int>> a(new std::vector<int>{1, 2, 3});
  RCProxyPvtEngPtr<std::vector<int>> b = a;
  EXPECT_EQ(a.get(), b.get());

  std::ostringstream out;
  a.dump(out);
  std::string const proxyType = typeNameOf<RCProxy<std::vector<int>>>();
  EXPECT_EQ(out.str().rfind("Pointee type = " + proxyType + ", T type = " + proxyType + ", ref: 2, pointer:", 0), 0u);

  b.getMutable()->push_back(4);
  EXPECT_EQ(a->size(), 3u);
  EXPECT_EQ(b->size(), 4u);
  std::vector<int> const* own = b.get();
  b.getMutable()->at(0) = 9;
  EXPECT_EQ(b.get(), own) << "no copy once the value is private";
  EXPECT_EQ((*a)[0], 1);

  RCProxyPvtEngPtr<std::vector<int>> null(nullptr);
  EXPECT_TRUE(null.isNull());
  try {
    (void)null->size();
    FAIL();
  } catch (RCEx::ExNullPtr const& e) {
    EXPECT_NE(std::string(e.getReason()).find("vector"), std::string::npos);
  }
}
