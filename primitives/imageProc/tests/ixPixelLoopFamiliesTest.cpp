#include <gtest/gtest.h>
#include <orn/primitives/imageProc/ixPixelLoop2InDstcompDstdepth.h>
#include <orn/primitives/imageProc/ixPixelLoopCompDepth.h>
#include <orn/primitives/imageProc/ixPixelLoopCompDepthConst.h>
#include <orn/primitives/imageProc/ixPixelLoopDstcompDstdepth.h>
#include <orn/primitives/imageProc/ixPixelLoopDstcompDstdepthConst.h>
#include <orn/primitives/imageProc/ixPixelLoopDstcompDstdepthDiffNC.h>
#include <orn/primitives/imageProc/ixPixelLoopDstcompDstdepthSrcdepth.h>
#include <orn/primitives/imageProc/ixPixelLoopDstrgbDstdepth.h>
#include <orn/primitives/imageProc/ixPixelLoopDstrgbDstdepthSrcdepth.h>
#include <orn/primitives/imageProc/ixPixelLoopRgbDepthConst.h>

#include <cstring>
#include <functional>
#include <string>

#include "ixPixelLoopTestUtil.h"

using namespace Orn;
using namespace OrnTest;
using Order = IxPixelIterBase::Order;

namespace {

// What the loop instantiated, as the functor saw it.
struct Seen {
  int nbBuilt = 0, nbCalls = 0;
  int dstComps = 0, dstDepth = 0, srcComps = 0, srcDepth = 0, src1Depth = 0;
  bool dstConst = false;
};

struct SeenArgs : IxPixelFunctorArgs {
  Seen* seen;
};

template <class Dst, class Src>
void noteTypes(Seen& seen) {
  ++seen.nbBuilt;
  seen.dstComps = Dst::NB_COMPS;
  seen.dstDepth = Dst::CompType::DEPTH;
  seen.srcComps = Src::NB_COMPS;
  seen.srcDepth = Src::CompType::DEPTH;
  seen.dstConst = std::is_const_v<Dst>;
  static_assert(std::is_const_v<Src>);
}

// Zeroes every destination pixel it is given.
template <class Dst, class Src>
class Recorder : public IxPixelFunctor<Dst, Src> {
 public:
  explicit Recorder(SeenArgs const& args) : _seen(args.seen) { noteTypes<Dst, std::add_const_t<Src>>(*_seen); }
  void operator()(Dst& dst, Src&) {
    ++_seen->nbCalls;
    if constexpr (!std::is_const_v<Dst>) std::memset(static_cast<void*>(&dst), 0, sizeof(Dst));
  }

 private:
  Seen* _seen;
};

template <class Dst, class Src0, class Src1>
class Recorder2In : public IxPixelFunctor2In<Dst, Src0, Src1> {
 public:
  explicit Recorder2In(SeenArgs const& args) : _seen(args.seen) {
    noteTypes<Dst, Src0>(*_seen);
    _seen->src1Depth = Src1::CompType::DEPTH;
  }
  void operator()(Dst& dst, Src0&, Src1&) {
    ++_seen->nbCalls;
    std::memset(static_cast<void*>(&dst), 0, sizeof(Dst));
  }

 private:
  Seen* _seen;
};

GeRectangle<int> const REGION(-1, 2, 3, 5);
IxPixelFormat::Depth const DEPTHS[] = {IxPixelFormat::UINT8, IxPixelFormat::FLOAT16, IxPixelFormat::FLOAT32};

// A tile of the region with the pattern; two components come as a view over a larger tile.
IxTile patternTile(int comps, IxPixelFormat::Depth depth, int seed) {
  IxTile tile = comps == 2 ? makeTile(IxPixelFormat::RGBA, IxPixelFormat::FLOAT32, REGION, 128)
                                 .createView(makeTwoComponentFormat(depth), REGION, 128)
                           : makeTile(IxPixelFormat::Comps(comps), depth, REGION, 128);
  fillPattern(tile, seed);
  return tile;
}

using LoopRun = std::function<void(IxTile const& dst, IxTile const& src, IxTile const& src1, SeenArgs const&)>;

// The family runs its functor instance for (dst comps, dst depth, src comps, src depth) over every
// pixel, and, where the destination is written, zeroes all of it.
void expectServed(LoopRun const& run, int comps, IxPixelFormat::Depth depth, int srcComps,
                  IxPixelFormat::Depth srcDepth, bool written) {
  SCOPED_TRACE(testing::Message() << "comps " << comps << " depth " << depth << " src " << srcComps << "/" << srcDepth);
  IxTile const dst = patternTile(comps, depth, 1), src = patternTile(srcComps, srcDepth, 2);
  IxTile const src1 = patternTile(comps, depth, 3);
  Seen seen;
  SeenArgs args;
  args.seen = &seen;
  run(dst, src, src1, args);
  EXPECT_EQ(seen.nbBuilt, 1);
  EXPECT_EQ(seen.nbCalls, 6);
  EXPECT_EQ(seen.dstComps, comps);
  EXPECT_EQ(seen.dstDepth, int(depth));
  EXPECT_EQ(seen.srcComps, srcComps);
  EXPECT_EQ(seen.srcDepth, int(srcDepth));
  EXPECT_EQ(seen.dstConst, !written);
  EXPECT_EQ(snapshot(dst),
            written ? std::vector<std::uint32_t>(6 * comps, 0u) : snapshot(patternTile(comps, depth, 1)));
}

// The family refuses the formats: the abort names the source, carries no message, and neither the
// functor nor the destination has been touched.
void expectRefused(LoopRun const& run, IxTile const& dst, IxTile const& src, char const* source) {
  Seen seen;
  SeenArgs args;
  args.seen = &seen;
  std::vector<std::uint32_t> const before = snapshot(dst);
  try {
    run(dst, src, dst, args);
    ADD_FAILURE() << "not refused: " << source;
  } catch (AssertionsEx::ExProgramAborted const& e) {
    EXPECT_STREQ(e.getFile(), source);
    EXPECT_STREQ(e.getMessage(), "");
  }
  EXPECT_EQ(seen.nbBuilt, 0);
  EXPECT_EQ(snapshot(dst), before);
}

Order const O0 = IxPixelIterBase::ORDER_H_XPOS_YPOS;

}  // namespace

TEST(IxPixelLoopFamilies, OneTileFamiliesServeTheirCompsAndRefuseTheRest) {
  LoopRun const inPlace = [](IxTile const& t, IxTile const&, IxTile const&, SeenArgs const& a) {
    ixPixelLoopCompDepth<Recorder>(IxWriteGuard(t), nullptr, O0, a);
  };
  LoopRun const readOnly = [](IxTile const& t, IxTile const&, IxTile const&, SeenArgs const& a) {
    ixPixelLoopCompDepthConst<Recorder>(IxReadGuard(t), nullptr, O0, a);
  };
  LoopRun const rgbReadOnly = [](IxTile const& t, IxTile const&, IxTile const&, SeenArgs const& a) {
    ixPixelLoopRgbDepthConst<Recorder>(IxReadGuard(t), nullptr, O0, a);
  };
  for (IxPixelFormat::Depth depth : DEPTHS) {
    for (int comps : {1, 3, 4}) {
      expectServed(inPlace, comps, depth, comps, depth, true);
      expectServed(readOnly, comps, depth, comps, depth, false);
      if (comps != 1) expectServed(rgbReadOnly, comps, depth, comps, depth, false);
    }
    expectRefused(inPlace, patternTile(2, depth, 1), IxTile(), "ixPixelLoopCompDepth");
    expectRefused(readOnly, patternTile(2, depth, 1), IxTile(), "ixPixelLoopCompDepthConst");
    expectRefused(rgbReadOnly, patternTile(1, depth, 1), IxTile(), "ixPixelLoopRgbDepthConst");
  }
  IxTile const complex = makeTile(IxPixelFormat::ALPHA, IxPixelFormat::COMPLEX, REGION);
  IxTile const complexRgb = makeTile(IxPixelFormat::RGB, IxPixelFormat::COMPLEX, REGION);
  expectRefused(inPlace, complex, IxTile(), "ixPixelLoopTemplate.hack");
  expectRefused(readOnly, complex, IxTile(), "ixPixelLoopTemplate.hack");
  expectRefused(rgbReadOnly, complexRgb, IxTile(), "ixPixelLoopTemplate.hack");
}

TEST(IxPixelLoopFamilies, SameDepthFamiliesServeTheirCompsAndRefuseTheRest) {
  LoopRun const copy = [](IxTile const& d, IxTile const& s, IxTile const&, SeenArgs const& a) {
    ixPixelLoopDstcompDstdepth<Recorder>(IxWriteGuard(d), nullptr, O0, IxReadGuard(s), nullptr, O0, a);
  };
  LoopRun const compare = [](IxTile const& d, IxTile const& s, IxTile const&, SeenArgs const& a) {
    ixPixelLoopDstcompDstdepthConst<Recorder>(IxReadGuard(d), nullptr, O0, IxReadGuard(s), nullptr, O0, a);
  };
  LoopRun const diffNC = [](IxTile const& d, IxTile const& s, IxTile const&, SeenArgs const& a) {
    ixPixelLoopDstcompDstdepthDiffNC<Recorder>(IxWriteGuard(d), nullptr, O0, IxReadGuard(s), nullptr, O0, a);
  };
  LoopRun const rgb = [](IxTile const& d, IxTile const& s, IxTile const&, SeenArgs const& a) {
    ixPixelLoopDstrgbDstdepth<Recorder>(IxWriteGuard(d), nullptr, O0, IxReadGuard(s), nullptr, O0, a);
  };
  LoopRun const twoIn = [](IxTile const& d, IxTile const& s, IxTile const& s1, SeenArgs const& a) {
    ixPixelLoop2InDstcompDstdepth<Recorder2In>(IxWriteGuard(d), nullptr, O0, IxReadGuard(s), nullptr, O0,
                                               IxReadGuard(s1), nullptr, O0, a);
  };
  for (IxPixelFormat::Depth depth : DEPTHS) {
    for (int comps : {1, 2, 3, 4}) {
      if (comps != 2) expectServed(copy, comps, depth, comps, depth, true);
      expectServed(compare, comps, depth, comps, depth, false);
      expectServed(diffNC, comps, depth, 1, depth, true);
      if (comps > 2) expectServed(rgb, comps, depth, comps, depth, true);
      if (comps != 2) expectServed(twoIn, comps, depth, comps, depth, true);
    }
    IxTile const two = patternTile(2, depth, 1), one = patternTile(1, depth, 2);
    expectRefused(copy, two, two, "ixPixelLoopDstcompDstdepth");
    expectRefused(rgb, one, one, "ixPixelLoopDstrgbDstdepth");
    expectRefused(twoIn, two, two, "ixPixelLoop2InDstcompDstdepth");
  }
  IxTile const complex = makeTile(IxPixelFormat::ALPHA, IxPixelFormat::COMPLEX, REGION);
  for (LoopRun const& run : {copy, compare, diffNC, twoIn})
    expectRefused(run, complex, complex, "ixPixelLoopTemplate.hack");
  IxTile const complexRgb = makeTile(IxPixelFormat::RGB, IxPixelFormat::COMPLEX, REGION);
  expectRefused(rgb, complexRgb, complexRgb, "ixPixelLoopTemplate.hack");
}

TEST(IxPixelLoopFamilies, SourceDepthFamiliesServeEveryDepthPair) {
  LoopRun const lut = [](IxTile const& d, IxTile const& s, IxTile const&, SeenArgs const& a) {
    ixPixelLoopDstcompDstdepthSrcdepth<Recorder>(IxWriteGuard(d), nullptr, O0, IxReadGuard(s), nullptr, O0, a);
  };
  LoopRun const rgbLut = [](IxTile const& d, IxTile const& s, IxTile const&, SeenArgs const& a) {
    ixPixelLoopDstrgbDstdepthSrcdepth<Recorder>(IxWriteGuard(d), nullptr, O0, IxReadGuard(s), nullptr, O0, a);
  };
  for (IxPixelFormat::Depth depth : DEPTHS) {
    for (IxPixelFormat::Depth srcDepth : DEPTHS)
      for (int comps : {1, 3, 4}) {
        expectServed(lut, comps, depth, comps, srcDepth, true);
        if (comps != 1) expectServed(rgbLut, comps, depth, comps, srcDepth, true);
      }
    // A complex source is refused at the source's depth, before anything is written.
    expectRefused(lut, patternTile(1, depth, 1), makeTile(IxPixelFormat::ALPHA, IxPixelFormat::COMPLEX, REGION),
                  "ixPixelLoopTemplate.hack");
    expectRefused(rgbLut, patternTile(3, depth, 1), makeTile(IxPixelFormat::RGB, IxPixelFormat::COMPLEX, REGION),
                  "ixPixelLoopTemplate.hack");
    expectRefused(lut, patternTile(2, depth, 1), patternTile(2, depth, 2), "ixPixelLoopDstcompDstdepthSrcdepth");
    expectRefused(rgbLut, patternTile(1, depth, 1), patternTile(1, depth, 2), "ixPixelLoopDstrgbDstdepthSrcdepth");
  }
}
