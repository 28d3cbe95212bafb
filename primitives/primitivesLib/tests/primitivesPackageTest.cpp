#include <orn/base/init/inBuildInfoUtil.h>
#include <orn/base/init/inInit.h>
#include <orn/base/init/inInitService.h>
#include <orn/base/init/inPackageRegistry.h>
#include <orn/primitives/primitivesLib/libraryBuildInfo.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <regex>
#include <string>
#include <typeindex>
#include <vector>

using namespace Orn;

namespace {

using Names = std::vector<std::string>;

// What each package needs, in the order it states it.
std::map<std::string, Names> const neededBy = {
    {"primitives",
     {"resmgt", "pluginAPI", "base", "timeCurves", "projectors", "viewing", "sceneObjects", "scene", "formats",
      "imageProc", "color", "bezierCurves", "geometry", "image"}},
    {"timeCurves", {"random", "geometry", "viewing", "pluginAPI", "base"}},
    {"projectors", {"viewing", "scene", "geometry", "color", "resmgt", "base"}},
    {"viewing", {"scene", "base"}},
    {"sceneObjects", {"scene", "color", "resmgt", "base"}},
    {"scene", {"geometry", "color", "image", "resmgt", "pluginAPI", "base"}},
    {"formats", {"resmgt", "base"}},
    {"imageProc", {"geometry", "image", "color", "resmgt", "pluginAPI", "base"}},
    {"color", {"base"}},
    {"bezierCurves", {"viewing", "scene", "image", "geometry", "resmgt", "pluginAPI", "base"}},
    {"geometry", {"base"}},
    {"image", {"resmgt", "base"}},
    {"pluginAPI", {"resmgt", "base"}},
    {"resmgt", {"base"}},
    {"random", {"resmgt", "base"}},
    {"base", {}},
};

class PrimitivesPackages : public ::testing::Test {
protected:
  static void SetUpTestSuite() { InInitService::initialize(); }
};

}  // namespace

TEST_F(PrimitivesPackages, EveryPackageStartsAfterAllItNeeds) {
  ASSERT_TRUE(InInitService::isInitialized());
  Names const order = InInitService::getInitializationOrder();
  for (auto const& [package, needed] : neededBy) {
    auto const at = std::find(order.begin(), order.end(), package);
    ASSERT_NE(at, order.end()) << package << " did not start";
    EXPECT_EQ(std::count(order.begin(), order.end(), package), 1) << package;
    for (std::string const& dependency : needed) {
      auto const depAt = std::find(order.begin(), order.end(), dependency);
      EXPECT_LT(depAt, at) << package << " started before " << dependency;
    }
  }
  EXPECT_TRUE(InInit<OrnInit::primitives>::isPackageInitialized());
  EXPECT_TRUE(InInit<OrnInit::scene>::isPackageInitialized());
  EXPECT_TRUE(InInit<OrnInit::pluginAPI>::isPackageInitialized());
}

TEST_F(PrimitivesPackages, PackagesStateTheirDependenciesInOrder) {
  std::vector<InPackageInit*> const packages = InInitService::getPackageRegistry().computeOrder();
  std::map<std::type_index, std::string> nameOf;
  for (InPackageInit* p : packages) nameOf.emplace(std::type_index(typeid(*p)), p->getName());
  EXPECT_EQ(nameOf[std::type_index(InInit<OrnInit::image>::getType())], "image");
  EXPECT_EQ(nameOf[std::type_index(InInit<OrnInit::random>::getType())], "random");

  int nbChecked = 0;
  for (InPackageInit* p : packages) {
    auto const expected = neededBy.find(p->getName());
    if (expected == neededBy.end()) continue;
    Names stated;
    for (std::type_info const* type : p->getDependencies()) stated.push_back(nameOf[std::type_index(*type)]);
    EXPECT_EQ(stated, expected->second) << p->getName();
    ++nbChecked;
  }
  EXPECT_EQ(nbChecked, int(neededBy.size()));
}

TEST_F(PrimitivesPackages, BuildRecordIsRegistered) {
  InBuildInfo const* info = InBuildInfoUtil::findInfo("libOrnprimitives");
  ASSERT_NE(info, nullptr);
  EXPECT_NE(dynamic_cast<LibraryBuildInfo const*>(info), nullptr);
  EXPECT_FALSE(info->getProduct().empty());
  EXPECT_EQ(info->getVersion(), "8.0");
  EXPECT_EQ(info->getBuildKind(), 8);
  EXPECT_EQ(info->getBuildKindText(), "");  // "dev" belongs to kind 3 only
  EXPECT_EQ(info->getRevision(), 0);
  EXPECT_EQ(info->getInterfaceLevel(), 42);
  EXPECT_EQ(info->getBuildNumber(), "2600");
  EXPECT_EQ(info->getBuildFlavour(), "opt.x86_64.intel");
  std::string const date = info->getBuildDate();
  EXPECT_TRUE(std::regex_match(date, std::regex("(Jan|Feb|Mar|Apr|May|Jun|Jul|Aug|Sep|Oct|Nov|Dec) [0-3][0-9] 20[0-9][0-9]")))
      << date;
  EXPECT_EQ(info->getYear(), date.substr(7));

  EXPECT_EQ(LibraryBuildInfo::normalizeDate("Jun  2 2012"), "Jun 02 2012");
  EXPECT_EQ(LibraryBuildInfo::normalizeDate("Jun 12 2012"), "Jun 12 2012");
  EXPECT_EQ(LibraryBuildInfo::normalizeDate("garbage"), "garbage");
}
