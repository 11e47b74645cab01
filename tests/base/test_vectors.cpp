#include "arbora/base/NbBox3f.h"
#include "arbora/base/NbColor.h"
#include "arbora/base/NbMatrix.h"
#include "arbora/base/NbVec2f.h"
#include "arbora/base/NbVec2i32.h"
#include "arbora/base/NbVec3f.h"
#include "arbora/base/NbVec4f.h"
#include "arbora/base/NbViewportRegion.h"

#include <cfloat>
#include <climits>
#include <cmath>
#include <gtest/gtest.h>
#include <type_traits>

namespace {

static_assert(std::is_trivially_copyable_v<NbVec3f> && sizeof(NbVec3f) == 3 * sizeof(float));
static_assert(std::is_trivially_copyable_v<NbVec2i32> && sizeof(NbVec2i32) == 8);
static_assert(sizeof(NbColor) == sizeof(NbVec3f));

TEST(Vectors, Arithmetic) {
  const NbVec3f a(1, 2, 3);
  const NbVec3f b(4, 5, 6);
  EXPECT_EQ(a + b, NbVec3f(5, 7, 9));
  EXPECT_EQ(b - a, NbVec3f(3, 3, 3));
  EXPECT_EQ(a * 2.0F, 2.0F * a);
  EXPECT_EQ(-a, NbVec3f(-1, -2, -3));
  EXPECT_EQ(a.dot(b), 32.0F);
  EXPECT_EQ(a.cross(b), NbVec3f(-3, 6, -3));
  NbVec3f c = a;
  c += b;
  c -= a;
  EXPECT_EQ(c, b);
  c.negate();
  EXPECT_EQ(c, -b);
  EXPECT_EQ(NbVec2f(3, 4).length(), 5.0F);
  EXPECT_EQ(NbVec4f(1, 1, 1, 1).length(), 2.0F);
  EXPECT_NE(NbVec2f(1, 2), NbVec2f(1, 3));
}

TEST(Vectors, GiveAndTakeTheirValues) {
  NbVec2i32 size;
  EXPECT_EQ(size, NbVec2i32(0, 0));
  size.setValue(3, 4);
  std::int32_t x = 0;
  std::int32_t y = 0;
  size.getValue(x, y);
  EXPECT_EQ(x, 3);
  EXPECT_EQ(y, 4);
  EXPECT_EQ(size.getValue()[1], 4);
  size[0] = 9;
  EXPECT_EQ(size, NbVec2i32(9, 4));
}

TEST(Vectors, IntegersWrapAround) {
  const NbVec2i32 unbounded(INT_MAX, INT_MIN);
  EXPECT_EQ(unbounded + NbVec2i32(1, -1), NbVec2i32(INT_MIN, INT_MAX));
  EXPECT_EQ(unbounded * 2, NbVec2i32(-2, 0));
  EXPECT_EQ(-unbounded, NbVec2i32(-INT_MAX, INT_MIN));
}

TEST(Vectors, NormalizeIsSafe) {
  NbVec3f zero;
  EXPECT_EQ(zero.normalize(), 0.0F);
  EXPECT_EQ(zero, NbVec3f(0, 0, 0));
  NbVec3f huge(1e30F, 0, 0);
  EXPECT_FLOAT_EQ(huge.normalize(), 1e30F);
  EXPECT_EQ(huge, NbVec3f(1, 0, 0));
  NbVec3f tiny(0, 1e-30F, 0);
  tiny.normalize();
  EXPECT_EQ(tiny, NbVec3f(0, 1, 0));
}

TEST(Vectors, EqualsWithinTolerance) {
  EXPECT_TRUE(NbVec3f(1, 2, 3).equals(NbVec3f(1.05F, 2, 2.95F), 0.1F));
  EXPECT_FALSE(NbVec3f(1, 2, 3).equals(NbVec3f(1.2F, 2, 3), 0.1F));
  EXPECT_FALSE(NbVec3f(NAN, 0, 0).equals(NbVec3f(NAN, 0, 0), 1.0F));
}

TEST(NbColor, PacksAndUnpacks) {
  EXPECT_EQ(NbColor(1, 0.5F, 0).getPackedValue(), 0xFF8000FFU);
  EXPECT_EQ(NbColor(2, -1, NAN).getPackedValue(1), 0xFF000000U);
  float transparency = 0;
  NbColor color;
  color.setPackedValue(0x00FF0080U, transparency);
  EXPECT_EQ(color, NbColor(0, 1, 0));
  EXPECT_NEAR(transparency, 0.498F, 0.001F);
}

TEST(NbColor, ConvertsHueSaturationValue) {
  EXPECT_TRUE(NbColor().setHSVValue(0, 1, 1).equals(NbColor(1, 0, 0), 1e-6F));
  EXPECT_TRUE(NbColor().setHSVValue(1.0F / 3, 1, 1).equals(NbColor(0, 1, 0), 1e-5F));
  EXPECT_TRUE(NbColor().setHSVValue(2.0F / 3, 1, 0.5F).equals(NbColor(0, 0, 0.5F), 1e-5F));
  EXPECT_TRUE(NbColor().setHSVValue(0.7F, 0, 0.25F).equals(NbColor(0.25F, 0.25F, 0.25F), 1e-6F));
  for (float hue = 0; hue < 0.99F; hue += 0.07F) {
    float h = 0;
    float s = 0;
    float v = 0;
    NbColor().setHSVValue(hue, 0.6F, 0.8F).getHSVValue(h, s, v);
    EXPECT_NEAR(h, hue, 1e-5F);
    EXPECT_NEAR(s, 0.6F, 1e-5F);
    EXPECT_NEAR(v, 0.8F, 1e-6F);
  }
}

TEST(NbBox3f, KeepsItsSixValues) {
  const NbBox3f notMeasured(-1, -1, -1, -1, -1, -1);
  EXPECT_EQ(notMeasured.getMin(), NbVec3f(-1, -1, -1));
  EXPECT_EQ(notMeasured.getMax(), NbVec3f(-1, -1, -1));
  EXPECT_FALSE(notMeasured != NbBox3f(-1, -1, -1, -1, -1, -1));
  EXPECT_TRUE(notMeasured != NbBox3f());
  EXPECT_TRUE(notMeasured != NbBox3f(-1, -1, -1, -1, -1, 0));
  const NbBox3f reversed(3, 2, 1, -3, -2, -1);
  EXPECT_EQ(reversed.getMin(), NbVec3f(3, 2, 1));
  EXPECT_TRUE(reversed.isEmpty());
}

TEST(NbBox3f, SizeAndCenter) {
  const NbBox3f box(0, -1, 2, 4, 1, 2);
  float x = 0;
  float y = 0;
  float z = 0;
  box.getSize(x, y, z);
  EXPECT_EQ(NbVec3f(x, y, z), NbVec3f(4, 2, 0));
  EXPECT_EQ(box.getCenter(), NbVec3f(2, 0, 2));
  EXPECT_FALSE(box.hasVolume());
  EXPECT_FALSE(box.isEmpty());
  NbBox3f().getSize(x, y, z);
  EXPECT_EQ(NbVec3f(x, y, z), NbVec3f(0, 0, 0));
  EXPECT_EQ(NbBox3f(-FLT_MAX, 0, 0, FLT_MAX, 0, 0).getCenter(), NbVec3f(0, 0, 0));
}

TEST(NbBox3f, ExtendsAndIntersects) {
  NbBox3f box;
  EXPECT_TRUE(box.isEmpty());
  box.extendBy(NbBox3f());
  EXPECT_TRUE(box.isEmpty());
  box.extendBy(NbVec3f(1, 1, 1));
  box.extendBy(NbBox3f(-1, 0, 0, 0, 2, 2));
  EXPECT_EQ(box, NbBox3f(-1, 0, 0, 1, 2, 2));
  EXPECT_TRUE(box.intersect(NbVec3f(1, 2, 2)));
  EXPECT_FALSE(box.intersect(NbVec3f(1.1F, 0, 0)));
  EXPECT_TRUE(box.intersect(NbBox3f(1, 2, 2, 5, 5, 5)));
  EXPECT_FALSE(box.intersect(NbBox3f(2, 2, 2, 5, 5, 5)));
  EXPECT_FALSE(box.intersect(NbBox3f()));
}

TEST(NbBox3f, TransformKeepsAllCornersInside) {
  NbMatrix matrix;
  matrix.setTransform(NbVec3f(1, 2, 3), NbRotation(NbVec3f(1, 1, 0), 0.7F), NbVec3f(2, -1, 0.5F));
  NbMatrix projective = matrix;
  projective[0][3] = 0.1F;
  for (const NbMatrix& m : {matrix, projective}) {
    const NbBox3f box(-1, -2, -3, 1, 2, 3);
    NbBox3f moved = box;
    moved.transform(m);
    NbBox3f exact;
    for (unsigned i = 0; i < 8; ++i) {
      NbVec3f p((i & 1U) ? 1.0F : -1.0F, (i & 2U) ? 2.0F : -2.0F, (i & 4U) ? 3.0F : -3.0F);
      m.multVecMatrix(p, p);
      exact.extendBy(p);
    }
    EXPECT_TRUE(moved.getMin().equals(exact.getMin(), 1e-5F));
    EXPECT_TRUE(moved.getMax().equals(exact.getMax(), 1e-5F));
  }
  NbBox3f empty;
  empty.transform(matrix);
  EXPECT_EQ(empty, NbBox3f());
}

TEST(NbViewportRegion, DefaultsAndResizing) {
  NbViewportRegion region;
  EXPECT_EQ(region.getWindowSize(), NbVec2i32(100, 100));
  EXPECT_EQ(region.getViewportSizePixels(), NbVec2i32(100, 100));
  region.setViewportPixels(50, 0, 50, 25);
  EXPECT_EQ(region.getViewportAspectRatio(), 2.0F);
  region.setWindowSize(200, 400);
  EXPECT_EQ(region.getViewportOriginPixels(), NbVec2i32(100, 0));
  EXPECT_EQ(region.getViewportSizePixels(), NbVec2i32(100, 100));
  EXPECT_EQ(NbViewportRegion(0, -5).getWindowSize(), NbVec2i32(1, 1));
  EXPECT_NE(region, NbViewportRegion(200, 400));
}

} // namespace
