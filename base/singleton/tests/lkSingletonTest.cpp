#include <orn/base/singleton/lkSingleton.h>

#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

using namespace Orn;

namespace {

// Each test uses its own type: a singleton's state lasts for the whole program.
template <int N>
struct Service {
  static inline std::atomic<int> constructed{0};
  static inline int destroyed = 0;
  Service() { ++constructed; }
  ~Service() { ++destroyed; }
};

struct Fragile {
  static inline int attempts = 0;
  Fragile() {
    if (++attempts == 1) throw std::runtime_error("first construction fails");
  }
};

}  // namespace

TEST(LkSingletonTest, LifeCycleWithoutResurrection) {
  using S = LkSingleton<Service<1>>;
  EXPECT_STREQ(S::getStateName(), "UNINITIALIZED");
  S::checkClassInvariants();
  Service<1>* instance = S::getInstance();
  ASSERT_NE(instance, nullptr);
  EXPECT_EQ(S::getInstance(), instance);
  EXPECT_EQ(Service<1>::constructed, 1);
  EXPECT_STREQ(S::getStateName(), "INITIALIZED");
  S::checkClassInvariants();
  S::destroy();
  EXPECT_EQ(Service<1>::destroyed, 1);
  EXPECT_STREQ(S::getStateName(), "DESTROYED");
  EXPECT_EQ(S::getInstance(), nullptr);
  EXPECT_EQ(Service<1>::constructed, 1);
  S::checkClassInvariants();
  S::destroy();
  EXPECT_EQ(Service<1>::destroyed, 1);
}

TEST(LkSingletonTest, DestroyingBeforeFirstUseIsFinal) {
  using S = LkSingleton<Service<2>>;
  S::destroy();
  EXPECT_EQ(S::getState(), S::DESTROYED);
  EXPECT_EQ(S::getInstance(), nullptr);
  EXPECT_EQ(Service<2>::constructed, 0);
}

TEST(LkSingletonTest, ConcurrentFirstUseCreatesOneInstance) {
  using S = LkSingleton<Service<3>>;
  std::atomic<bool> go{false};
  std::vector<Service<3>*> seen(8, nullptr);
  std::vector<std::thread> threads;
  for (int t = 0; t < 8; ++t)
    threads.emplace_back([&, t] {
      while (!go) std::this_thread::yield();
      seen[std::size_t(t)] = S::getInstance();
    });
  go = true;
  for (auto& t : threads) t.join();
  EXPECT_EQ(Service<3>::constructed, 1);
  for (Service<3>* p : seen) EXPECT_EQ(p, seen[0]);
  S::destroy();
}

TEST(LkSingletonTest, FailedConstructionReleasesTheLock) {
  using S = LkSingleton<Fragile>;
  EXPECT_THROW(S::getInstance(), std::runtime_error);
  EXPECT_EQ(S::getState(), S::UNINITIALIZED);
  S::checkClassInvariants();
  EXPECT_NE(S::getInstance(), nullptr);
  EXPECT_EQ(Fragile::attempts, 2);
  S::destroy();
}
