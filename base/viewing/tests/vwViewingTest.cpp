#include <orn/base/callbacks/cbHandler.h>
#include <orn/base/rc/rcEx.h>
#include <orn/base/viewing/vwUtils.h>
#include <orn/base/viewing/vwView.h>
#include <orn/base/viewing/vwViewerBasic.h>
#include <orn/base/viewing/vwViewing2DBasic.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace Orn;

namespace {

struct ChangeCounter : CbHandler<VwViewing const*> {
  using CbHandler<VwViewing const*>::call;
  void call(VwViewing const* const& viewing) override {
    ++calls;
    last = viewing;
  }
  int calls = 0;
  VwViewing const* last = nullptr;
};

}  // namespace

TEST(VwViewingTest, SettersNotifyOnlyOnChange) {
  RCShdPtr<VwViewing2DBasic> const viewing = new VwViewing2DBasic();
  ChangeCounter counter;
  viewing->getChangedDispatcher().addHandler(&counter);

  viewing->setPan(GeVector2<float>(0.0f, 0.0f));
  viewing->setUserZoom(GeVector2<float>(1.0f, 1.0f));
  viewing->setOrthoHeight(2.0f);
  EXPECT_EQ(counter.calls, 0) << "the defaults set again";

  viewing->setPan(GeVector2<float>(0.0f, 3.0f));
  viewing->setPan(GeVector2<float>(0.0f, 3.0f));
  viewing->setUserZoom(GeVector2<float>(2.0f, 1.0f));
  EXPECT_EQ(counter.calls, 2);
  EXPECT_EQ(counter.last, viewing.get());

  float const nan = std::numeric_limits<float>::quiet_NaN();
  viewing->setOrthoHeight(nan);
  viewing->setOrthoHeight(nan);
  EXPECT_EQ(counter.calls, 4) << "NaN never equals the stored value";

  RCShdPtr<VwViewing> const copy = viewing->clone();
  EXPECT_EQ(copy->getPan(), GeVector2<float>(0.0f, 3.0f));
  EXPECT_TRUE(copy->getChangedDispatcher().isEmpty());
}

TEST(VwViewingTest, WindowToWorldOrtho) {
  RCShdPtr<VwViewerBasic> const viewer = new VwViewerBasic();
  EXPECT_EQ(viewer->getViewport(), GeRectangle<int>(0, 640, 0, 480));
  viewer->setTargetSize(GeVector2<float>(400.0f, 199.6f));
  EXPECT_EQ(viewer->getViewport(), GeRectangle<int>(0, 400, 0, 200));

  RCShdPtr<VwViewing2DBasic> const viewing = new VwViewing2DBasic();
  VwView const view(viewer, viewing);
  EXPECT_FALSE(view.isNull());
  EXPECT_TRUE(VwView(viewer, RCShdPtr<VwViewing>()).isNull());
  EXPECT_THROW(VwView().getViewport(), RCEx::ExNullPtr);

  // Default: y from -1 to 1, x as wide as the viewport's proportions (2:1).
  GeRectangle<double> const world = VwUtils::windowToWorldOrtho(view.getViewport(), view);
  EXPECT_EQ(world, GeRectangle<double>(-2.0, 2.0, -1.0, 1.0));

  // Zoom per axis about the pan, which sits at the centre; window y points up.
  viewing->setPan(GeVector2<float>(10.0f, -4.0f));
  viewing->setUserZoom(GeVector2<float>(0.5f, 4.0f));
  viewing->setOrthoHeight(8.0f);
  GePoint2<double> const corner = VwUtils::windowToWorldOrtho(GePoint2<double>(400.0, 200.0), view);
  EXPECT_DOUBLE_EQ(corner.x, 10.0 + 8.0 / 0.5);
  EXPECT_DOUBLE_EQ(corner.y, -4.0 + 1.0);
  GePoint2<double> const quarter = VwUtils::windowToWorldOrtho(GePoint2<double>(100.0, 50.0), view);
  EXPECT_DOUBLE_EQ(quarter.x, 10.0 - 8.0);
  EXPECT_DOUBLE_EQ(quarter.y, -4.0 - 0.5);

  // A mirrored view still gives an ordered rectangle.
  viewing->setUserZoom(GeVector2<float>(-1.0f, 1.0f));
  GeRectangle<double> const flipped = VwUtils::windowToWorldOrtho(GeRectangle<int>(0, 200, 0, 100), view);
  EXPECT_EQ(flipped, GeRectangle<double>(10.0, 18.0, -8.0, -4.0));
}
