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

#include <array>

#include "ixPixelLoopTestUtil.h"

using namespace OrnTest;
using Order = IxPixelIterBase::Order;

namespace {

// What the loop instantiated, as its functor saw it: built, calls, dst comps, dst depth, dst
// const, src comps, src depth.
using Seen = std::array<int, 7>;
struct SeenArgs : IxPixelFunctorArgs {
  Seen* seen;
};

// Notes its instance and zeroes every destination pixel it may write.
template <class Dst, class Src, class Src1 = Src>
class Recorder : public IxPixelFunctor2In<Dst, Src, Src1> {
 public:
  explicit Recorder(SeenArgs const& args) : _seen(*args.seen) {
    static_assert(std::is_const_v<Src1> && std::is_same_v<typename Src::CompType, typename Src1::CompType>);
    _seen = {_seen[0] + 1,        0, Dst::NB_COMPS, Dst::CompType::DEPTH, std::is_const_v<Dst>, Src::NB_COMPS,
             Src::CompType::DEPTH};
  }
  void operator()(Dst& dst, Src&) {
    ++_seen[1];
    if constexpr (!std::is_const_v<Dst>) std::memset(static_cast<void*>(&dst), 0, sizeof(Dst));
  }
  void operator()(Dst& dst, Src& src, Src1&) { (*this)(dst, src); }

 private:
  Seen& _seen;
};
template <class Dst, class Src>
using Recorder1In = Recorder<Dst, Src const>;

GeRectangle<int> const REGION(-1, 2, 3, 5);
Order const O = IxPixelIterBase::ORDER_H_XPOS_YPOS;

IxTile patternTile(int comps, IxPixelFormat::Depth depth, int seed) {
  IxTile const tile =
      comps == 2 ? makeTile(4, IxPixelFormat::FLOAT32, REGION).createView(makeTwoComponentFormat(depth), REGION, 64)
                 : makeTile(comps, depth, REGION);
  fillPattern(tile, seed);
  return tile;
}

using LoopRun = std::function<void(IxTile const& dst, IxTile const& src, SeenArgs const&)>;

// The family runs the functor instance of (comps, depth, srcComps, srcDepth) over all six pixels,
// and zeroes the destination when it writes it.
void expectServed(LoopRun const& run, int comps, IxPixelFormat::Depth depth, int srcComps,
                  IxPixelFormat::Depth srcDepth, bool written) {
  IxTile const dst = patternTile(comps, depth, 1);
  Seen seen{};
  SeenArgs args;
  args.seen = &seen;
  run(dst, patternTile(srcComps, srcDepth, 2), args);
  EXPECT_EQ(seen, (Seen{1, 6, comps, int(depth), !written, srcComps, int(srcDepth)}))
      << "comps " << comps << " depth " << depth << " src " << srcComps << " " << srcDepth;
  EXPECT_EQ(snapshot(dst), written ? std::vector<std::uint32_t>(6 * comps) : snapshot(patternTile(comps, depth, 1)));
}

// The family refuses: the abort names the source and carries no message; no functor was built and
// the destination is as it was.
void expectRefused(LoopRun const& run, IxTile const& dst, IxTile const& src, char const* source) {
  Seen seen{};
  SeenArgs args;
  args.seen = &seen;
  std::vector<std::uint32_t> const before = snapshot(dst);
  try {
    run(dst, src, args);
    ADD_FAILURE() << "not refused: " << source;
  } catch (AssertionsEx::ExProgramAborted const& e) {
    EXPECT_STREQ(e.getFile(), source);
    EXPECT_STREQ(e.getMessage(), "");
  }
  EXPECT_EQ(seen[0], 0);
  EXPECT_EQ(snapshot(dst), before);
}

IxWriteGuard W(IxTile const& t) { return IxWriteGuard(t); }
IxReadGuard R(IxTile const& t) { return IxReadGuard(t); }

LoopRun const COMP_DEPTH = [](auto& d, auto&, auto& a) { ixPixelLoopCompDepth<Recorder1In>(W(d), nullptr, O, a); };
LoopRun const COMP_DEPTH_CONST = [](auto& d, auto&, auto& a) {
  ixPixelLoopCompDepthConst<Recorder1In>(R(d), nullptr, O, a);
};
LoopRun const RGB_DEPTH_CONST = [](auto& d, auto&, auto& a) {
  ixPixelLoopRgbDepthConst<Recorder1In>(R(d), nullptr, O, a);
};
LoopRun const DSTCOMP = [](auto& d, auto& s, auto& a) {
  ixPixelLoopDstcompDstdepth<Recorder1In>(W(d), nullptr, O, R(s), nullptr, O, a);
};
LoopRun const DSTCOMP_CONST = [](auto& d, auto& s, auto& a) {
  ixPixelLoopDstcompDstdepthConst<Recorder1In>(R(d), nullptr, O, R(s), nullptr, O, a);
};
LoopRun const DIFF_NC = [](auto& d, auto& s, auto& a) {
  ixPixelLoopDstcompDstdepthDiffNC<Recorder1In>(W(d), nullptr, O, R(s), nullptr, O, a);
};
LoopRun const DSTRGB = [](auto& d, auto& s, auto& a) {
  ixPixelLoopDstrgbDstdepth<Recorder1In>(W(d), nullptr, O, R(s), nullptr, O, a);
};
LoopRun const SRCDEPTH = [](auto& d, auto& s, auto& a) {
  ixPixelLoopDstcompDstdepthSrcdepth<Recorder1In>(W(d), nullptr, O, R(s), nullptr, O, a);
};
LoopRun const RGB_SRCDEPTH = [](auto& d, auto& s, auto& a) {
  ixPixelLoopDstrgbDstdepthSrcdepth<Recorder1In>(W(d), nullptr, O, R(s), nullptr, O, a);
};
LoopRun const TWO_IN = [](auto& d, auto& s, auto& a) {
  ixPixelLoop2InDstcompDstdepth<Recorder>(W(d), nullptr, O, R(s), nullptr, O, R(s), nullptr, O, a);
};

}  // namespace

TEST(IxPixelLoopFamilies, EachFamilyServesItsCompsInEveryDepth) {
  for (IxPixelFormat::Depth depth : DEPTHS) {
    for (int comps : {1, 2, 3, 4}) {
      bool const rgb = comps > 2;
      if (comps != 2) {
        expectServed(COMP_DEPTH, comps, depth, comps, depth, true);
        expectServed(COMP_DEPTH_CONST, comps, depth, comps, depth, false);
        expectServed(DSTCOMP, comps, depth, comps, depth, true);
        expectServed(TWO_IN, comps, depth, comps, depth, true);
        for (IxPixelFormat::Depth srcDepth : DEPTHS) {
          expectServed(SRCDEPTH, comps, depth, comps, srcDepth, true);
          if (rgb) expectServed(RGB_SRCDEPTH, comps, depth, comps, srcDepth, true);
        }
      }
      if (rgb) expectServed(RGB_DEPTH_CONST, comps, depth, comps, depth, false);
      if (rgb) expectServed(DSTRGB, comps, depth, comps, depth, true);
      expectServed(DSTCOMP_CONST, comps, depth, comps, depth, false);
      expectServed(DIFF_NC, comps, depth, 1, depth, true);
    }
  }
}

TEST(IxPixelLoopFamilies, OtherCompsAndComplexDepthAreRefusedBeforeAnyWrite) {
  for (IxPixelFormat::Depth depth : DEPTHS) {
    IxTile const two = patternTile(2, depth, 1), one = patternTile(1, depth, 2);
    expectRefused(COMP_DEPTH, two, two, "ixPixelLoopCompDepth");
    expectRefused(COMP_DEPTH_CONST, two, two, "ixPixelLoopCompDepthConst");
    expectRefused(RGB_DEPTH_CONST, one, one, "ixPixelLoopRgbDepthConst");
    expectRefused(DSTCOMP, two, two, "ixPixelLoopDstcompDstdepth");
    expectRefused(DSTRGB, one, one, "ixPixelLoopDstrgbDstdepth");
    expectRefused(SRCDEPTH, two, two, "ixPixelLoopDstcompDstdepthSrcdepth");
    expectRefused(RGB_SRCDEPTH, one, one, "ixPixelLoopDstrgbDstdepthSrcdepth");
    expectRefused(TWO_IN, two, two, "ixPixelLoop2InDstcompDstdepth");
    // A complex source of the depth-switching families is refused at its own depth.
    expectRefused(SRCDEPTH, one, makeTile(1, IxPixelFormat::COMPLEX, REGION), "ixPixelLoopTemplate.hack");
    expectRefused(RGB_SRCDEPTH, patternTile(3, depth, 3), makeTile(3, IxPixelFormat::COMPLEX, REGION),
                  "ixPixelLoopTemplate.hack");
  }
  IxTile const complex = makeTile(1, IxPixelFormat::COMPLEX, REGION),
               complexRgb = makeTile(3, IxPixelFormat::COMPLEX, REGION);
  for (LoopRun const& run : {COMP_DEPTH, COMP_DEPTH_CONST, DSTCOMP, DSTCOMP_CONST, DIFF_NC, SRCDEPTH, TWO_IN})
    expectRefused(run, complex, complex, "ixPixelLoopTemplate.hack");
  for (LoopRun const& run : {RGB_DEPTH_CONST, DSTRGB, RGB_SRCDEPTH})
    expectRefused(run, complexRgb, complexRgb, "ixPixelLoopTemplate.hack");
}
