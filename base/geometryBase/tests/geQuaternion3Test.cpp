#include <orn/base/geometryBase/geQuaternion3.h>

#include <gtest/gtest.h>

#include <cmath>

using namespace Orn;

namespace {

using Q = GeQuaternion3<double>;
using V = GeVector3<double>;
using L = GeLinearMatrix3<double>;

void expectNear(L const& a, L const& b, double tolerance) {
  for (int r = 0; r < 3; ++r)
    for (int c = 0; c < 3; ++c) EXPECT_NEAR(a(r, c), b(r, c), tolerance) << r << ',' << c;
}

void expectNear(V const& a, V const& b, double tolerance) {
  EXPECT_NEAR(a.x, b.x, tolerance);
  EXPECT_NEAR(a.y, b.y, tolerance);
  EXPECT_NEAR(a.z, b.z, tolerance);
}

// The symmetric stretch U K U^-1 as a row-vector matrix.
L stretch(Q const& u, V const& k) {
  L r;
  u.getMatrix(r);
  L const diag(k.x, 0, 0, 0, k.y, 0, 0, 0, k.z);
  return r.computeTranspose() * diag * r;
}

}  // namespace

TEST(GeQuaternion3, MatrixRoundTripAndProductOrder) {
  Q const quarterZ(V(0, 0, 1), M_PI / 2);
  L m;
  quarterZ.getMatrix(m);
  expectNear(V(1, 0, 0) * m, V(0, 1, 0), 1e-15);
  expectNear(V(0, 1, 0) * m, V(-1, 0, 0), 1e-15);

  // A non-unit quaternion stands for the same rotation; zero is the identity.
  L scaled;
  (quarterZ * 3.0).getMatrix(scaled);
  expectNear(scaled, m, 1e-15);
  Q(0, 0, 0, 0).getMatrix(scaled);
  expectNear(scaled, L(), 0);

  Q const q = Q(0.3, -0.5, 0.2, 0.7).getNormalized();
  GeAffineMatrix3<double> a;
  q.getMatrix(a);
  Q back;
  back.setMatrix(a, 1e-9);
  EXPECT_NEAR(back.x, q.x, 1e-12);
  EXPECT_NEAR(back.y, q.y, 1e-12);
  EXPECT_NEAR(back.z, q.z, 1e-12);
  EXPECT_NEAR(back.w, q.w, 1e-12);

  // Half a turn about x has no w to divide by.
  Q const half(V(1, 0, 0), M_PI);
  GeAffineMatrix3<double> h;
  half.getMatrix(h);
  back.setMatrix(h, 1e-9);
  EXPECT_NEAR(std::fabs(back.x), 1, 1e-12);
  EXPECT_NEAR(back.getNorm(), 1, 1e-12);

  // A scale applied before the rotation is removed.
  for (int r = 0; r < 3; ++r)
    for (int c = 0; c < 3; ++c) a(r, c) *= 0.5 + r;
  back.setMatrix(a, 1e-9);
  EXPECT_NEAR(back.x, q.x, 1e-12);
  EXPECT_NEAR(back.y, q.y, 1e-12);
  EXPECT_NEAR(back.w, q.w, 1e-12);

  // a * b turns by b first.
  Q const b(V(1, 2, -1), 0.8);
  V const v(0.2, 1, -3);
  expectNear((quarterZ * b).rotate(v), quarterZ.rotate(b.rotate(v)), 1e-14);
  expectNear((q * b).rotate(v), q.rotate(b.rotate(v)), 1e-14);
  expectNear((b * q).rotate(v), b.rotate(q.rotate(v)), 1e-14);
  L mb, mab;
  b.getMatrix(mb);
  (quarterZ * b).getMatrix(mab);
  expectNear(mab, mb * m, 1e-15);

  expectNear((q * q.getInverse()).getVector(), V(0, 0, 0), 1e-15);
  EXPECT_NEAR((q * q.getConjugate()).w, 1, 1e-15);
}

TEST(GeQuaternion3, AimTurnsTheViewAxisAlongTheDirection) {
  struct Case {
    V direction;
    V up;
  };
  Case const cases[] = {{V(1, 0, 0), V(0, 1, 0)}, {V(1, 1, -2), V(0, 1, 0)}, {V(0, 0, 5), V(0, 2, 0)},
                        {V(0, -3, 0), V(0, 1, 0)}};
  for (Case const& c : cases) {
    Q q;
    q.aim(c.direction, c.up);
    L m;
    q.getMatrix(m);
    expectNear(V(0, 0, -1) * m, c.direction.getNormalized(), 1e-12);
    V const upImage = V(0, 1, 0) * m;
    EXPECT_NEAR(upImage.dot(c.direction), 0, 1e-12);
    EXPECT_NEAR(m.getDeterminant(), 1, 1e-12);
    // As vertical as it can be: up's component across the direction, made unit.
    V const across = c.up - c.direction.getNormalized() * c.up.dot(c.direction.getNormalized());
    if (across.getLength() > 1e-9) expectNear(upImage, across.getNormalized(), 1e-12);
  }
}

TEST(GeQuaternion3, SnugglePermutesToTheSmallestRotation) {
  // Distinct scales, a sixth of a turn about z: a quarter turn back leaves -30 degrees.
  Q const sixth(V(0, 0, 1), M_PI / 3);
  V k(1, 2, 3);
  Q p = sixth.getSnuggle(k);
  EXPECT_NEAR((sixth * p).w, std::cos(M_PI / 12), 1e-12);
  expectNear(k, V(2, 1, 3), 0);
  expectNear(stretch(sixth * p, k), stretch(sixth, V(1, 2, 3)), 1e-12);

  // A quarter turn is undone entirely, and the stretch is diagonal.
  Q const quarter(V(0, 0, 1), M_PI / 2);
  k = V(1, 2, 3);
  p = quarter.getSnuggle(k);
  EXPECT_NEAR((quarter * p).w, 1, 1e-12);
  expectNear(stretch(quarter, V(1, 2, 3)), L(2, 0, 0, 0, 1, 0, 0, 0, 3), 1e-12);
  expectNear(k, V(2, 1, 3), 0);

  // Two equal scales: any turn in their plane is free.
  Q const turn(V(0, 0, 1), 1.75);
  k = V(1, 1, 3);
  p = turn.getSnuggle(k);
  EXPECT_NEAR((turn * p).w, 1, 1e-12);
  expectNear(k, V(1, 1, 3), 0);

  // The distinct axis ends on x: a quarter turn about y takes z to x.
  Q const tilt = Q(V(0, 1, 0), M_PI / 2) * Q(V(0, 0, 1), 0.4);
  k = V(1, 1, 3);
  p = tilt.getSnuggle(k);
  EXPECT_NEAR((tilt * p).w, 1, 1e-12);
  expectNear(k, V(3, 1, 1), 0);

  // All equal: the rotation goes entirely.
  k = V(2, 2, 2);
  p = Q(0.1, 0.7, -0.3, 0.2).getSnuggle(k);
  EXPECT_NEAR((Q(0.1, 0.7, -0.3, 0.2).getNormalized() * p).w, 1, 1e-12);

  // Any rotation: the same stretch, and never a larger rotation than without the snuggle.
  Q const odd = Q(0.4, -0.6, 0.5, 0.3).getNormalized();
  k = V(0.5, 4, 2);
  p = odd.getSnuggle(k);
  EXPECT_GE((odd * p).w, std::fabs(odd.w));
  EXPECT_NEAR(p.getNorm(), 1, 1e-12);
  expectNear(stretch(odd * p, k), stretch(odd, V(0.5, 4, 2)), 1e-12);
}
