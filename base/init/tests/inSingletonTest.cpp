#include <orn/base/init/inBuildInfoUtil.h>
#include <orn/base/init/inSingleton.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>

using namespace Orn;

namespace {

struct Counted {
  Counted() { ++nbAlive; }
  ~Counted() { --nbAlive; }
  int value = 7;
  static inline int nbAlive = 0;
};

class TestBuildInfo : public InBuildInfo {
public:
  TestBuildInfo(std::string library, int kind) : _library(std::move(library)), _kind(kind) {}
  std::string getProduct() const override { return "P"; }
  std::string getLibrary() const override { return _library; }
  std::string getYear() const override { return "2001"; }
  std::string getVersion() const override { return "1.0"; }
  int getBuildKind() const override { return _kind; }
  int getRevision() const override { return 0; }
  int getInterfaceLevel() const override { return 1; }
  std::string getBuildNumber() const override { return "1"; }
  std::string getBuildDate() const override { return "Jan 01 2001"; }
  std::string getBuildFlavour() const override { return "dbg"; }

private:
  std::string _library;
  int _kind;
};

}  // namespace

TEST(InSingleton, StatesAreOneWayAndMisuseRaisesNamingTheType) {
  using S = InSingleton<Counted>;
  EXPECT_EQ(S::getState(), S::UNINITIALIZED);
  try {
    S::getInstance();
    FAIL() << "no raise";
  } catch (InSingletonEx::ExNotInitialized const& e) {
    EXPECT_NE(std::string(e.getReason()).find("Counted"), std::string::npos) << e.getReason();
  }
  EXPECT_THROW(S::destroy(), InSingletonEx::ExNotInitialized);

  S::create();
  EXPECT_EQ(S::getState(), S::INITIALIZED);
  EXPECT_EQ(S::getInstance().value, 7);
  EXPECT_EQ(&S::getInstance(), &S::getInstance());
  EXPECT_THROW(S::create(), InSingletonEx::ExAlreadyInitialized);
  EXPECT_EQ(Counted::nbAlive, 1);

  S::destroy();
  EXPECT_EQ(Counted::nbAlive, 0);
  EXPECT_EQ(S::getState(), S::DESTROYED);
  EXPECT_THROW(S::getInstance(), InSingletonEx::ExAlreadyDestroyed);
  EXPECT_THROW(S::destroy(), InSingletonEx::ExAlreadyDestroyed);
  // A destroyed singleton never comes back.
  EXPECT_THROW(S::create(), InSingletonEx::ExAlreadyDestroyed);
  EXPECT_EQ(Counted::nbAlive, 0);
}

TEST(InBuildInfoUtil, KeepsRecordsAndDerivesTheBuildKindText) {
  std::size_t const before = InBuildInfoUtil::getNbInfos();
  auto owned = std::make_unique<TestBuildInfo>("libTestA", InBuildInfo::DEVELOPMENT_BUILD);
  InBuildInfo const* raw = owned.get();
  InBuildInfo const& stored = InBuildInfoUtil::registerInfo(std::move(owned));
  EXPECT_EQ(&stored, raw);
  EXPECT_EQ(stored.getBuildKindText(), "dev");
  InBuildInfo const& other = InBuildInfoUtil::registerInfo(std::make_unique<TestBuildInfo>("libTestB", 8));
  EXPECT_EQ(other.getBuildKindText(), "");
  OPtr<InBuildInfo> sole(new TestBuildInfo("libTestC", 1));
  InBuildInfo const* const soleRaw = sole.get();
  EXPECT_EQ(&InBuildInfoUtil::registerInfo(sole), soleRaw);
  EXPECT_TRUE(sole.isNull());

  EXPECT_EQ(InBuildInfoUtil::getNbInfos(), before + 3);
  EXPECT_EQ(&InBuildInfoUtil::getInfo(before), raw);
  EXPECT_EQ(InBuildInfoUtil::findInfo("libTestB"), &other);
  EXPECT_EQ(InBuildInfoUtil::findInfo("libNone"), nullptr);
}
