// Picks: rays, cameras, styles, clip planes, order, what a picked point tells.
#include "SceneTest.h"

#include <cmath>
#include <limits>

#include "arbora/scene/NkClipPlane.h"
#include "arbora/scene/NkCube.h"
#include "arbora/scene/NkCylinder.h"
#include "arbora/scene/NkDetail.h"
#include "arbora/scene/NkPerspectiveCamera.h"
#include "arbora/scene/NkPickStyle.h"
#include "arbora/scene/NkRayPickAction.h"
#include "arbora/scene/NkScale.h"
#include "arbora/scene/NkSphere.h"
#include "arbora/scene/NkSwitch.h"
#include "arbora/scene/NkTransform.h"
#include "arbora/scene/NkTranslation.h"

using arbora::Ref;

namespace {

const NbViewportRegion kViewport(100, 100);

/// A pick along -z at (x, y), from z = 100.
class Pick : public NkRayPickAction {
public:
  explicit Pick(NkNode* root, float x = 0, float y = 0, bool all = false) : NkRayPickAction(kViewport) {
    setRay(NbVec3f(x, y, 100), NbVec3f(0, 0, -1));
    setPickAll(all);
    apply(root);
  }
  bool hit() const { return getPickedPointsListLength() > 0; }
  float z() const {
    return getPickedPoint() ? getPickedPoint()->getPoint()[2] : std::numeric_limits<float>::quiet_NaN();
  }
};

class TestDetail : public NkDetail {
public:
  explicit TestDetail(int number = 0) : m_number(number) { ++s_count; }
  TestDetail(const TestDetail& other) : NkDetail(other), m_number(other.m_number) { ++s_count; }
  ~TestDetail() override { --s_count; }
  NkType getTypeId() const override { return NkDetail::getClassTypeId(); }
  NkDetail* copy() const override { return new TestDetail(*this); }
  int m_number;
  static int s_count;
};
int TestDetail::s_count = 0;

using Picking = SceneTest;

} // namespace

// ---- Rays and shapes

TEST_F(Picking, ARayHitsTheNearestPointOfAShape) {
  const Ref<NkSeparator> scene = read("Translation { translation 5 0 0 } Cube { width 4 height 4 depth 6 }");
  ASSERT_TRUE(scene);
  const Pick pick(scene.get(), 6, 1);
  ASSERT_EQ(pick.getPickedPointsListLength(), 1);
  const NkPickedPoint& point = *pick.getPickedPoint();
  EXPECT_TRUE(point.getPoint().equals(NbVec3f(6, 1, 3), 1e-4F));
  EXPECT_TRUE(point.getObjectPoint().equals(NbVec3f(1, 1, 3), 1e-4F));
  EXPECT_TRUE(point.getNormal().equals(NbVec3f(0, 0, 1), 1e-5F));
  EXPECT_TRUE(point.getTextureCoords().equals(NbVec2f(0.75F, 0.75F), 1e-4F));
  EXPECT_NEAR(point.getDistance(), 97, 1e-3);
  EXPECT_EQ(point.getPath()->getTail(), scene->getChild(1));
  EXPECT_EQ(point.getPath()->getLength(), 2);
  EXPECT_FALSE(Pick(scene.get(), 2.9F, 0).hit());
  EXPECT_TRUE(Pick(scene.get(), 3.1F, 0).hit());
}

TEST_F(Picking, TheMiddleOfAFaceIsHit) {
  // Where the diagonals of its triangles run.
  const Ref<NkCube> cube(new NkCube);
  for (const float x : {0.0F, 0.5F, -0.25F, 1.0F}) EXPECT_TRUE(Pick(cube.get(), x, x).hit()) << x;
  EXPECT_FALSE(Pick(cube.get(), 1.001F, 0).hit());
}

TEST_F(Picking, RoundShapesAreHitWhereTheyAre) {
  const Ref<NkSphere> sphere(new NkSphere);
  EXPECT_NEAR(Pick(sphere.get()).z(), 1, 0.01);
  EXPECT_NEAR(Pick(sphere.get(), 0.5F, 0.5F).z(), std::sqrt(0.5), 0.01);
  EXPECT_FALSE(Pick(sphere.get(), 0.8F, 0.8F).hit());
  const Ref<NkSeparator> cone = read("Cone { }");
  ASSERT_TRUE(cone);
  EXPECT_NEAR(Pick(cone.get(), 0, 0).z(), 0.5, 0.01);
  EXPECT_FALSE(Pick(cone.get(), 0.8F, 0.8F).hit());
  EXPECT_TRUE(Pick(cone.get(), 0.8F, -0.8F).hit());
}

TEST_F(Picking, APickFromInsideHitsTheFarSide) {
  const Ref<NkSphere> sphere(new NkSphere);
  NkRayPickAction pick(kViewport);
  pick.setRay(NbVec3f(0, 0, 0), NbVec3f(0, 0, -2));
  pick.apply(sphere.get());
  ASSERT_TRUE(pick.getPickedPoint());
  EXPECT_NEAR(pick.getPickedPoint()->getPoint()[2], -1, 0.01);
  EXPECT_NEAR(pick.getPickedPoint()->getDistance(), 1, 0.01);
}

TEST_F(Picking, NormalsStayUprightUnderUnevenScales) {
  const Ref<NkSeparator> scene =
      read("Transform { scaleFactor 4 1 1 rotation 0 0 1 0.5 scaleOrientation 0 1 0 0.3 } Sphere { }");
  ASSERT_TRUE(scene);
  const Pick pick(scene.get(), 0.5F, 0.2F);
  ASSERT_TRUE(pick.hit());
  const NkPickedPoint& point = *pick.getPickedPoint();
  EXPECT_NEAR(point.getNormal().length(), 1, 1e-5);
  // At right angles to what lies in the surface.
  const NbVec3f normal = point.getObjectNormal();
  const NbVec3f inSurface = normal.cross(NbVec3f(1, 2, 3));
  NbVec3f inWorld;
  point.getObjectToWorld().multDirMatrix(inSurface, inWorld);
  EXPECT_NEAR(inWorld.dot(point.getNormal()), 0, 1e-4);
}

TEST_F(Picking, FlatShapesAreHit) {
  const Ref<NkSeparator> cube = read("Cube { depth 0 }");
  ASSERT_TRUE(cube);
  EXPECT_NEAR(Pick(cube.get(), 0.9F, 0.9F).z(), 0, 1e-4);
  EXPECT_TRUE(Pick(cube.get(), 0.9F, 0.9F).getPickedPoint()->getNormal().equals(NbVec3f(0, 0, 1), 1e-5F));
  EXPECT_FALSE(Pick(cube.get(), 1.1F, 0.9F).hit());
  // A disc is no square.
  const Ref<NkSeparator> disc = read("Rotation { rotation 1 0 0 1.5707963 } Cylinder { height 0 }");
  ASSERT_TRUE(disc);
  EXPECT_TRUE(Pick(disc.get(), 0.6F, 0.6F).hit());
  EXPECT_FALSE(Pick(disc.get(), 0.9F, 0.9F).hit());
  const Ref<NkSeparator> sphere = read("Sphere { radius 0 }");
  ASSERT_TRUE(sphere);
  EXPECT_FALSE(Pick(sphere.get()).hit());
}

TEST_F(Picking, MirroredShapesAreHitFlatSpacesAreNot) {
  const Ref<NkSeparator> mirrored = read("Scale { scaleFactor -2 1 1 } Cube { }");
  ASSERT_TRUE(mirrored);
  EXPECT_NEAR(Pick(mirrored.get(), 1.9F, 0).z(), 1, 1e-4);
  const Ref<NkSeparator> flat = read("Scale { scaleFactor 1 1 0 } Cube { }");
  ASSERT_TRUE(flat);
  EXPECT_FALSE(Pick(flat.get()).hit());
}

TEST_F(Picking, SmallAndFarShapesAreHit) {
  const Ref<NkSeparator> scene =
      read("Translation { translation 1000 0 0 } Scale { scaleFactor 1e-4 1e-4 1e-4 } Cube { }");
  ASSERT_TRUE(scene);
  EXPECT_TRUE(Pick(scene.get(), 1000, 0).hit());
}

TEST_F(Picking, TheRangeOfARayCounts) {
  const Ref<NkCube> cube(new NkCube);
  NkRayPickAction pick(kViewport);
  const auto zWith = [&](float nearDistance, float farDistance) {
    pick.setRay(NbVec3f(0, 0, 100), NbVec3f(0, 0, -5), nearDistance, farDistance);
    pick.apply(cube.get());
    return pick.getPickedPoint() ? pick.getPickedPoint()->getPoint()[2] : 1000.0F;
  };
  EXPECT_NEAR(zWith(-1, -1), 1, 1e-4);
  EXPECT_NEAR(zWith(0, 99.5F), 1, 1e-4);
  EXPECT_EQ(zWith(0, 98.5F), 1000);
  EXPECT_NEAR(zWith(100, -1), -1, 1e-4);
  EXPECT_EQ(zWith(102, -1), 1000);
  pick.setRay(NbVec3f(0, 0, 100), NbVec3f(0, 0, 1));
  pick.apply(cube.get());
  EXPECT_FALSE(pick.getPickedPoint()) << "what lies behind the start isn't hit";
  pick.setRay(NbVec3f(0, 0, 0), NbVec3f(0, 0, 0));
  pick.apply(cube.get());
  EXPECT_FALSE(pick.getPickedPoint()) << "a ray needs a direction";
}

// ---- Cameras

TEST_F(Picking, NothingIsPickedAheadOfACamera) {
  const Ref<NkSeparator> scene = read("Cube { } PerspectiveCamera { position 0 0 5 }");
  ASSERT_TRUE(scene);
  NkRayPickAction pick(kViewport);
  pick.setPoint(NbVec2i32(50, 50));
  pick.apply(scene.get());
  EXPECT_EQ(pick.getPickedPointsListLength(), 0);
  EXPECT_FALSE(pick.getPickedPoint());
}

TEST_F(Picking, APixelIsPickedByTheCamera) {
  // 10 by 10 units on 100 by 100 pixels.
  const Ref<NkSeparator> scene = read("OrthographicCamera { position 0 0 5 height 10 } Separator { Translation { "
                                      "translation 2 3 0 } Cube { width 1 height 1 } }");
  ASSERT_TRUE(scene);
  NkRayPickAction pick(kViewport);
  const auto hits = [&](int x, int y) {
    pick.setPoint(NbVec2i32(x, y));
    pick.apply(scene.get());
    return pick.getPickedPointsListLength() == 1;
  };
  EXPECT_TRUE(hits(70, 80));
  ASSERT_TRUE(pick.getPickedPoint());
  EXPECT_TRUE(pick.getPickedPoint()->getPoint().equals(NbVec3f(2.05F, 3.05F, 1), 1e-4F)) << "the middle of the pixel";
  // From the first to the last pixel of the cube.
  EXPECT_TRUE(hits(65, 75));
  EXPECT_FALSE(hits(64, 75));
  EXPECT_FALSE(hits(65, 74));
  EXPECT_TRUE(hits(74, 84));
  EXPECT_FALSE(hits(75, 84));
  EXPECT_FALSE(hits(20, 70)) << "y counts upwards";
}

TEST_F(Picking, ThePixelCountsFromTheWindowsCornerNotTheViewports) {
  const Ref<NkSeparator> scene = read("OrthographicCamera { position 0 0 5 height 10 } Cube { width 1 height 1 }");
  ASSERT_TRUE(scene);
  NbViewportRegion viewport(300, 200);
  viewport.setViewportPixels(100, 50, 100, 100);
  NkRayPickAction pick(viewport);
  pick.setPoint(NbVec2i32(150, 100));
  pick.apply(scene.get());
  EXPECT_EQ(pick.getPickedPointsListLength(), 1);
  pick.setPoint(NbVec2i32(50, 50));
  pick.apply(scene.get());
  EXPECT_EQ(pick.getPickedPointsListLength(), 0);
}

TEST_F(Picking, ANormalizedPointInAPerspective) {
  const Ref<NkSeparator> scene =
      read("PerspectiveCamera { position 0 0 10 heightAngle 1.5707963 nearDistance 1 farDistance 100 } Cube { }");
  ASSERT_TRUE(scene);
  NkRayPickAction pick(kViewport);
  pick.setNormalizedPoint(NbVec2f(0.5F, 0.5F));
  pick.apply(scene.get());
  ASSERT_TRUE(pick.getPickedPoint());
  EXPECT_TRUE(pick.getPickedPoint()->getPoint().equals(NbVec3f(0, 0, 1), 1e-4F));
  EXPECT_NEAR(pick.getPickedPoint()->getDistance(), 8, 1e-3) << "from the near plane";
  pick.setNormalizedPoint(NbVec2f(0.5F, 0.57F));
  pick.apply(scene.get());
  EXPECT_FALSE(pick.getPickedPoint());
}

TEST_F(Picking, WhatLiesOutsideTheNearAndFarPlanesIsNotPicked) {
  const Ref<NkSeparator> scene = read("OrthographicCamera { position 0 0 5 nearDistance 1 farDistance 3 } Cube { } "
                                      "Translation { translation 0 0 4 } Cube { depth 1 }");
  ASSERT_TRUE(scene);
  NkRayPickAction pick(kViewport);
  pick.setPoint(NbVec2i32(50, 50));
  pick.apply(scene.get());
  // The second cube begins ahead of the near plane and ends behind it: its far side is met.
  ASSERT_TRUE(pick.getPickedPoint());
  EXPECT_NEAR(pick.getPickedPoint()->getPoint()[2], 3.5, 1e-4);
}

TEST_F(Picking, ASecondCameraRulesBehindIt) {
  const Ref<NkSeparator> scene = read("OrthographicCamera { position 0 0 5 height 10 } "
                                      "Separator { OrthographicCamera { position 100 0 5 height 2 } Separator { "
                                      "Translation { translation 100 0 0 } Cube { } } } "
                                      "Separator { Translation { translation 4 4 0 } Cube { width 1 height 1 } }");
  ASSERT_TRUE(scene);
  NkRayPickAction pick(kViewport);
  pick.setPickAll(true);
  pick.setPoint(NbVec2i32(90, 90));
  pick.apply(scene.get());
  EXPECT_EQ(pick.getPickedPointsListLength(), 2);
}

TEST_F(Picking, AGivenRayNeedsNoCamera) {
  const Ref<NkSeparator> scene = read("Cube { } OrthographicCamera { position 50 0 5 } Cube { }");
  ASSERT_TRUE(scene);
  EXPECT_EQ(Pick(scene.get(), 0, 0, true).getPickedPointsListLength(), 2);
}

TEST_F(Picking, ARadiusFindsWhatIsNearThePoint) {
  const Ref<NkSeparator> scene = read("OrthographicCamera { position 0 0 5 height 10 } Cube { width 1 height 1 }");
  ASSERT_TRUE(scene);
  NkRayPickAction pick(kViewport);
  pick.setPoint(NbVec2i32(58, 50));
  pick.apply(scene.get());
  EXPECT_FALSE(pick.getPickedPoint());
  pick.setRadius(5);
  pick.apply(scene.get());
  EXPECT_TRUE(pick.getPickedPoint());
  pick.setPoint(NbVec2i32(65, 50));
  pick.apply(scene.get());
  EXPECT_FALSE(pick.getPickedPoint());
}

// ---- Order

TEST_F(Picking, TheNearestIsKeptOrAllInOrder) {
  const Ref<NkSeparator> scene = read("Separator { Cube { } } Separator { Translation { translation 0 0 10 } Cube { } "
                                      "} Separator { Translation { translation 0 0 -10 } Cube { } }");
  ASSERT_TRUE(scene);
  EXPECT_NEAR(Pick(scene.get()).z(), 11, 1e-4);
  EXPECT_EQ(Pick(scene.get()).getPickedPointsListLength(), 1);
  const Pick all(scene.get(), 0, 0, true);
  ASSERT_EQ(all.getPickedPointsListLength(), 3);
  EXPECT_NEAR(all.getPickedPoint(0)->getPoint()[2], 11, 1e-4);
  EXPECT_NEAR(all.getPickedPoint(1)->getPoint()[2], 1, 1e-4);
  EXPECT_NEAR(all.getPickedPoint(2)->getPoint()[2], -9, 1e-4);
  EXPECT_NEAR(all.getUnsortedPickedPoint(0)->getPoint()[2], 1, 1e-4);
  EXPECT_NEAR(all.getUnsortedPickedPoint(1)->getPoint()[2], 11, 1e-4);
  EXPECT_EQ(all.getPickedPointList().size(), 3U);
  for (const int outside : {-1, 3}) {
    EXPECT_FALSE(all.getPickedPoint(outside));
    EXPECT_FALSE(all.getUnsortedPickedPoint(outside));
  }
}

TEST_F(Picking, TheFirstOfEqualsIsKept) {
  const Ref<NkSeparator> scene = read("Cube { } Cube { }");
  ASSERT_TRUE(scene);
  EXPECT_EQ(Pick(scene.get()).getPickedPoint()->getPath()->getTail(), scene->getChild(0));
}

TEST_F(Picking, AnActionIsUsedAgain) {
  const Ref<NkCube> cube(new NkCube);
  Pick pick(cube.get());
  pick.apply(cube.get());
  EXPECT_EQ(pick.getPickedPointsListLength(), 1);
  cube->width = 0.5F;
  pick.setRay(NbVec3f(0.5F, 0, 100), NbVec3f(0, 0, -1));
  pick.apply(cube.get());
  EXPECT_EQ(pick.getPickedPointsListLength(), 0);
}

TEST_F(Picking, APathIsPickedAlone) {
  const Ref<NkSeparator> scene = read("Separator { Translation { translation 0 0 3 } Cube { } Sphere { } } Cube { }");
  ASSERT_TRUE(scene);
  const Ref<NkPath> path(NkPath::create(scene.get()));
  path->append(0);
  path->append(2);
  NkRayPickAction pick(kViewport);
  pick.setRay(NbVec3f(0, 0, 100), NbVec3f(0, 0, -1));
  pick.setPickAll(true);
  pick.apply(path.get());
  ASSERT_EQ(pick.getPickedPointsListLength(), 1);
  EXPECT_EQ(pick.getPickedPoint()->getPath()->getTail()->getTypeId(), NkSphere::getClassTypeId());
  EXPECT_NEAR(pick.getPickedPoint()->getPoint()[2], 4, 0.01);
}

// ---- Pick styles and clip planes

TEST_F(Picking, PickStyles) {
  const Ref<NkSeparator> scene = read("PickStyle { style BOUNDING_BOX } Sphere { }");
  ASSERT_TRUE(scene);
  auto* style = static_cast<NkPickStyle*>(scene->getChild(0));
  const Pick box(scene.get(), 0.9F, 0.8F);
  ASSERT_TRUE(box.hit());
  EXPECT_TRUE(box.getPickedPoint()->getPoint().equals(NbVec3f(0.9F, 0.8F, 1), 1e-4F));
  EXPECT_EQ(box.getPickedPoint()->getNormal(), NbVec3f(0, 0, 1));
  style->style = NkPickStyle::SHAPE;
  EXPECT_FALSE(Pick(scene.get(), 0.9F, 0.8F).hit());
  EXPECT_TRUE(Pick(scene.get()).hit());
  style->style = NkPickStyle::UNPICKABLE;
  EXPECT_FALSE(Pick(scene.get()).hit());
}

TEST_F(Picking, ABoxTellsTheFaceThatWasHit) {
  const Ref<NkSeparator> scene = read("PickStyle { style BOUNDING_BOX } Cube { height 4 }");
  ASSERT_TRUE(scene);
  NkRayPickAction pick(kViewport);
  struct {
    NbVec3f start, normal;
  } const cases[] = {{{9, 0.3F, 0.2F}, {1, 0, 0}},   {{-9, 0.3F, 0.2F}, {-1, 0, 0}}, {{0.1F, 9, 0.2F}, {0, 1, 0}},
                     {{0.1F, -9, 0.2F}, {0, -1, 0}}, {{0.1F, 0.2F, 9}, {0, 0, 1}},   {{0.1F, 0.2F, -9}, {0, 0, -1}}};
  for (const auto& test : cases) {
    pick.setRay(test.start, -test.normal);
    pick.apply(scene.get());
    ASSERT_TRUE(pick.getPickedPoint());
    EXPECT_EQ(pick.getPickedPoint()->getNormal(), test.normal);
  }
  // From inside the far face is seen.
  pick.setRay(NbVec3f(0.1F, 0, 0), NbVec3f(0, 1, 0));
  pick.apply(scene.get());
  ASSERT_TRUE(pick.getPickedPoint());
  EXPECT_TRUE(pick.getPickedPoint()->getPoint().equals(NbVec3f(0.1F, 2, 0), 1e-4F));
  EXPECT_EQ(pick.getPickedPoint()->getNormal(), NbVec3f(0, 1, 0));
}

TEST_F(Picking, WhatAClipPlaneCutsAwayIsNotPicked) {
  const Ref<NkSeparator> scene = read("ClipPlane { plane 1 0 0 0 } Cube { }");
  ASSERT_TRUE(scene);
  EXPECT_TRUE(Pick(scene.get(), 0.5F, 0).hit());
  EXPECT_FALSE(Pick(scene.get(), -0.5F, 0).hit());
  static_cast<NkClipPlane*>(scene->getChild(0))->on = false;
  EXPECT_TRUE(Pick(scene.get(), -0.5F, 0).hit());
}

TEST_F(Picking, BehindACutTheFarSideIsPicked) {
  for (const char* style : {"SHAPE", "BOUNDING_BOX"}) {
    const Ref<NkSeparator> scene =
        read(std::string("PickStyle { style ") + style + " } ClipPlane { plane 0 0 -1 0 } Cube { }");
    ASSERT_TRUE(scene);
    EXPECT_NEAR(Pick(scene.get(), 0.25F, 0.1F).z(), -1, 1e-4) << style;
  }
}

TEST_F(Picking, ClipPlanesOfASeparatorEndWithIt) {
  const Ref<NkSeparator> scene = read("Separator { ClipPlane { plane 0 0 1 50 } Cube { } } Cube { depth 1 }");
  ASSERT_TRUE(scene);
  EXPECT_NEAR(Pick(scene.get()).z(), 0.5, 1e-4);
}

TEST_F(Picking, WhatASwitchHidesIsNotPicked) {
  const Ref<NkSeparator> scene = read("Switch { whichChild -1 Cube { } }");
  ASSERT_TRUE(scene);
  EXPECT_FALSE(Pick(scene.get()).hit());
  static_cast<NkSwitch*>(scene->getChild(0))->whichChild = 0;
  EXPECT_TRUE(Pick(scene.get()).hit());
}

TEST_F(Picking, AMovedShapeIsPickedWhereItIsNow) {
  const Ref<NkSeparator> scene = read("Separator { Separator { Translation { } Cube { } } }");
  ASSERT_TRUE(scene);
  EXPECT_TRUE(Pick(scene.get()).hit());
  auto* inner = static_cast<NkGroup*>(static_cast<NkGroup*>(scene->getChild(0))->getChild(0));
  static_cast<NkTranslation*>(inner->getChild(0))->translation.setValue(20, 0, 0);
  EXPECT_FALSE(Pick(scene.get()).hit());
  EXPECT_TRUE(Pick(scene.get(), 20, 0).hit());
}

// ---- What nodes use

namespace {

/// A node that adds hits of its own and notes what it was told.
class Picker : public NkNode {
public:
  NkType getTypeId() const override { return NkNode::getClassTypeId(); }
  const NkFieldData* getFieldData() const override { return nullptr; }
  void rayPick(NkRayPickAction* action) override {
    hasRay = action->getWorldRay(start, direction) && action->getLocalRay(localStart, localDirection);
    hitsNearBox = action->hitsBox(NbBox3f(-1, -1, -1, 1, 1, 1));
    hitsFarBox = action->hitsBox(NbBox3f(5, 5, 5, 6, 6, 6));
    for (const float z : heights) results.push_back(action->addIntersection({{0, 0, z}, {0, 0, 1}, {}}));
  }
  std::vector<float> heights;
  std::vector<NkPickedPoint*> results;
  NbVec3f start, direction, localStart, localDirection;
  bool hasRay = false, hitsNearBox = false, hitsFarBox = false;
};

} // namespace

TEST_F(Picking, NodesSeeTheRayInTheirSpace) {
  const Ref<NkGroup> scene(new NkGroup);
  auto* scale = new NkScale;
  scale->scaleFactor.setValue(2, 2, 4);
  auto* move = new NkTranslation;
  move->translation.setValue(1, 0, 0);
  auto* picker = new Picker;
  scene->addChild(scale);
  scene->addChild(move);
  scene->addChild(picker);
  Pick(scene.get(), 2, 0);
  EXPECT_TRUE(picker->hasRay);
  EXPECT_EQ(picker->start, NbVec3f(2, 0, 100));
  EXPECT_TRUE(picker->localStart.equals(NbVec3f(0, 0, 25), 1e-5F));
  EXPECT_TRUE(picker->localDirection.equals(NbVec3f(0, 0, -0.25F), 1e-6F)) << "distances stay those of the world";
  EXPECT_TRUE(picker->hitsNearBox);
  EXPECT_FALSE(picker->hitsFarBox);
}

TEST_F(Picking, BeforeThereIsARayAnyBoxMayBeHit) {
  const Ref<Picker> picker(new Picker);
  NkRayPickAction pick(kViewport);
  pick.apply(picker.get());
  EXPECT_FALSE(picker->hasRay);
  EXPECT_TRUE(picker->hitsNearBox);
  EXPECT_TRUE(picker->hitsFarBox);
}

TEST_F(Picking, HitsOfANodeItselfAreKeptByTheSameRules) {
  const Ref<NkGroup> scene(new NkGroup);
  auto* plane = new NkClipPlane;
  plane->plane = NbPlane(NbVec3f(0, 0, -1), -50);
  auto* picker = new Picker;
  // Nearer, farther than that, cut away, behind the start.
  picker->heights = {10, 5, 60, 20, 200};
  scene->addChild(plane);
  scene->addChild(picker);
  const Pick pick(scene.get());
  ASSERT_EQ(picker->results.size(), 5U);
  EXPECT_FALSE(picker->results[1] || picker->results[2] || picker->results[4]);
  ASSERT_EQ(pick.getPickedPointsListLength(), 1);
  EXPECT_EQ(pick.getPickedPoint(), picker->results[3]);
  EXPECT_EQ(pick.z(), 20);
}

TEST_F(Picking, DetailsBelongToThePointAndStandForANode) {
  {
    const Ref<NkSeparator> scene = read("Cube { }");
    ASSERT_TRUE(scene);
    const Pick pick(scene.get());
    NkPickedPoint* point = pick.getPickedPoint();
    ASSERT_TRUE(point);
    NkNode* cube = scene->getChild(0);
    EXPECT_FALSE(point->getDetail(cube));
    point->setDetail(new TestDetail(1), scene.get());
    point->setDetail(new TestDetail(2), cube);
    EXPECT_EQ(static_cast<TestDetail*>(point->getDetail(scene.get()))->m_number, 1);
    EXPECT_EQ(static_cast<TestDetail*>(point->getDetail())->m_number, 2) << "of the path's last node";
    point->setDetail(new TestDetail(3), cube);
    point->setDetail(point->getDetail(cube), cube);
    EXPECT_EQ(TestDetail::s_count, 2);
    EXPECT_EQ(static_cast<TestDetail*>(point->getDetail(cube))->m_number, 3);
    point->setDetail(nullptr, cube);
    point->setDetail(nullptr, cube);
    EXPECT_FALSE(point->getDetail(cube));
    EXPECT_EQ(TestDetail::s_count, 1);
  }
  EXPECT_EQ(TestDetail::s_count, 0);
}

TEST_F(Picking, ThePathIsKeptWhenTheSceneGoes) {
  Ref<NkSeparator> scene = read("Separator { Cube { } }");
  ASSERT_TRUE(scene);
  const Pick pick(scene.get());
  scene = nullptr;
  ASSERT_TRUE(pick.hit());
  EXPECT_EQ(pick.getPickedPoint()->getPath()->getLength(), 3);
  EXPECT_EQ(pick.getPickedPoint()->getPath()->getTail()->getTypeId(), NkCube::getClassTypeId());
}
