#include <orn/primitives/imageProc/ixScanlineCache.h>

#include <orn/base/except/assertions.h>
#include <orn/primitives/imageProc/ixScanlineCacheImp.h>

#include "ixScanlineTestUtil.h"

#include <cstdlib>

using namespace Orn;

namespace {

class IxScanlineCacheTest : public IxScanlineTestBase {
protected:
  void SetUp() override {
    IxScanlineTestBase::SetUp();
    IxScanlineCacheImpFactories::install();
  }
};

float sourceValue(int x, int y) { return float(1000 * y + x); }
float resultValue(int x, int y) { return float(2000 * y - x) + 0.5f; }

template <class T>
T* rowOf(IxWriteGuard const& guard, int y) {
  return reinterpret_cast<T*>(guard.getBaseAddress() + std::ptrdiff_t(y - guard.getPixelRegion().y1()) *
                                                           guard.getTile().getRowBytes());
}

}  // namespace

// Runs in a process of its own (the death test style re-runs the program for this test only),
// where no test has installed the factories yet.
TEST(IxScanlineCacheNoFactoryTest, RaisesWithoutFactory) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(
      {
        std::string const condition = conditionOf([] {
          IxScanlineCache<float> cache(GeRectangle<int>(0, 4, 0, 4), GeRectangle<int>(0, 4, 0, 4));
        });
        std::exit(condition == "_implementationFactory" ? 0 : 1);
      },
      ::testing::ExitedWithCode(0), "");
}

TEST_F(IxScanlineCacheTest, TransposesRowsIntoColumnsAndBack) {
  // 35 columns: two whole batches and three more; more source rows than destination rows.
  GeRectangle<int> const dstRegion(-3, 32, 1, 5);
  GeRectangle<int> const srcRegion(-9, 40, -2, 8);
  IxScanlineCache<float> cache(dstRegion, srcRegion);

  IxWriteGuard const horizontal = cache.getHorizontalBuffer();
  EXPECT_TRUE(horizontal.getTile() == cache.getHorizontalBufferProxy().getGuard().getTile());
  EXPECT_EQ(horizontal.getPixelRegion(), GeRectangle<int>(-3, 32, -2, 8));
  EXPECT_EQ(horizontal.getTile().getPixelFormat(), IxScanline<float>::PIXEL_FORMAT);
  for (int y = -2; y < 8; ++y) {
    IxScanline<float> row(horizontal, y);
    for (int x = -3; x < 32; ++x) row[x] = sourceValue(x, y);
  }

  int x = dstRegion.x1();
  while (cache.hasNext()) {
    IxScanline<float>* first = nullptr;
    IxScanline<float>* second = nullptr;
    cache.getNext(first, second);
    ASSERT_EQ(first->getInterval(), GeInterval<int>(-2, 8));
    ASSERT_EQ(second->getInterval(), GeInterval<int>(1, 5));
    for (int y = -2; y < 8; ++y) ASSERT_EQ((*first)[y], sourceValue(x, y)) << x << " " << y;
    for (int y = 1; y < 5; ++y) (*second)[y] = resultValue(x, y);
    ++x;
  }
  EXPECT_EQ(x, dstRegion.x2());
  EXPECT_EQ(conditionOf([&] {
              IxScanline<float>* first;
              IxScanline<float>* second;
              cache.getNext(first, second);
            }),
            "hasNext()");
  cache.flush();

  IxWriteGuard const vertical = cache.getVerticalBuffer();
  EXPECT_EQ(vertical.getPixelRegion(), dstRegion);
  for (int y = 1; y < 5; ++y)
    for (int x2 = -3; x2 < 32; ++x2) ASSERT_EQ(rowOf<float>(vertical, y)[x2 + 3], resultValue(x2, y)) << x2 << " " << y;

  // No columns at all.
  IxScanlineCache<float> empty(GeRectangle<int>(4, 4, 0, 3), srcRegion);
  EXPECT_FALSE(empty.hasNext());
}
