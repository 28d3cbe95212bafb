#include <orn/primitives/imageProc/ipLogicOps.h>

#include <orn/base/except/assertions.h>

#include <gtest/gtest.h>

#include <bit>
#include <cmath>

#include "ixPixelLoopTestUtil.h"

using namespace OrnTest;

namespace {

using Rgba = CoRgbaColorTyped<float>;
using Op = IpLogicOps::Operator;

Rgba const A(0.8f, 0.2f, 0.4f, 0.6f);
Rgba const B(0.1f, 0.9f, 0.5f, 0.3f);

// The textbook-looking formulas written out per operator, straight inputs p (front) and q.
Rgba expected(Op op, Rgba p, Rgba q) {
  bool const swap = op % 2 == 1 && op != 8;
  if (swap) std::swap(p, q);
  float const a = p.a, b = q.a, ia = 1 - a, ib = 1 - b;
  float const alpha = a + b * ia;
  Rgba out(0, 0, 0, alpha);
  for (int c = 0; c < 3; ++c) {
    float const P = p[c], Q = q[c];
    float numerator = 0;
    switch (op / 2) {
      case 0: numerator = P * a + (Q * b) * ia; break;
      case 1: numerator = (P * a) * b; break;
      case 2: numerator = (P * a) * ib; break;
      case 3: numerator = (P * a + Q * ia) * b; break;
      default: numerator = Q * (ia * b) + P * (ib * a); break;
    }
    out[c] = numerator * (1.f / alpha);
  }
  return out;
}

}  // namespace

TEST(IpLogicOps, EveryOperatorOnOnePixelAndItsEdges) {
  for (int op = 0; op <= 8; ++op) EXPECT_EQ(IpLogicOps::process(A, B, Op(op)), expected(Op(op), A, B)) << op;
  // in, out and atop keep the union of the alphas.
  EXPECT_FLOAT_EQ(IpLogicOps::process(A, B, IpLogicOps::A_IN_B).a, 0.6f + 0.3f * 0.4f);
  // over with an opaque front colour gives it back up to the reciprocal's rounding.
  Rgba const opaque(0.3f, 0.6f, 0.9f, 1.f);
  Rgba const over = IpLogicOps::process(opaque, B, IpLogicOps::A_OVER_B);
  for (int c = 0; c < 4; ++c) EXPECT_NEAR(over[c], opaque[c], 1e-7f);
  // xor of two opaque pixels: alpha 1, colour 0.
  EXPECT_EQ(IpLogicOps::process(opaque, Rgba(1, 1, 1, 1), IpLogicOps::A_XOR_B), Rgba(0, 0, 0, 1));
  // A result alpha of 0 is not guarded.
  EXPECT_TRUE(std::isnan(IpLogicOps::process(Rgba(0.5f, 0, 0, 0), Rgba(0, 0, 0, 0), IpLogicOps::A_IN_B).r));
  EXPECT_THROW(IpLogicOps::process(A, B, Op(9)), AssertionsEx::ExProgramAborted);
}

TEST(IpLogicOps, RegionsInFloatHalfAndBytes) {
  GeRectangle<int> const region(0, 3, 0, 2);
  IxTile const a = makeTile(4, IxPixelFormat::FLOAT32, region);
  IxTile const b = makeTile(4, IxPixelFormat::FLOAT32, region);
  for (int y = 0; y < 2; ++y)
    for (int x = 0; x < 3; ++x)
      for (int c = 0; c < 4; ++c) {
        setRaw(a, x, y, c, std::bit_cast<std::uint32_t>(A[c]));
        setRaw(b, x, y, c, std::bit_cast<std::uint32_t>(B[c]));
      }
  IxTile const dst = makeTile(4, IxPixelFormat::FLOAT32, region);
  GeRectangle<int> const part(1, 3, 0, 2);
  for (int op = 0; op <= 8; ++op) {
    fillPattern(dst, op);
    std::uint32_t const untouched = getRaw(dst, 0, 0, 0);
    IpLogicOps::process(IxWriteGuard(dst), IxReadGuard(a), IxReadGuard(b), Op(op), &part, nullptr, nullptr);
    Rgba const want = expected(Op(op), A, B);
    for (int c = 0; c < 4; ++c) EXPECT_EQ(std::bit_cast<float>(getRaw(dst, 2, 1, c)), want[c]) << op;
    EXPECT_EQ(getRaw(dst, 0, 0, 0), untouched);
  }

  // Half: the float formulas through the exact conversions.
  IxTile const ha = makeTile(4, IxPixelFormat::FLOAT16, GeRectangle<int>(0, 1, 0, 1));
  IxTile const hb = makeTile(4, IxPixelFormat::FLOAT16, GeRectangle<int>(0, 1, 0, 1));
  for (int c = 0; c < 4; ++c) {
    setRaw(ha, 0, 0, c, Half::fromFloat(A[c]));
    setRaw(hb, 0, 0, c, Half::fromFloat(B[c]));
  }
  IpLogicOps::process(IxWriteGuard(ha), IxReadGuard(ha), IxReadGuard(hb), IpLogicOps::B_OVER_A, nullptr, nullptr,
                      nullptr);
  Rgba const halfA(Half::toFloat(Half::fromFloat(A.r)), Half::toFloat(Half::fromFloat(A.g)),
                   Half::toFloat(Half::fromFloat(A.b)), Half::toFloat(Half::fromFloat(A.a)));
  Rgba const halfB(Half::toFloat(Half::fromFloat(B.r)), Half::toFloat(Half::fromFloat(B.g)),
                   Half::toFloat(Half::fromFloat(B.b)), Half::toFloat(Half::fromFloat(B.a)));
  Rgba const want = expected(IpLogicOps::B_OVER_A, halfA, halfB);
  for (int c = 0; c < 4; ++c) EXPECT_EQ(getRaw(ha, 0, 0, c), Half::fromFloat(want[c])) << c;

  // Bytes: A = (200, 0, 0, 128) over B = (0, 100, 0, 255). The alpha on the byte scale is
  // 128 + 255 * (1 - 128 * 0.003921569) = 128 + 126.999992, which rounds to 255.0 in float; colours
  // stay on the byte scale (200 * 0.50196 = 100.39, 100 * 0.49804 = 49.80) and truncate.
  IxTile const a8 = makeTile(4, IxPixelFormat::UINT8, GeRectangle<int>(0, 1, 0, 1));
  IxTile const b8 = makeTile(4, IxPixelFormat::UINT8, GeRectangle<int>(0, 1, 0, 1));
  IxTile const d8 = makeTile(4, IxPixelFormat::UINT8, GeRectangle<int>(0, 1, 0, 1));
  for (int c = 0; c < 4; ++c) {
    setRaw(a8, 0, 0, c, std::array{200u, 0u, 0u, 128u}[c]);
    setRaw(b8, 0, 0, c, std::array{0u, 100u, 0u, 255u}[c]);
  }
  IpLogicOps::process(IxWriteGuard(d8), IxReadGuard(a8), IxReadGuard(b8), IpLogicOps::A_OVER_B, nullptr, nullptr,
                      nullptr);
  EXPECT_EQ(snapshot(d8), (std::vector<std::uint32_t>{100, 49, 0, 255}));
  // Alpha 30 + 31 * (1 - 30/255) = 57.35 stores as 57, but the colour divides by 57.35:
  // 30 * 255 / 57.35 = 133.4 gives 133 (dividing by the stored 57 would give 134).
  for (int c = 0; c < 4; ++c) {
    setRaw(a8, 0, 0, c, std::array{255u, 0u, 0u, 30u}[c]);
    setRaw(b8, 0, 0, c, std::array{0u, 0u, 0u, 31u}[c]);
  }
  IpLogicOps::process(IxWriteGuard(d8), IxReadGuard(a8), IxReadGuard(b8), IpLogicOps::A_OVER_B, nullptr, nullptr,
                      nullptr);
  EXPECT_EQ(snapshot(d8), (std::vector<std::uint32_t>{133, 0, 0, 57}));
}

TEST(IpLogicOps, RefusesMixedFormatsAndMissingAlpha) {
  IxTile const rgba = makeTile(4, IxPixelFormat::FLOAT32, GeRectangle<int>(0, 2, 0, 2));
  IxTile const rgba8 = makeTile(4, IxPixelFormat::UINT8, GeRectangle<int>(0, 2, 0, 2));
  IxTile const rgb = makeTile(3, IxPixelFormat::FLOAT32, GeRectangle<int>(0, 2, 0, 2));
  auto condition = [](auto&& call) -> std::string {
    try {
      call();
    } catch (AssertionsEx::ExAssertionFailed const& e) {
      return e.getCondition();
    }
    return "";
  };
  EXPECT_EQ(condition([&] {
              IpLogicOps::process(IxWriteGuard(rgba), IxReadGuard(rgba), IxReadGuard(rgba8), IpLogicOps::A_OVER_B,
                                  nullptr, nullptr, nullptr);
            }),
            "dstImage.getTile().getPixelFormat() == srcImageA.getTile().getPixelFormat() && "
            "dstImage.getTile().getPixelFormat() == srcImageB.getTile().getPixelFormat()");
  EXPECT_EQ(condition([&] {
              IpLogicOps::process(IxWriteGuard(rgb), IxReadGuard(rgb), IxReadGuard(rgb), IpLogicOps::A_OVER_B, nullptr,
                                  nullptr, nullptr);
            }),
            "dstImage.getTile().getPixelFormat().getComps() == 4");
  EXPECT_THROW(IpLogicOps::process(IxWriteGuard(rgba), IxReadGuard(rgba), IxReadGuard(rgba), Op(9), nullptr, nullptr,
                                   nullptr),
               AssertionsEx::ExProgramAborted);
}
