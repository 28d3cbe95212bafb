#include <orn/base/geometryBase/geAxisRotation3.h>
#include <orn/base/geometryBase/geRotation2.h>
#include <orn/base/geometryBase/geScale2.h>
#include <orn/base/geometryBase/geScale3.h>
#include <orn/base/geometryBase/geTranslation3.h>

#include <gtest/gtest.h>

#include <cmath>

using namespace Orn;

namespace {

template <class M>
void expectNear(M const& a, M const& b, int n) {
  for (int r = 0; r < n; ++r)
    for (int c = 0; c < n; ++c) EXPECT_NEAR(a(r, c), b(r, c), 1e-5) << r << ',' << c;
}

// A matrix with no zero and no structure, so that every element of a product shows.
template <class M>
M busy(int n) {
  M m;
  for (int r = 0; r < n; ++r)
    for (int c = 0; c < n; ++c) m(r, c) = float(1 + r * n + c) * (c % 2 ? -0.5f : 1.f);
  return m;
}

// mulOnRight is m * t, mulOnRightAssign sets m and returns it, t * m puts t first.
template <class Tr, class M, class Full>
void expectProducts(Tr const& t, int n) {
  M const m = busy<M>(n);
  Full full;
  t.getMatrix(full);
  M const asM = M(full);
  expectNear(t.mulOnRight(m), M(m * asM), n);
  expectNear(M(t * m), M(asM * m), n);
  expectNear(M(m * t), M(m * asM), n);
  M assigned = m;
  M& result = t.mulOnRightAssign(assigned);
  EXPECT_EQ(&result, &assigned);
  expectNear(assigned, M(m * asM), n);
}

GeAffineMatrix3<float> translation(float x, float y, float z) {
  return GeAffineMatrix3<float>(GeLinearMatrix3<float>(), GeVector3<float>(x, y, z));
}

}  // namespace

TEST(GeCompactTransforms, MulOnRightAppliesTheTransformAfterTheMatrix) {
  GePoint3<float> const origin(0, 0, 0);
  GeAffineMatrix3<float> const move = translation(1, 0, 0);

  GeScale3<float> const twice(2, 2, 2);
  EXPECT_EQ(origin * twice.mulOnRight(move), GePoint3<float>(2, 0, 0));
  EXPECT_EQ(origin * (twice * move), GePoint3<float>(1, 0, 0));

  GeAxisRotation3<2, float> const quarter(float(M_PI / 2));
  GePoint3<float> const turned = origin * quarter.mulOnRight(move);
  EXPECT_NEAR(turned.x, 0, 1e-6);
  EXPECT_NEAR(turned.y, 1, 1e-6);
  EXPECT_EQ(origin * (quarter * move), GePoint3<float>(1, 0, 0));

  GeTranslation3<float> const up(0, 0, 3);
  GeAffineMatrix3<float> scaled;
  twice.getMatrix(scaled);
  GePoint3<float> const one(1, 1, 1);
  EXPECT_EQ(one * up.mulOnRight(scaled), GePoint3<float>(2, 2, 5));
  EXPECT_EQ(one * (up * scaled), GePoint3<float>(2, 2, 8));

  GeScale2<float> const wide(3, 1);
  GeAffineMatrix2<float> const move2(1, 0, 0, 1, 1, 1);
  EXPECT_EQ(GePoint2<float>(0, 0) * wide.mulOnRight(move2), GePoint2<float>(3, 1));
  EXPECT_EQ(GePoint2<float>(0, 0) * (wide * move2), GePoint2<float>(1, 1));
}

TEST(GeCompactTransforms, EachKindAgreesWithItsFullMatrix) {
  GeScale2<float> const s2(2, -3);
  expectProducts<GeScale2<float>, GeLinearMatrix2<float>, GeLinearMatrix2<float>>(s2, 2);
  expectProducts<GeScale2<float>, GeAffineMatrix2<float>, GeAffineMatrix2<float>>(s2, 3);

  GeScale3<float> const s3(2, -3, 0.5f);
  expectProducts<GeScale3<float>, GeLinearMatrix3<float>, GeLinearMatrix3<float>>(s3, 3);
  expectProducts<GeScale3<float>, GeAffineMatrix3<float>, GeAffineMatrix3<float>>(s3, 4);
  expectProducts<GeScale3<float>, GeProjectiveMatrix3<float>, GeAffineMatrix3<float>>(s3, 4);

  GeTranslation3<float> const t(4, -5, 6);
  expectProducts<GeTranslation3<float>, GeAffineMatrix3<float>, GeAffineMatrix3<float>>(t, 4);
  expectProducts<GeTranslation3<float>, GeProjectiveMatrix3<float>, GeAffineMatrix3<float>>(t, 4);

  GeAxisRotation3<0, float> const rx(0.3f);
  GeAxisRotation3<1, float> const ry(-1.1f);
  GeAxisRotation3<2, float> const rz(2.5f);
  expectProducts<GeAxisRotation3<0, float>, GeAffineMatrix3<float>, GeAffineMatrix3<float>>(rx, 4);
  expectProducts<GeAxisRotation3<1, float>, GeLinearMatrix3<float>, GeLinearMatrix3<float>>(ry, 3);
  expectProducts<GeAxisRotation3<2, float>, GeProjectiveMatrix3<float>, GeAffineMatrix3<float>>(rz, 4);

  // On a GeRotation3.
  GeRotation3<float> const r(GeVector3<float>(1, 2, 3), 0.7f);
  GeLinearMatrix3<float> full;
  ry.getMatrix(full);
  expectNear(ry.mulOnRight(r).getLinear(), r.getLinear() * full, 3);
  expectNear((ry * r).getLinear(), full * r.getLinear(), 3);
}

TEST(GeCompactTransforms, AxisRotationsAreRightHanded) {
  float const a = 0.4f;
  GeVector3<float> const xImage = GeVector3<float>(1, 0, 0) * GeAxisRotation3<2, float>(a);
  EXPECT_NEAR(xImage.x, std::cos(a), 1e-7);
  EXPECT_NEAR(xImage.y, std::sin(a), 1e-7);
  GeVector3<float> const yImage = GeVector3<float>(0, 1, 0) * GeAxisRotation3<0, float>(a);
  EXPECT_NEAR(yImage.z, std::sin(a), 1e-7);
  GeVector3<float> const zImage = GeVector3<float>(0, 0, 1) * GeAxisRotation3<1, float>(a);
  EXPECT_NEAR(zImage.x, std::sin(a), 1e-7);
  EXPECT_NEAR(zImage.z, std::cos(a), 1e-7);
  // The same turns from a general axis rotation.
  GeVector3<float> const general = GeVector3<float>(0, 0, 1) * GeRotation3<float>(GeVector3<float>(0, 1, 0), a);
  EXPECT_NEAR(general.x, zImage.x, 1e-6);

  GeRotation2<float> r(0.5f);
  r.rotate(1.0f);
  EXPECT_FLOAT_EQ(r.getAngle(), 1.5f);
  GeVector2<float> const v = GeVector2<float>(1, 0) * r;
  EXPECT_NEAR(v.y, std::sin(1.5f), 1e-6);
  GeLinearMatrix2<float> m;
  r.getMatrix(m);
  EXPECT_NEAR((GeVector2<float>(1, 0) * m).y, v.y, 1e-6);
}
