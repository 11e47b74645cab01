#include "arbora/base/NbLine.h"
#include "arbora/base/NbMatrix.h"
#include "arbora/base/NbPlane.h"
#include "arbora/base/NbRotation.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace {

constexpr float kPi = 3.14159265F;

class Random {
public:
  explicit Random(unsigned seed) : m_engine(seed) {}
  float number(float low, float high) { return std::uniform_real_distribution<float>(low, high)(m_engine); }
  NbVec3f vector(float size) { return NbVec3f(number(-size, size), number(-size, size), number(-size, size)); }
  NbRotation rotation() { return NbRotation(vector(1), number(-kPi, kPi)); }
  NbVec3f scale() { return NbVec3f(number(0.1F, 5), number(0.1F, 5), number(0.1F, 5)); }

private:
  std::mt19937 m_engine;
};

float greatestValue(const NbMatrix& m) {
  return std::fabs(
      *std::max_element(m.getValue(), m.getValue() + 16, [](float a, float b) { return std::fabs(a) < std::fabs(b); }));
}

struct Transform {
  explicit Transform(const NbMatrix& matrix) { matrix.getTransform(translation, rotation, scale, orientation); }
  NbVec3f translation;
  NbRotation rotation;
  NbVec3f scale;
  NbRotation orientation; ///< Of the scale.
};

void expectSameAfterDecomposition(const NbMatrix& matrix) {
  const Transform parts(matrix);
  NbMatrix again;
  again.setTransform(parts.translation, parts.rotation, parts.scale, parts.orientation);
  EXPECT_TRUE(matrix.equals(again, 2e-5F * greatestValue(matrix)));
}

TEST(NbRotation, TurnsRightHanded) {
  const NbRotation quarter(NbVec3f(0, 0, 2), kPi / 2);
  EXPECT_TRUE(quarter.multVec(NbVec3f(1, 0, 0)).equals(NbVec3f(0, 1, 0), 1e-6F));
  NbVec3f axis;
  float angle = 0;
  quarter.getValue(axis, angle);
  EXPECT_TRUE(axis.equals(NbVec3f(0, 0, 1), 1e-6F));
  EXPECT_NEAR(angle, kPi / 2, 1e-6F);
}

TEST(NbRotation, DegenerateInputsGiveTheIdentity) {
  EXPECT_EQ(NbRotation(NbVec3f(0, 0, 0), 1.0F), NbRotation::identity());
  EXPECT_EQ(NbRotation(0, 0, 0, 0), NbRotation::identity());
  EXPECT_EQ(NbRotation(NbVec3f(), NbVec3f(1, 0, 0)), NbRotation::identity());
  NbVec3f axis;
  float angle = 1;
  NbRotation().getValue(axis, angle);
  EXPECT_EQ(axis, NbVec3f(0, 0, 1));
  EXPECT_EQ(angle, 0.0F);
}

TEST(NbRotation, FromOneDirectionToAnother) {
  Random random(1);
  for (int i = 0; i < 200; ++i) {
    NbVec3f from = random.vector(3);
    NbVec3f to = i % 4 == 0 ? -from : random.vector(3);
    const NbRotation rotation(from, to);
    from.normalize();
    to.normalize();
    EXPECT_TRUE(rotation.multVec(from).equals(to, 2e-3F)) << i;
  }
}

TEST(NbRotation, ProductsFollowTheMatrices) {
  Random random(2);
  for (int i = 0; i < 100; ++i) {
    const NbRotation a = random.rotation();
    const NbRotation b = random.rotation();
    const NbVec3f v = random.vector(2);
    EXPECT_TRUE((a * b).multVec(v).equals(b.multVec(a.multVec(v)), 1e-5F));
    EXPECT_TRUE((a * a.inverse()).equals(NbRotation(), 1e-6F));
    NbMatrix m;
    m.setRotate(a);
    NbVec3f moved;
    m.multVecMatrix(v, moved);
    EXPECT_TRUE(moved.equals(a.multVec(v), 1e-5F));
    EXPECT_TRUE(NbRotation(m).equals(a, 1e-5F));
  }
}

TEST(NbRotation, SlerpTakesTheShortWay) {
  const NbVec3f axis(1, 2, 3);
  const NbRotation from(axis, 0.2F);
  const NbRotation to(axis, 1.4F);
  EXPECT_TRUE(NbRotation::slerp(from, to, 0).equals(from, 1e-6F));
  EXPECT_TRUE(NbRotation::slerp(from, to, 1).equals(to, 1e-6F));
  EXPECT_TRUE(NbRotation::slerp(from, to, 0.5F).equals(NbRotation(axis, 0.8F), 1e-5F));
  const float* q = to.getValue();
  const NbRotation opposite(-q[0], -q[1], -q[2], -q[3]);
  EXPECT_TRUE(NbRotation::slerp(from, opposite, 0.5F).equals(NbRotation(axis, 0.8F), 1e-5F));
}

TEST(NbMatrix, PointsAreRowVectors) {
  NbMatrix matrix;
  matrix.setTransform(NbVec3f(10, 20, 30), NbRotation(NbVec3f(0, 0, 1), kPi / 2), NbVec3f(2, 3, 4));
  EXPECT_EQ(NbVec3f(matrix[3]), NbVec3f(10, 20, 30));
  NbVec3f p;
  matrix.multVecMatrix(NbVec3f(1, 1, 1), p);
  EXPECT_TRUE(p.equals(NbVec3f(7, 22, 34), 1e-5F));
  matrix.multDirMatrix(NbVec3f(1, 1, 1), p);
  EXPECT_TRUE(p.equals(NbVec3f(-3, 2, 4), 1e-5F));
  matrix.multVecMatrix(p, p);
  EXPECT_TRUE(p.equals(NbVec3f(4, 14, 46), 1e-4F));
}

TEST(NbMatrix, ProductsActFromLeftToRight) {
  NbMatrix scale;
  scale.setScale(2);
  NbMatrix move;
  move.setTranslate(NbVec3f(1, 0, 0));
  NbVec3f p;
  (scale * move).multVecMatrix(NbVec3f(1, 1, 1), p);
  EXPECT_EQ(p, NbVec3f(3, 2, 2));
  NbMatrix m = move;
  m.multRight(scale);
  EXPECT_EQ(m, move * scale);
  m = move;
  m.multLeft(scale);
  EXPECT_EQ(m, scale * move);
}

TEST(NbMatrix, CenterStaysInPlace) {
  NbMatrix matrix;
  const NbVec3f center(5, 6, 7);
  const NbRotation turn(NbVec3f(1, 0, 0), 1);
  const NbRotation orientation(NbVec3f(0, 1, 0), 0.5F);
  matrix.setTransform(NbVec3f(1, 0, 0), turn, NbVec3f(2, 3, 4), orientation, center);
  NbVec3f p;
  matrix.multVecMatrix(center, p);
  EXPECT_TRUE(p.equals(NbVec3f(6, 6, 7), 1e-5F));
  NbVec3f t;
  NbRotation r;
  NbVec3f s;
  NbRotation so;
  matrix.getTransform(t, r, s, so, center);
  EXPECT_TRUE(t.equals(NbVec3f(1, 0, 0), 1e-4F));
  EXPECT_TRUE(r.equals(turn, 1e-4F));
}

TEST(NbMatrix, PlainTransformsComeBackAsTheyWere) {
  Random random(3);
  for (int i = 0; i < 300; ++i) {
    const NbVec3f translation = random.vector(100);
    const NbRotation rotation = random.rotation();
    const NbVec3f scale = i % 3 == 0 ? NbVec3f(2, 2, 2) : random.scale();
    NbMatrix matrix;
    matrix.setTransform(translation, rotation, scale);
    const Transform parts(matrix);
    EXPECT_EQ(parts.translation, translation);
    EXPECT_TRUE(parts.rotation.equals(rotation, 1e-5F));
    EXPECT_TRUE(parts.scale.equals(scale, 1e-4F));
    EXPECT_TRUE(parts.orientation.equals(NbRotation(), 1e-5F));
    // What turns nothing loses nothing at all.
    matrix.setTransform(translation, NbRotation(), scale);
    const Transform exact(matrix);
    EXPECT_EQ(exact.translation, translation);
    EXPECT_EQ(exact.rotation, NbRotation());
    EXPECT_EQ(exact.scale, scale);
    EXPECT_EQ(exact.orientation, NbRotation());
  }
}

TEST(NbMatrix, AnyAffineMatrixComposesAgain) {
  Random random(4);
  for (int i = 0; i < 500; ++i) {
    NbMatrix matrix;
    for (int row = 0; row < 4; ++row) {
      for (int column = 0; column < 3; ++column) {
        matrix[row][column] = random.number(-3, 3);
      }
    }
    expectSameAfterDecomposition(matrix);
  }
}

TEST(NbMatrix, ShearedProductsComposeAgain) {
  Random random(5);
  for (int i = 0; i < 300; ++i) {
    NbMatrix a;
    NbMatrix b;
    a.setTransform(random.vector(10), random.rotation(), random.scale(), random.rotation());
    b.setTransform(random.vector(10), random.rotation(), NbVec3f(-1, 2, 0.01F), random.rotation());
    expectSameAfterDecomposition(a * b);
  }
}

TEST(NbMatrix, SingularMatricesDecomposeToFiniteParts) {
  NbMatrix flat;
  flat.setTransform(NbVec3f(1, 2, 3), NbRotation(NbVec3f(0, 1, 0), 0.5F), NbVec3f(2, 0, 3));
  expectSameAfterDecomposition(flat);
  EXPECT_TRUE(Transform(flat).scale.equals(NbVec3f(2, 0, 3), 1e-5F));
  EXPECT_TRUE(Transform(flat).rotation.equals(NbRotation(NbVec3f(0, 1, 0), 0.5F), 1e-5F));

  // The lost axis is the one that the rotation turned around.
  const NbRotation half(NbVec3f(1, 0, 0), kPi);
  flat.setTransform(NbVec3f(), half, NbVec3f(2, 0, 3));
  EXPECT_TRUE(Transform(flat).scale.equals(NbVec3f(2, 0, 3), 1e-5F));
  EXPECT_TRUE(Transform(flat).rotation.equals(half, 1e-5F));

  const NbMatrix line(1, 2, 3, 0, 2, 4, 6, 0, -1, -2, -3, 0, 0, 0, 0, 1);
  expectSameAfterDecomposition(line);

  NbMatrix zero;
  zero.setScale(0);
  EXPECT_EQ(Transform(zero).scale, NbVec3f(0, 0, 0));
  EXPECT_TRUE(Transform(zero).rotation.equals(NbRotation(), 1e-6F));

  NbMatrix broken;
  broken[1][1] = std::numeric_limits<float>::quiet_NaN();
  EXPECT_EQ(Transform(broken).scale, NbVec3f(1, 1, 1));
  EXPECT_EQ(Transform(broken).translation, NbVec3f(0, 0, 0));
}

TEST(NbMatrix, InverseUndoes) {
  Random random(6);
  for (int i = 0; i < 200; ++i) {
    NbMatrix matrix;
    matrix.setTransform(random.vector(50), random.rotation(), random.scale(), random.rotation());
    if (i % 2 == 0) {
      matrix[0][3] = 0.01F;
    }
    EXPECT_TRUE((matrix * matrix.inverse()).equals(NbMatrix(), 1e-3F));
  }
  NbMatrix tiny;
  tiny.setTransform(NbVec3f(1e6F, 0, 0), NbRotation(), NbVec3f(1e-5F, 1e-5F, 1e-5F));
  NbMatrix inverse;
  EXPECT_TRUE(tiny.invert(inverse));
  EXPECT_FLOAT_EQ(inverse[1][1], 1e5F);
}

TEST(NbMatrix, SingularMatricesHaveNoInverse) {
  NbMatrix flat;
  flat.setScale(NbVec3f(1, 0, 1));
  NbMatrix result;
  result.setScale(7);
  EXPECT_FALSE(flat.invert(result));
  EXPECT_EQ(result[0][0], 7.0F);
  EXPECT_TRUE(flat.inverse().isIdentity());
  const NbMatrix dependent(1, 2, 3, 0, 2, 4, 6, 0, 1, 0, 0, 0, 0, 0, 0, 1);
  EXPECT_FALSE(dependent.invert(result));
}

TEST(NbMatrix, DeterminantsAndPredicates) {
  NbMatrix m;
  EXPECT_TRUE(m.isIdentity());
  EXPECT_TRUE(m.isAffine());
  m.setTransform(NbVec3f(1, 2, 3), NbRotation(NbVec3f(1, 1, 1), 1), NbVec3f(2, 3, -4));
  EXPECT_NEAR(m.det3(), -24, 1e-4F);
  EXPECT_NEAR(m.det4(), -24, 1e-4F);
  EXPECT_FALSE(m.isIdentity());
  m[2][3] = 1;
  EXPECT_FALSE(m.isAffine());
  EXPECT_EQ(m.transpose()[3][2], 1.0F);
  EXPECT_EQ(m.transpose().transpose(), m);
}

TEST(NbMatrix, ProjectiveMatricesDivide) {
  NbMatrix m;
  m[2][3] = -1;
  m[3][3] = 0;
  NbVec3f p;
  m.multVecMatrix(NbVec3f(2, 4, -2), p);
  EXPECT_EQ(p, NbVec3f(1, 2, -1));
  m.multVecMatrix(NbVec3f(2, 4, 0), p);
  EXPECT_EQ(p, NbVec3f(2, 4, 0));
}

TEST(NbLine, ClosestPoints) {
  const NbLine x(NbVec3f(0, 0, 0), NbVec3f(5, 0, 0));
  EXPECT_EQ(x.getDirection(), NbVec3f(1, 0, 0));
  EXPECT_EQ(x.getClosestPoint(NbVec3f(3, 4, 5)), NbVec3f(3, 0, 0));
  NbVec3f a;
  NbVec3f b;
  EXPECT_TRUE(x.getClosestPoints(NbLine(NbVec3f(2, 1, 7), NbVec3f(2, 1, -7)), a, b));
  EXPECT_TRUE(a.equals(NbVec3f(2, 0, 0), 1e-6F));
  EXPECT_TRUE(b.equals(NbVec3f(2, 1, 0), 1e-6F));
  EXPECT_FALSE(x.getClosestPoints(NbLine(NbVec3f(3, 1, 0), NbVec3f(-3, 1, 0)), a, b));
  EXPECT_TRUE(b.equals(NbVec3f(0, 1, 0), 1e-6F));
}

TEST(NbLine, APointIsALineWithoutDirection) {
  const NbLine point(NbVec3f(1, 2, 3), NbVec3f(1, 2, 3));
  EXPECT_EQ(point.getClosestPoint(NbVec3f(9, 9, 9)), NbVec3f(1, 2, 3));
  NbVec3f a;
  NbVec3f b;
  EXPECT_FALSE(point.getClosestPoints(NbLine(), a, b));
  EXPECT_EQ(a, NbVec3f(1, 2, 3));
  EXPECT_EQ(b, NbVec3f(1, 0, 0));
}

TEST(NbPlane, ConstructionsAgree) {
  const NbPlane byDistance(NbVec3f(0, 0, 2), 3);
  const NbPlane byPoint(NbVec3f(0, 0, 1), NbVec3f(7, 8, 3));
  const NbPlane byPoints(NbVec3f(0, 0, 3), NbVec3f(1, 0, 3), NbVec3f(0, 1, 3));
  EXPECT_EQ(byDistance, byPoint);
  EXPECT_EQ(byDistance, byPoints);
  EXPECT_NE(byDistance, NbPlane());
  EXPECT_TRUE(byPoint.isInHalfSpace(NbVec3f(0, 0, 3)));
  EXPECT_TRUE(byPoint.isInHalfSpace(NbVec3f(0, 0, 4)));
  EXPECT_FALSE(byPoint.isInHalfSpace(NbVec3f(0, 0, 2)));
  EXPECT_FLOAT_EQ(byPoint.getDistance(NbVec3f(0, 0, 1)), -2);
}

TEST(NbPlane, MeetsLines) {
  const NbPlane plane(NbVec3f(0, 0, 1), 3.0F);
  NbVec3f p(9, 9, 9);
  EXPECT_FALSE(plane.intersect(NbLine(NbVec3f(0, 0, 1), NbVec3f(1, 0, 1)), p));
  EXPECT_EQ(p, NbVec3f(9, 9, 9));
  EXPECT_TRUE(plane.intersect(NbLine(NbVec3f(0, 0, 1), NbVec3f(1, 0, 2)), p));
  EXPECT_TRUE(p.equals(NbVec3f(2, 0, 3), 1e-5F));
}

TEST(NbPlane, TransformMovesItsPoints) {
  Random random(8);
  for (int i = 0; i < 100; ++i) {
    NbPlane plane(random.vector(1), random.vector(5));
    const NbVec3f on = plane.getClosestPoint(random.vector(5));
    const NbVec3f front = on + plane.getNormal();
    NbMatrix matrix;
    matrix.setTransform(random.vector(5), random.rotation(), random.scale());
    plane.transform(matrix);
    NbVec3f p;
    matrix.multVecMatrix(on, p);
    EXPECT_NEAR(plane.getDistance(p), 0, 1e-4F);
    matrix.multVecMatrix(front, p);
    EXPECT_GT(plane.getDistance(p), 0);
  }
  NbMatrix flat;
  flat.setScale(0);
  NbPlane plane;
  plane.transform(flat);
  EXPECT_EQ(plane, NbPlane());
}

} // namespace
