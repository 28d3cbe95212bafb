#include <orn/resmgt/osCpuInfo.h>
#include <orn/resmgt/valgrindHelper.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

using namespace Orn;

TEST(OsCpuInfo, ManufacturerFollowsTheVendorIdentification) {
  EXPECT_EQ(int(OsCpuInfo::INTEL), 0);
  EXPECT_EQ(OsCpuInfo::manufacturerOf("GenuineIntel"), OsCpuInfo::INTEL);
  EXPECT_EQ(OsCpuInfo::manufacturerOf("AuthenticAMD"), OsCpuInfo::AMD);
  EXPECT_EQ(OsCpuInfo::manufacturerOf("HygonGenuine"), OsCpuInfo::OTHER);
  EXPECT_EQ(OsCpuInfo::manufacturerOf("genuineintel"), OsCpuInfo::OTHER);
  EXPECT_EQ(OsCpuInfo::manufacturerOf(""), OsCpuInfo::OTHER);

  std::string const vendor = OsCpuInfo::getVendorId();
  EXPECT_EQ(vendor.size(), 12u);  // every x86-64 processor answers leaf 0
  EXPECT_EQ(OsCpuInfo::getManufacturer(), OsCpuInfo::manufacturerOf(vendor));
}

TEST(ValgrindHelper, RecognisesValgrindPreloads) {
  EXPECT_FALSE(ValgrindHelper::preloadsValgrind(nullptr));
  EXPECT_FALSE(ValgrindHelper::preloadsValgrind(""));
  EXPECT_FALSE(ValgrindHelper::preloadsValgrind("/usr/lib/libasan.so"));
  EXPECT_TRUE(ValgrindHelper::preloadsValgrind(
      "/usr/libexec/valgrind/vgpreload_core-amd64-linux.so:/usr/libexec/valgrind/vgpreload_memcheck-amd64-linux.so"));

  char const* const saved = std::getenv("LD_PRELOAD");
  std::string const savedText = saved ? saved : "";
  setenv("LD_PRELOAD", "/usr/libexec/valgrind/vgpreload_core-amd64-linux.so", 1);
  EXPECT_TRUE(ValgrindHelper::isValgrindRunning());
  if (saved) {
    setenv("LD_PRELOAD", savedText.c_str(), 1);
  } else {
    unsetenv("LD_PRELOAD");
  }
}
