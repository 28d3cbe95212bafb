#include <orn/base/init/inEx.h>
#include <orn/base/init/inPackageInit.h>
#include <orn/base/init/inPackageRegistry.h>
#include <orn/base/init/inVariableBase.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

using namespace Orn;

namespace {

using Log = std::vector<std::string>;

// Distinct package classes; N only makes the type unique.
template <int N>
class TestPackage : public InPackageInit {
public:
  TestPackage(char const* name, Log& log) : InPackageInit(name), _log(log) {}

  template <int M>
  TestPackage& need() {
    addDependency(&typeid(TestPackage<M>));
    return *this;
  }

  void preInitialize() override { _log.push_back(std::string("pre ") + getName()); }
  void initialize() override {
    if (failInit) throw std::runtime_error(std::string("init of ") + getName());
    _log.push_back(std::string("init ") + getName());
  }
  void finalize() override {
    _log.push_back(std::string("fini ") + getName());
    if (failFini) throw std::runtime_error(std::string("fini of ") + getName());
  }
  void postFinalize() override { _log.push_back(std::string("post ") + getName()); }
  void setInitialized(bool initialized) override { isUp = initialized; }

  bool failInit = false;
  bool failFini = false;
  bool isUp = false;

private:
  Log& _log;
};

class TestVariable : public InVariableBase {
public:
  TestVariable(char const* name, Log& log) : _name(name), _log(log) {}
  void initialize() override { _log.push_back("var init " + _name); }
  void finalize() override { _log.push_back("var fini " + _name); }

private:
  std::string _name;
  Log& _log;
};

std::vector<std::string> namesOf(std::vector<InPackageInit*> const& order) {
  std::vector<std::string> names;
  for (InPackageInit* p : order) names.push_back(p->getName());
  return names;
}

// Only the lines of the log that start with prefix.
Log filtered(Log const& log, std::string const& prefix) {
  Log out;
  for (std::string const& line : log) {
    if (line.rfind(prefix, 0) == 0) out.push_back(line.substr(prefix.size()));
  }
  return out;
}

}  // namespace

TEST(InPackageRegistry, OrderRespectsDependenciesWhateverTheRegistrationOrder) {
  Log log;
  // Names are chosen so that alphabetical order alone would break the dependencies.
  TestPackage<1> root("zeta", log);
  TestPackage<2> left("yankee", log);
  TestPackage<3> right("xray", log);
  TestPackage<4> join("alpha", log);
  TestPackage<5> leaf("beta", log);
  TestPackage<6> loose("mike", log);
  left.need<1>();
  right.need<1>();
  join.need<3>().need<2>().need<3>();  // stated twice: still one edge
  leaf.need<4>().need<1>();

  InPackageRegistry forward;
  for (InPackageInit* p : std::vector<InPackageInit*>{&root, &left, &right, &join, &leaf, &loose}) forward.add(p);
  std::vector<std::string> const order = namesOf(forward.computeOrder());
  // Dependencies first; among ready packages the smallest name goes first.
  EXPECT_EQ(order, (std::vector<std::string>{"mike", "zeta", "xray", "yankee", "alpha", "beta"}));

  forward.initialize();
  EXPECT_EQ(filtered(log, "init "), order);
  EXPECT_EQ(forward.getInitializationOrder(), order);

  // The same packages added in another order give the same order.
  forward.finalize();
  InPackageRegistry backward;
  for (InPackageInit* p : std::vector<InPackageInit*>{&leaf, &join, &loose, &right, &left, &root}) {
    forward.remove(p);
    backward.add(p);
  }
  EXPECT_EQ(forward.getNbPackages(), 0u);
  EXPECT_EQ(namesOf(backward.computeOrder()), order);
}

TEST(InPackageRegistry, CleanUpRunsInReverseAndVariablesSitInsideTheirPackage) {
  Log log;
  TestPackage<1> a("a", log);
  TestPackage<2> b("b", log);
  TestPackage<3> c("c", log);
  b.need<1>();
  c.need<2>();
  TestVariable v1("v1", log), v2("v2", log);
  b.addDependency(&v1);
  b.addDependency(&v2);

  InPackageRegistry registry;
  registry.add(&c);
  registry.add(&b);
  registry.add(&a);
  EXPECT_FALSE(registry.isInitialized());
  registry.initialize();
  EXPECT_TRUE(registry.isInitialized());
  EXPECT_TRUE(a.isUp && b.isUp && c.isUp);
  EXPECT_EQ(log, (Log{"pre a", "init a", "pre b", "init b", "var init v1", "var init v2", "pre c", "init c"}));

  log.clear();
  registry.finalize();
  EXPECT_FALSE(registry.isInitialized());
  EXPECT_FALSE(a.isUp || b.isUp || c.isUp);
  EXPECT_EQ(log, (Log{"fini c", "post c", "var fini v2", "var fini v1", "fini b", "post b", "fini a", "post a"}));

  // A detached variable is not cleaned up any more.
  registry.initialize();
  b.removeDependency(&v1);
  log.clear();
  registry.finalize();
  EXPECT_EQ(filtered(log, "var fini "), Log{"v2"});
}

TEST(InPackageRegistry, SecondInitializeAndSecondFinalizeDoNothing) {
  Log log;
  TestPackage<1> a("a", log);
  InPackageRegistry registry;
  registry.add(&a);
  registry.finalize();
  EXPECT_TRUE(log.empty());
  registry.initialize();
  registry.initialize();
  EXPECT_EQ(filtered(log, "init "), Log{"a"});
  registry.finalize();
  registry.finalize();
  EXPECT_EQ(filtered(log, "fini "), Log{"a"});
  // A full cycle may start again.
  registry.initialize();
  EXPECT_EQ(filtered(log, "init "), (Log{"a", "a"}));
  registry.finalize();
}

TEST(InPackageRegistry, FailingStepPropagatesAfterUndoingWhatStarted) {
  Log log;
  TestPackage<1> a("a", log);
  TestPackage<2> b("b", log);
  TestPackage<3> c("c", log);
  b.need<1>();
  c.need<2>();
  b.failInit = true;
  InPackageRegistry registry;
  registry.add(&a);
  registry.add(&b);
  registry.add(&c);
  try {
    registry.initialize();
    FAIL() << "no raise";
  } catch (std::runtime_error const& e) {
    EXPECT_STREQ(e.what(), "init of b");
  }
  EXPECT_FALSE(registry.isInitialized());
  // a was cleaned up, b (whose step failed) and c (never started) were not.
  EXPECT_EQ(filtered(log, "init "), Log{"a"});
  EXPECT_EQ(filtered(log, "fini "), Log{"a"});
  EXPECT_FALSE(a.isUp);

  b.failInit = false;
  registry.initialize();
  EXPECT_TRUE(registry.isInitialized());

  // Clean-up goes on past a failure and raises the first one at the end.
  c.failFini = true;
  b.failFini = true;
  log.clear();
  try {
    registry.finalize();
    FAIL() << "no raise";
  } catch (std::runtime_error const& e) {
    EXPECT_STREQ(e.what(), "fini of c");
  }
  EXPECT_EQ(filtered(log, "fini "), (Log{"c", "b", "a"}));
  EXPECT_FALSE(registry.isInitialized());
}

TEST(InPackageRegistry, BrokenGraphsAreRefusedBeforeAnyStepRuns) {
  Log log;
  TestPackage<1> a("a", log);
  TestPackage<2> b("b", log);
  a.need<9>();
  InPackageRegistry registry;
  registry.add(&a);
  registry.add(&b);
  try {
    registry.initialize();
    FAIL() << "no raise";
  } catch (InEx::ExUnknownDependency const& e) {
    std::string const reason = e.getReason();
    EXPECT_NE(reason.find("Package a depends on"), std::string::npos) << reason;
    EXPECT_NE(reason.find("TestPackage<9>"), std::string::npos) << reason;
  }
  EXPECT_TRUE(log.empty());
  EXPECT_FALSE(registry.isInitialized());

  TestPackage<3> c("c", log);
  TestPackage<4> d("d", log);
  c.need<4>();
  d.need<3>();
  InPackageRegistry cyclic;
  registry.remove(&b);
  cyclic.add(&b);
  cyclic.add(&c);
  cyclic.add(&d);
  try {
    cyclic.initialize();
    FAIL() << "no raise";
  } catch (InEx::ExDependencyCycle const& e) {
    EXPECT_NE(std::string(e.getReason()).find("c, d"), std::string::npos) << e.getReason();
  }

  TestPackage<2> twin("twin", log);
  InPackageRegistry twins;
  cyclic.remove(&b);
  twins.add(&b);
  twins.add(&twin);
  EXPECT_THROW(twins.computeOrder(), InEx::ExDuplicatePackage);
  EXPECT_TRUE(log.empty());
}

TEST(InPackageRegistry, DestroyedPackageLeavesItsRegistry) {
  Log log;
  InPackageRegistry registry;
  TestPackage<1> a("a", log);
  registry.add(&a);
  {
    TestPackage<2> b("b", log);
    b.need<1>();
    registry.add(&b);
    registry.initialize();
    EXPECT_EQ(registry.getNbPackages(), 2u);
  }
  EXPECT_EQ(registry.getNbPackages(), 1u);
  EXPECT_TRUE(registry.contains(&a));
  log.clear();
  registry.finalize();
  EXPECT_EQ(log, (Log{"fini a", "post a"}));
}
