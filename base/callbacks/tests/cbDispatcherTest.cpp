#include <orn/base/callbacks/cbDispatcher.h>
#include <orn/base/callbacks/cbHandler.h>
#include <orn/base/except/assertions.h>

#include <gtest/gtest.h>

#include <functional>
#include <memory>

using namespace Orn;

namespace {

template <class Arg>
struct Recorder : CbHandler<Arg> {
  using CbHandler<Arg>::call;
  void call(Arg const& arg) override {
    ++calls;
    last = arg;
    if (onCall) onCall(this);
  }
  int calls = 0;
  Arg last{};
  std::function<void(Recorder*)> onCall;
};

}  // namespace

TEST(CbDispatcherTest, AttachmentIsTwoWay) {
  CbDispatcher<int> d1, d2;
  Recorder<int> a, b;
  d1.addHandler(&a);
  d1.addHandler(&b);
  d1.addHandler(&a);  // already attached
  d2.addHandler(&a);
  EXPECT_EQ(d1.getNbHandlers(), 2);
  EXPECT_EQ(a.getNbDispatchers(), 2);
  d1.call(5);
  EXPECT_EQ(a.calls, 1);
  EXPECT_EQ(b.last, 5);

  a.reset();
  EXPECT_TRUE(d2.isEmpty());
  EXPECT_EQ(d1.getNbHandlers(), 1);
  {
    auto handler = std::make_unique<Recorder<int>>();
    CbDispatcher<int> d3;
    d3.addHandler(handler.get());
    d3.addHandler(&b);
    handler.reset();
    EXPECT_EQ(d3.getNbHandlers(), 1);
    EXPECT_EQ(b.getNbDispatchers(), 2);
  }
  EXPECT_EQ(b.getNbDispatchers(), 1) << "a destroyed dispatcher detaches";
  CbDispatcher<int> copy(d1);
  EXPECT_TRUE(copy.isEmpty());
}

TEST(CbDispatcherTest, HandlersChangedDuringACallDoNotDisturbIt) {
  CbDispatcher<int> d;
  Recorder<int> first, selfRemoving, last, late;
  selfRemoving.onCall = [&d, &late](Recorder<int>* me) {
    d.removeHandler(me);
    d.addHandler(&late);
  };
  d.addHandler(&first);
  d.addHandler(&selfRemoving);
  d.addHandler(&last);
  d.call(1);
  EXPECT_EQ(first.calls + selfRemoving.calls + last.calls, 3);
  EXPECT_EQ(late.calls, 0) << "added during the call";
  d.call(2);
  EXPECT_EQ(selfRemoving.calls, 1);
  EXPECT_EQ(late.calls, 1);
}

TEST(CbDispatcherTest, CallWithoutArgument) {
  CbDispatcher<CbEmptyType> d;
  Recorder<CbEmptyType> r;
  d.addHandler(&r);
  d.call();
  r.call();
  EXPECT_EQ(r.calls, 2);
  Recorder<int> i;
  EXPECT_THROW(i.call(), AssertionsEx::ExProgramAborted);
}
