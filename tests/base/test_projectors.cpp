#include "arbora/base/NbBox3f.h"
#include "arbora/base/NbLineProjector.h"
#include "arbora/base/NbPlaneProjector.h"
#include "arbora/base/NbViewVolume.h"

#include <cmath>
#include <gtest/gtest.h>
#include <memory>

namespace {

constexpr float kPi = 3.14159265F;

// At (0, 0, 10), looks along -z, 45 degrees up and down.
NbViewVolume perspectiveView() {
  NbViewVolume volume;
  volume.perspective(kPi / 2, 2, 1, 100);
  volume.translateCamera(NbVec3f(0, 0, 10));
  return volume;
}

bool isFinite(const NbVec3f& v) { return std::isfinite(v[0]) && std::isfinite(v[1]) && std::isfinite(v[2]); }

TEST(NbViewVolume, DescribesAPerspective) {
  const NbViewVolume volume = perspectiveView();
  EXPECT_EQ(volume.getProjectionType(), NbViewVolume::PERSPECTIVE);
  EXPECT_EQ(volume.getProjectionPoint(), NbVec3f(0, 0, 10));
  EXPECT_EQ(volume.getProjectionDirection(), NbVec3f(0, 0, -1));
  EXPECT_FLOAT_EQ(volume.getHeight(), 2);
  EXPECT_FLOAT_EQ(volume.getWidth(), 4);
  EXPECT_FLOAT_EQ(volume.getDepth(), 99);
  EXPECT_TRUE(volume.getPlane(10).getClosestPoint(NbVec3f(1, 1, 5)).equals(NbVec3f(1, 1, 0), 1e-5F));
  EXPECT_EQ(volume.getPlane(10).getNormal(), NbVec3f(0, 0, 1));
  EXPECT_FLOAT_EQ(volume.getWorldToScreenScale(NbVec3f(0, 0, 0), 0.5F), 10);
}

TEST(NbViewVolume, ScreenAndWorldAgree) {
  NbViewVolume perspective = perspectiveView();
  NbViewVolume ortho;
  ortho.ortho(-4, 2, -1, 5, 2, 20);
  for (NbViewVolume volume : {perspective, ortho, perspective.narrow(0.25F, 0, 0.5F, 1)}) {
    volume.rotateCamera(NbRotation(NbVec3f(1, 2, 0), 0.7F));
    volume.translateCamera(NbVec3f(3, -2, 1));
    for (const NbVec2f& screen : {NbVec2f(0, 0), NbVec2f(0.5F, 0.5F), NbVec2f(0.9F, 0.2F)}) {
      NbVec3f onNear;
      NbVec3f onFar;
      volume.projectPointToLine(screen, onNear, onFar);
      NbVec3f back;
      volume.projectToScreen(onNear, back);
      EXPECT_TRUE(back.equals(NbVec3f(screen[0], screen[1], 0), 1e-4F));
      volume.projectToScreen(onFar, back);
      EXPECT_TRUE(back.equals(NbVec3f(screen[0], screen[1], 1), 1e-4F));
      NbLine line;
      volume.projectPointToLine(screen, line);
      EXPECT_TRUE(line.getClosestPoint(onFar).equals(onFar, 1e-3F));
      EXPECT_GT(line.getDirection().dot(volume.getProjectionDirection()), 0);
      NbVec3f clip;
      volume.getMatrix().multVecMatrix(onFar, clip);
      EXPECT_TRUE(clip.equals(NbVec3f(2 * screen[0] - 1, 2 * screen[1] - 1, 1), 1e-3F));
    }
  }
}

TEST(NbViewVolume, PointsAtTheEyeStayFinite) {
  const NbViewVolume volume = perspectiveView();
  for (const NbVec3f& point : {NbVec3f(0, 0, 10), NbVec3f(1, 1, 10), NbVec3f(1e30F, 0, 11)}) {
    NbVec3f screen;
    volume.projectToScreen(point, screen);
    EXPECT_TRUE(isFinite(screen));
    EXPECT_LT(screen[2], 0);
  }
}

TEST(NbViewVolume, SeesBoxes) {
  NbViewVolume ortho;
  ortho.ortho(-1, 1, -1, 1, 1, 10);
  for (const NbViewVolume& volume : {perspectiveView(), ortho}) {
    const NbVec3f front = volume.getSightPoint(5);
    const NbVec3f half(0.5F, 0.5F, 0.5F);
    EXPECT_TRUE(volume.intersect(NbBox3f(front - half, front + half)));
    EXPECT_TRUE(volume.intersect(front));
    const NbVec3f behind = volume.getSightPoint(-5);
    EXPECT_FALSE(volume.intersect(NbBox3f(behind - half, behind + half)));
    const NbVec3f beside = front + NbVec3f(40, 0, 0);
    EXPECT_FALSE(volume.intersect(NbBox3f(beside - half, beside + half)));
    EXPECT_FALSE(volume.intersect(volume.getSightPoint(200)));
    EXPECT_FALSE(volume.intersect(NbBox3f()));
    EXPECT_TRUE(volume.intersect(NbBox3f(-500, -500, -500, 500, 500, 500)));
  }
}

TEST(NbViewVolume, FlatVolumesAreWidened) {
  NbViewVolume flat;
  flat.ortho(1, 1, 0, 0, 5, 5);
  NbViewVolume closed;
  closed.perspective(0, 0, -1, -1);
  for (const NbViewVolume& volume : {flat, closed}) {
    NbVec3f screen;
    volume.projectToScreen(NbVec3f(1, 2, -3), screen);
    EXPECT_TRUE(isFinite(screen));
    const NbMatrix matrix = volume.getMatrix();
    for (int i = 0; i < 16; ++i) {
      EXPECT_TRUE(std::isfinite(matrix.getValue()[i]));
    }
  }
}

TEST(NbPlaneProjector, WorksInItsOwnSpace) {
  NbPlaneProjector projector;
  projector.setViewVolume(perspectiveView());
  projector.setPlane(NbPlane(NbVec3f(0, 0, 1), NbVec3f(0, 0, 0)));
  EXPECT_TRUE(projector.project(NbVec2f(0.5F, 0.75F)).equals(NbVec3f(0, 5, 0), 1e-4F));
  NbMatrix space;
  space.setTransform(NbVec3f(1, 0, 0), NbRotation(), NbVec3f(2, 2, 2));
  projector.setWorkingSpace(space);
  EXPECT_TRUE(projector.project(NbVec2f(0.5F, 0.75F)).equals(NbVec3f(-0.5F, 2.5F, 0), 1e-4F));
  EXPECT_TRUE(projector.getVector(NbVec2f(0.5F, 0.5F), NbVec2f(0.5F, 0.75F)).equals(NbVec3f(0, 2.5F, 0), 1e-4F));
  const NbLine ray(NbVec3f(3, 4, 9), NbVec3f(3, 4, 0));
  NbVec3f p;
  EXPECT_TRUE(projector.intersect(ray, p));
  EXPECT_TRUE(p.equals(NbVec3f(1, 2, 0), 1e-5F));
  EXPECT_EQ(projector.intersect(ray), p);
}

TEST(NbPlaneProjector, ParallelRaysMissButGiveAPointOnThePlane) {
  NbPlaneProjector projector;
  projector.setPlane(NbPlane(NbVec3f(0, 0, 1), 2.0F));
  const NbLine ray(NbVec3f(1, 1, 7), NbVec3f(5, 1, 7));
  NbVec3f p;
  EXPECT_FALSE(projector.intersect(ray, p));
  EXPECT_TRUE(p.equals(NbVec3f(1, 1, 2), 1e-5F));
  NbViewVolume volume = perspectiveView();
  projector.setViewVolume(volume);
  projector.setPlane(NbPlane(NbVec3f(0, 1, 0), 3.0F));
  EXPECT_FALSE(projector.project(NbVec2f(0.5F, 0.5F), p));
  EXPECT_FLOAT_EQ(p[1], 3);
  EXPECT_TRUE(isFinite(p));
}

TEST(NbLineProjector, FindsTheClosestPointOfItsLine) {
  NbLineProjector projector;
  projector.setViewVolume(perspectiveView());
  projector.setLine(NbLine(NbVec3f(0, 2, 0), NbVec3f(1, 2, 0)));
  NbVec3f p;
  EXPECT_TRUE(projector.project(NbVec2f(0.75F, 0.6F), p));
  EXPECT_TRUE(p.equals(NbVec3f(10, 2, 0), 1e-4F));
  EXPECT_TRUE(projector.getVector(NbVec2f(0.5F, 0.5F), NbVec2f(0.75F, 0.5F))[0] > 9);
  NbMatrix space;
  space.setTranslate(NbVec3f(100, 0, 0));
  projector.setWorkingSpace(space);
  EXPECT_TRUE(projector.intersect(NbLine(NbVec3f(103, 9, 4), NbVec3f(103, 9, -4)), p));
  EXPECT_TRUE(p.equals(NbVec3f(3, 2, 0), 1e-4F));
}

TEST(NbLineProjector, ParallelRaysMissButGiveAPointOnTheLine) {
  NbLineProjector projector;
  NbVec3f p;
  EXPECT_FALSE(projector.intersect(NbLine(NbVec3f(4, 1, 1), NbVec3f(9, 1, 1)), p));
  EXPECT_TRUE(p.equals(NbVec3f(4, 0, 0), 1e-5F));
  EXPECT_EQ(projector.intersect(NbLine(NbVec3f(4, 1, 1), NbVec3f(9, 1, 1))), p);
  projector.setViewVolume(perspectiveView());
  projector.setLine(NbLine(NbVec3f(0, 0, 0), NbVec3f(0, 0, 1)));
  EXPECT_FALSE(projector.project(NbVec2f(0.5F, 0.5F), p));
  EXPECT_TRUE(isFinite(p));
}

TEST(Projectors, CopiesKeepTheSettings) {
  NbMatrix space;
  space.setScale(3);
  NbPlaneProjector plane;
  plane.setPlane(NbPlane(NbVec3f(0, 1, 0), 4.0F));
  plane.setWorkingSpace(space);
  const NbProjector& base = plane;
  const std::unique_ptr<NbProjector> copy(base.copy());
  EXPECT_EQ(copy->getWorkingSpace(), space);
  const NbLine ray(NbVec3f(0, 0, 0), NbVec3f(0, 1, 0));
  EXPECT_EQ(copy->intersect(ray), plane.intersect(ray));

  NbLineProjector line;
  line.setLine(NbLine(NbVec3f(1, 1, 1), NbVec3f(1, 2, 1)));
  const std::unique_ptr<NbLineProjector> lineCopy(line.copy());
  EXPECT_EQ(lineCopy->getLine().getPosition(), NbVec3f(1, 1, 1));
}

TEST(Projectors, ASingularWorkingSpaceIsTakenAsTheIdentity) {
  NbMatrix flat;
  flat.setScale(0);
  NbPlaneProjector projector;
  projector.setWorkingSpace(flat);
  EXPECT_TRUE(projector.getWorkingSpace().isIdentity());
  EXPECT_TRUE(isFinite(projector.project(NbVec2f(0.3F, 0.3F))));
}

} // namespace
