#include <cmath>
#include <numbers>

#include "arbora/base/NbViewVolume.h"
#include "arbora/scene/NkCube.h"
#include "arbora/scene/NkFieldSensor.h"
#include "arbora/scene/NkKeyboardEvent.h"
#include "arbora/scene/NkLocation2Event.h"
#include "arbora/scene/NkMouseButtonEvent.h"
#include "arbora/scene/NkMouseWheelEvent.h"
#include "arbora/scene/NkOrthographicCamera.h"
#include "arbora/scene/NkPerspectiveCamera.h"
#include "arbora/scene/NkPlaneDragger.h"
#include "arbora/scene/NkTransform.h"
#include "arbora/win/ViewController.h"
#include "tests/scene/SceneTest.h"

using arbora::Ref;

namespace {

constexpr int kWidth = 200;
constexpr int kHeight = 100;
constexpr float kAspect = 2;
constexpr float kTolerance = 1e-4F;

/// A cube of 2 units in a viewport of 200 by 100 pixels.
class ViewControllerTest : public SceneTest {
protected:
  ViewControllerTest() : scene(new NkSeparator) {
    scene->addChild(new NkCube);
    controller.setViewport(NbViewportRegion(kWidth, kHeight));
    controller.setScene(scene.get());
  }

  NkCamera& camera() { return *controller.getCamera(); }
  NbVec3f forward() { return camera().orientation.getValue().multVec(NbVec3f(0, 0, -1)); }
  NbVec3f focalPoint() { return camera().position.getValue() + forward() * camera().focalDistance.getValue(); }
  NbVec2f onScreen(const NbVec3f& point) {
    NbVec3f normalized;
    camera().getViewVolume(kAspect).projectToScreen(point, normalized);
    return {normalized[0] * kWidth, normalized[1] * kHeight};
  }

  bool button(NkMouseButtonEvent::Button which, bool isDown, int x, int y, bool shift = false) {
    NkMouseButtonEvent event;
    event.setButton(which);
    event.setState(isDown ? NkButtonEvent::DOWN : NkButtonEvent::UP);
    event.setPosition({x, y});
    event.setShiftDown(shift);
    return controller.handleEvent(event);
  }
  bool move(int x, int y) {
    NkLocation2Event event;
    event.setPosition({x, y});
    return controller.handleEvent(event);
  }
  void drag(NkMouseButtonEvent::Button which, int fromX, int fromY, int toX, int toY, bool shift = false) {
    button(which, true, fromX, fromY, shift);
    move(toX, toY);
    button(which, false, toX, toY, shift);
  }
  void wheel(int delta) {
    NkMouseWheelEvent event;
    event.setDelta(delta);
    controller.handleEvent(event);
  }
  bool pressEscape() {
    NkKeyboardEvent event;
    event.setKey(NkKeyboardEvent::ESCAPE);
    event.setState(NkButtonEvent::DOWN);
    return controller.handleEvent(event);
  }

  Ref<NkSeparator> scene;
  arbora::ViewController controller;
};

TEST_F(ViewControllerTest, OwnCameraSeesTheWholeScene) {
  for (const float x : {-1.0F, 1.0F}) {
    for (const float y : {-1.0F, 1.0F}) {
      for (const float z : {-1.0F, 1.0F}) {
        EXPECT_TRUE(camera().getViewVolume(kAspect).intersect(NbVec3f(x, y, z))) << x << ' ' << y << ' ' << z;
      }
    }
  }
  EXPECT_TRUE(focalPoint().equals(NbVec3f(0, 0, 0), kTolerance));
  EXPECT_TRUE(forward().equals(NbVec3f(0, 0, -1), kTolerance));
}

TEST_F(ViewControllerTest, EmptyScenesAreHarmless) {
  controller.setScene(nullptr);
  controller.viewAll();
  controller.updateClipping();
  EXPECT_EQ(controller.getScene(), nullptr);
  EXPECT_NE(controller.getCamera(), nullptr);
  EXPECT_FALSE(move(10, 10));
}

TEST_F(ViewControllerTest, TakesTheScenesCameraAsItStands) {
  auto* own = new NkOrthographicCamera;
  own->position.setValue(3, 4, 5);
  scene->insertChild(own, 0);
  controller.setScene(scene.get());
  EXPECT_EQ(controller.getCamera(), own);
  EXPECT_EQ(own->position.getValue(), NbVec3f(3, 4, 5));
  EXPECT_EQ(controller.getRoot()->getChildren()->getLength(), 1);
}

TEST_F(ViewControllerTest, GivenCameraGoesAheadOfTheSceneAndAwayAgain) {
  const Ref<NkCamera> given = new NkPerspectiveCamera;
  controller.setCamera(given.get());
  EXPECT_EQ(controller.getCamera(), given.get());
  ASSERT_EQ(controller.getRoot()->getChildren()->getLength(), 2);
  EXPECT_EQ((*controller.getRoot()->getChildren())[0], given.get());
  controller.setCamera(nullptr);
  EXPECT_NE(controller.getCamera(), given.get());
  EXPECT_EQ(given->getRefCount(), 1);
}

TEST_F(ViewControllerTest, DragTurnsTheCameraAboutTheFocalPoint) {
  controller.setViewing(true);
  const NbVec3f target = focalPoint();
  const float distance = camera().focalDistance.getValue();
  // Half the height of the window is a quarter turn; the scene goes the way of the pointer, the camera the other way.
  drag(NkMouseButtonEvent::BUTTON1, 100, 50, 150, 50);
  EXPECT_TRUE(focalPoint().equals(target, kTolerance));
  EXPECT_TRUE(camera().position.getValue().equals(target + NbVec3f(-distance, 0, 0), 10 * kTolerance));
  drag(NkMouseButtonEvent::BUTTON1, 150, 50, 100, 50);
  drag(NkMouseButtonEvent::BUTTON1, 100, 50, 100, 100);
  EXPECT_TRUE(camera().position.getValue().equals(target + NbVec3f(0, -distance, 0), 10 * kTolerance));
  EXPECT_TRUE(focalPoint().equals(target, 10 * kTolerance));
}

TEST_F(ViewControllerTest, ManySmallTurnsKeepTheDistance) {
  controller.setViewing(true);
  const float distance = camera().focalDistance.getValue();
  button(NkMouseButtonEvent::BUTTON1, true, 0, 0);
  for (int step = 1; step <= 500; ++step) move(step, (step * 7) % 90);
  button(NkMouseButtonEvent::BUTTON1, false, 0, 0);
  EXPECT_NEAR(camera().position.getValue().length(), distance, 1e-3F);
  EXPECT_NEAR(forward().length(), 1, kTolerance);
}

TEST_F(ViewControllerTest, PanKeepsThePointUnderThePointer) {
  controller.setViewing(true);
  const NbVec3f point = focalPoint();
  ASSERT_TRUE(onScreen(point).equals(NbVec2f(100, 50), 0.01F));
  drag(NkMouseButtonEvent::BUTTON2, 100, 50, 130, 60);
  EXPECT_TRUE(onScreen(point).equals(NbVec2f(130, 60), 0.01F));
  drag(NkMouseButtonEvent::BUTTON1, 130, 60, 90, 20, true);
  EXPECT_TRUE(onScreen(point).equals(NbVec2f(90, 20), 0.01F));
  EXPECT_TRUE(forward().equals(NbVec3f(0, 0, -1), kTolerance));
}

TEST_F(ViewControllerTest, WheelKeepsTheFocalPoint) {
  controller.setViewing(true);
  const NbVec3f target = focalPoint();
  const float distance = camera().focalDistance.getValue();
  wheel(NkMouseWheelEvent::kNotch);
  EXPECT_NEAR(camera().focalDistance.getValue(), distance * 0.9F, kTolerance);
  EXPECT_TRUE(focalPoint().equals(target, kTolerance));
  wheel(-NkMouseWheelEvent::kNotch);
  EXPECT_NEAR(camera().focalDistance.getValue(), distance, kTolerance);
}

TEST_F(ViewControllerTest, WheelScalesAnOrthographicView) {
  const Ref<NkOrthographicCamera> orthographic = new NkOrthographicCamera;
  orthographic->height = 10;
  controller.setCamera(orthographic.get());
  controller.setViewing(true);
  wheel(2 * NkMouseWheelEvent::kNotch);
  EXPECT_NEAR(orthographic->height.getValue(), 8.1F, kTolerance);
  EXPECT_EQ(orthographic->position.getValue(), NbVec3f(0, 0, 1));
}

TEST_F(ViewControllerTest, MotionWithoutAButtonMovesNothing) {
  controller.setViewing(true);
  const NbVec3f before = camera().position.getValue();
  move(10, 10);
  drag(NkMouseButtonEvent::BUTTON3, 10, 10, 60, 60);
  move(90, 90);
  EXPECT_EQ(camera().position.getValue(), before);
}

TEST_F(ViewControllerTest, PickingHandsDragsToTheScene) {
  auto* dragger = new NkPlaneDragger;
  dragger->setPart("geometry", new NkCube);
  const Ref<NkSeparator> draggers = new NkSeparator;
  draggers->addChild(dragger);
  controller.setScene(draggers.get());
  const NbVec3f camerasPlace = camera().position.getValue();

  EXPECT_TRUE(button(NkMouseButtonEvent::BUTTON1, true, 100, 50));
  EXPECT_TRUE(move(120, 50));
  button(NkMouseButtonEvent::BUTTON1, false, 120, 50);
  EXPECT_GT(dragger->translation.getValue()[0], 0.1F);
  EXPECT_NEAR(dragger->translation.getValue()[1], 0, kTolerance);
  EXPECT_EQ(camera().position.getValue(), camerasPlace);

  const NbVec3f dragged = dragger->translation.getValue();
  controller.setViewing(true);
  drag(NkMouseButtonEvent::BUTTON1, 120, 50, 100, 50);
  EXPECT_EQ(dragger->translation.getValue(), dragged);
}

TEST_F(ViewControllerTest, EscapeChangesTheModeBetweenDrags) {
  EXPECT_FALSE(controller.isViewing());
  EXPECT_TRUE(pressEscape());
  EXPECT_TRUE(controller.isViewing());
  button(NkMouseButtonEvent::BUTTON1, true, 100, 50);
  pressEscape();
  EXPECT_TRUE(controller.isViewing());
  button(NkMouseButtonEvent::BUTTON1, false, 100, 50);
  EXPECT_TRUE(pressEscape());
  EXPECT_FALSE(controller.isViewing());
}

TEST_F(ViewControllerTest, DragEndsWhereItBegan) {
  controller.setViewing(true);
  const NbVec3f before = camera().position.getValue();
  button(NkMouseButtonEvent::BUTTON1, true, 100, 50);
  controller.setViewing(false);
  move(120, 50);
  const NbVec3f turned = camera().position.getValue();
  EXPECT_NE(turned, before);
  button(NkMouseButtonEvent::BUTTON1, false, 120, 50);
  move(150, 50);
  EXPECT_EQ(camera().position.getValue(), turned);
}

TEST_F(ViewControllerTest, HomePosition) {
  controller.setViewing(true);
  const NbVec3f home = camera().position.getValue();
  drag(NkMouseButtonEvent::BUTTON1, 100, 50, 150, 70);
  wheel(NkMouseWheelEvent::kNotch);
  controller.resetToHomePosition();
  EXPECT_EQ(camera().position.getValue(), home);
  EXPECT_EQ(camera().orientation.getValue(), NbRotation());
  drag(NkMouseButtonEvent::BUTTON1, 100, 50, 150, 70);
  const NbVec3f saved = camera().position.getValue();
  controller.saveHomePosition();
  wheel(NkMouseWheelEvent::kNotch);
  controller.resetToHomePosition();
  EXPECT_EQ(camera().position.getValue(), saved);
}

TEST_F(ViewControllerTest, ClippingPlanesLieCloseAroundTheScene) {
  camera().position.setValue(0, 0, 10);
  controller.updateClipping();
  EXPECT_LT(camera().nearDistance.getValue(), 9);
  EXPECT_GT(camera().nearDistance.getValue(), 8.9F);
  EXPECT_GT(camera().farDistance.getValue(), 11);
  EXPECT_LT(camera().farDistance.getValue(), 11.1F);

  // Inside the scene the near plane stays ahead of the eye.
  camera().position.setValue(0, 0, 0.5F);
  controller.updateClipping();
  EXPECT_GT(camera().nearDistance.getValue(), 0);
  EXPECT_LT(camera().nearDistance.getValue(), 0.01F);

  // With its back to the scene it keeps what it had.
  const float before = camera().nearDistance.getValue();
  camera().position.setValue(0, 0, -10);
  controller.updateClipping();
  EXPECT_EQ(camera().nearDistance.getValue(), before);
}

TEST_F(ViewControllerTest, ClippingFollowsTheSpaceOfTheCamera) {
  auto* transform = new NkTransform;
  transform->translation.setValue(0, 0, 4);
  transform->scaleFactor.setValue(2, 2, 2);
  auto* own = new NkPerspectiveCamera;
  own->position.setValue(0, 0, 3);
  auto* group = new NkSeparator;
  group->addChild(transform);
  group->addChild(own);
  scene->insertChild(group, 0);
  controller.setScene(scene.get());
  ASSERT_EQ(controller.getCamera(), own);
  // The camera stands at z = 10, and a unit of its own space is two of the scene's.
  controller.updateClipping();
  EXPECT_NEAR(own->nearDistance.getValue(), 4.5F, 0.05F);
  EXPECT_NEAR(own->farDistance.getValue(), 5.5F, 0.05F);
}

TEST_F(ViewControllerTest, OrthographicClippingMayLieBehindTheCamera) {
  const Ref<NkOrthographicCamera> orthographic = new NkOrthographicCamera;
  orthographic->position.setValue(0, 0, 0);
  controller.setCamera(orthographic.get());
  controller.updateClipping();
  EXPECT_LT(orthographic->nearDistance.getValue(), -1);
  EXPECT_GT(orthographic->farDistance.getValue(), 1);
}

TEST_F(ViewControllerTest, SettledClippingWritesNothing) {
  controller.updateClipping();
  int writes = 0;
  NkFieldSensor sensor([](void* data, NkSensor*) { ++*static_cast<int*>(data); }, &writes);
  sensor.setPriority(0);
  sensor.attach(&camera().nearDistance);
  controller.updateClipping();
  EXPECT_EQ(writes, 0);
  camera().position.setValue(0, 0, 20);
  controller.updateClipping();
  EXPECT_EQ(writes, 1);
}

} // namespace
