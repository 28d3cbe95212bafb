#include <orn/base/geometryBase/geAffineMatrix2.h>
#include <orn/base/geometryBase/geAffineMatrix3.h>
#include <orn/base/geometryBase/geLinearMatrix3.h>
#include <orn/base/geometryBase/geProjectiveMatrix3.h>

#include <gtest/gtest.h>

#include <cmath>

using namespace Orn;

namespace {

template <class M>
void expectIdentity(M const& m, int n, double tolerance) {
  for (int r = 0; r < n; ++r)
    for (int c = 0; c < n; ++c) EXPECT_NEAR(m(r, c), r == c ? 1.0 : 0.0, tolerance) << r << ',' << c;
}

// Elements 1..16 in memory order, with a free last column.
GeProjectiveMatrix3<double> counting() {
  GeProjectiveMatrix3<double> m;
  for (int i = 0; i < 16; ++i) m.getData()[i] = i + 1;
  return m;
}

}  // namespace

TEST(GeMatrix, PointsAreRowVectorsOnTheLeft) {
  GeProjectiveMatrix3<double> const m = counting();
  EXPECT_EQ(m(1, 2), 7.0);  // row-major: element 4 * 1 + 2
  GeHomogeneousCoord3<double> const h = GePoint3<double>(1, 10, 100) * m;
  // x' = x m0 + y m4 + z m8 + m12, ..., w = x m3 + y m7 + z m11 + m15
  EXPECT_EQ(h.x, 1 * 1 + 10 * 5 + 100 * 9 + 13);
  EXPECT_EQ(h.y, 1 * 2 + 10 * 6 + 100 * 10 + 14);
  EXPECT_EQ(h.z, 1 * 3 + 10 * 7 + 100 * 11 + 15);
  EXPECT_EQ(h.w, 1 * 4 + 10 * 8 + 100 * 12 + 16);
  // The column product is the transpose at work.
  GeHomogeneousCoord3<double> const c = m * GeHomogeneousCoord3<double>(1, 10, 100, 1);
  EXPECT_EQ(c, GePoint3<double>(1, 10, 100) * m.computeTranspose());

  GeAffineMatrix3<float> a;
  a.setTranslation(GeVector3<float>(5, 6, 7));
  a(0, 1) = 2;  // x also feeds y
  EXPECT_EQ(a.getData()[12], 5.f);
  EXPECT_EQ(a.getData()[14], 7.f);
  EXPECT_EQ(GePoint3<float>(1, 1, 1) * a, GePoint3<float>(6, 9, 8));
  // Vectors don't take the translation.
  EXPECT_EQ(GeVector3<float>(1, 1, 1) * a, GeVector3<float>(1, 3, 1));

  GeAffineMatrix2<float> const a2(1, 0, 0, 1, 3, 4);
  EXPECT_EQ(a2(2, 0), 3.f);
  EXPECT_EQ(GePoint2<float>(1, 1) * a2, GePoint2<float>(4, 5));
}

TEST(GeMatrix, InAProductTheLeftMatrixIsAppliedFirst) {
  GeAffineMatrix3<float> move;
  move.setTranslation(GeVector3<float>(1, 0, 0));
  GeAffineMatrix3<float> twice;
  twice(0, 0) = twice(1, 1) = twice(2, 2) = 2;
  GePoint3<float> const p(1, 0, 0);
  EXPECT_EQ(p * (move * twice), GePoint3<float>(4, 0, 0));
  EXPECT_EQ(p * (twice * move), GePoint3<float>(3, 0, 0));
  EXPECT_EQ(p * (move * twice), (p * move) * twice);

  GeProjectiveMatrix3<double> const m = counting();
  GeProjectiveMatrix3<double> const n = GeProjectiveMatrix3<double>(GeAffineMatrix3<double>(
      GeLinearMatrix3<double>(0, 1, 0, -1, 0, 0, 0, 0, 1), GeVector3<double>(3, 4, 5)));
  GePoint3<double> const q(2, -1, 0.5);
  GeHomogeneousCoord3<double> const once = q * (m * n);
  GeHomogeneousCoord3<double> const twiceOver = (q * m) * n;
  EXPECT_DOUBLE_EQ(once.x, twiceOver.x);
  EXPECT_DOUBLE_EQ(once.w, twiceOver.w);

  // Linear matrices times a vector multiply column-wise: element i is row i dotted with v.
  GeLinearMatrix3<float> const l(1, 2, 3, 4, 5, 6, 7, 8, 9);
  EXPECT_EQ(l * GeVector3<float>(1, 0, -1), GeVector3<float>(-2, -2, -2));
  EXPECT_EQ(GeVector3<float>(1, 0, -1) * l, GeVector3<float>(-6, -6, -6));
  EXPECT_EQ(l.computeTranspose(), GeLinearMatrix3<float>(1, 4, 7, 2, 5, 8, 3, 6, 9));
  EXPECT_EQ(m.computeTranspose()(0, 3), 13.0);
  EXPECT_EQ(m.computeTranspose()(3, 0), 4.0);
}

TEST(GeMatrix, InverseTimesMatrixIsTheIdentity) {
  GeAffineMatrix3<double> a(GeLinearMatrix3<double>(2, 1, 0, -1, 3, 0.5, 0.25, 0, 4), GeVector3<double>(7, -3, 2));
  expectIdentity(a.computeInverse() * a, 4, 1e-12);
  expectIdentity(a * a.computeInverse(), 4, 1e-12);
  GePoint3<double> const p(1, 2, 3);
  GePoint3<double> const back = (p * a) * a.computeInverse();
  EXPECT_NEAR(back.x, 1, 1e-12);
  EXPECT_NEAR(back.z, 3, 1e-12);

  // A projective matrix whose first pivot is zero needs a row exchange.
  GeProjectiveMatrix3<double> const m(0, 2, 1, 0.5, 1, 0, 3, 0, 4, 1, 0, 1, 2, 5, 1, 3);
  expectIdentity(m.computeInverse() * m, 4, 1e-12);
  expectIdentity(m * m.computeInverse(), 4, 1e-12);

  GeAffineMatrix2<float> const a2(0, 2, -3, 1, 4, 5);
  GeAffineMatrix2<float> const i2 = a2.computeInverse() * a2;
  expectIdentity(i2, 3, 1e-6);

  // A singular matrix is not reported: the result is not a number.
  GeProjectiveMatrix3<double> const singular(1, 2, 3, 4, 2, 4, 6, 8, 0, 0, 1, 0, 0, 0, 0, 1);
  EXPECT_TRUE(std::isnan(singular.computeInverse()(0, 0)));
  GeAffineMatrix3<float> flat;
  flat(2, 2) = 0;
  EXPECT_TRUE(std::isnan(flat.computeInverse()(0, 0)));
}

TEST(GeMatrix, TableOfRowsEitherCopiedOrReadAsColumns) {
  // Written for column vectors, the translation in the fourth column.
  float const table[4][4] = {{-1, 0, 0, 1}, {0, 2, 0, 3}, {0, 0, -1, 4}, {0, 0, 0, 1}};
  GeAffineMatrix3<float> const straight(table, false);
  EXPECT_EQ(straight(0, 3), 1.f);
  EXPECT_EQ(straight(1, 1), 2.f);
  GeAffineMatrix3<float> const turned(table, true);
  EXPECT_EQ(turned.getTranslation(), GeVector3<float>(1, 3, 4));
  EXPECT_EQ(turned(0, 3), 0.f);
  // The colour (0.5, 0.5, 0.5) becomes (1 - 0.5, 2 * 0.5 + 3, 4 - 0.5).
  EXPECT_EQ(GePoint3<float>(0.5f, 0.5f, 0.5f) * turned, GePoint3<float>(0.5f, 4, 3.5f));
}
