#include <algorithm>
#include <memory>
#include <optional>
#include <vector>

#include "arbora/scene/NkBaseColor.h"
#include "arbora/scene/NkCamera.h"
#include "arbora/scene/NkCube.h"
#include "arbora/scene/NkDelayQueueSensor.h"
#include "arbora/scene/NkEventCallback.h"
#include "arbora/scene/NkFieldSensor.h"
#include "arbora/scene/NkKeyboardEvent.h"
#include "arbora/scene/NkMaterial.h"
#include "arbora/scene/NkMouseButtonEvent.h"
#include "arbora/scene/NkMouseWheelEvent.h"
#include "arbora/scene/NkOrthographicCamera.h"
#include "arbora/scene/NkPlaneDragger.h"
#include "arbora/win/NkRenderArea.h"
#include "arbora/win/NkWin.h"
#include "tests/scene/SceneTest.h"
#include "tests/win/Desktop.h"

using arbora::Ref;

namespace {

constexpr int kWidth = 400;
constexpr int kHeight = 300;

/// A red cube in a plane dragger, 100 pixels wide, in the middle of an area of 400 by 300; blue around it.
class NkRenderAreaTest : public SceneTest {
protected:
  NkRenderAreaTest() : scene(new NkSeparator), dragger(new NkPlaneDragger), keys(new NkEventCallback) {
    desktop::start();
    auto* camera = new NkOrthographicCamera;
    camera->position.setValue(0, 0, 10);
    camera->height = 6;
    scene->addChild(camera);
    scene->addChild(keys);
    auto* look = new NkMaterial;
    look->emissiveColor = NbColor(1, 0, 0);
    look->diffuseColor = NbColor(0, 0, 0);
    look->ambientColor = NbColor(0, 0, 0);
    look->specularColor = NbColor(0, 0, 0);
    scene->addChild(look);
    material = look;
    dragger->setPart("geometry", new NkCube);
    scene->addChild(dragger);
  }
  ~NkRenderAreaTest() override {
    area.reset();
    NkWin::processPendingMessages();
    NkWin::finish();
  }

  void open() {
    area = std::make_unique<NkRenderArea>(nullptr, "area under test");
    ASSERT_TRUE(area->isOpen());
    area->setSize({kWidth, kHeight});
    area->setBackgroundColor(NbColor(0, 0, 1));
    area->setSceneGraph(scene.get());
    area->show();
    desktop::serveAWhile();
    ASSERT_EQ(area->getSize(), NbVec2i32(kWidth, kHeight));
  }

  Ref<NkSeparator> scene;
  NkPlaneDragger* dragger;
  NkEventCallback* keys;
  NkMaterial* material = nullptr;
  std::unique_ptr<NkRenderArea> area;
};

constexpr std::array<int, 3> kRed{255, 0, 0};
constexpr std::array<int, 3> kGreen{0, 255, 0};
constexpr std::array<int, 3> kBlue{0, 0, 255};

TEST_F(NkRenderAreaTest, ShowsTheSceneAndFollowsItsChanges) {
  open();
  EXPECT_TRUE(area->isVisible());
  EXPECT_EQ(desktop::pixelOf(*area, kWidth / 2, kHeight / 2), kRed);
  EXPECT_EQ(desktop::pixelOf(*area, kWidth / 2 - 60, kHeight / 2), kBlue);
  EXPECT_EQ(desktop::pixelOf(*area, kWidth / 2 + 40, kHeight / 2 - 40), kRed);
  material->emissiveColor = NbColor(0, 1, 0);
  desktop::serveAWhile();
  EXPECT_EQ(desktop::pixelOf(*area, kWidth / 2, kHeight / 2), kGreen);
  dragger->translation.setValue(2, 1, 0);
  desktop::serveAWhile();
  EXPECT_EQ(desktop::pixelOf(*area, kWidth / 2 - 25, kHeight / 2), kBlue);
  EXPECT_EQ(desktop::pixelOf(*area, kWidth / 2 + 100, kHeight / 2 - 50), kGreen);
  area->hide();
  desktop::serveAWhile();
  EXPECT_FALSE(area->isVisible());
}

TEST_F(NkRenderAreaTest, BringsACameraAndALight) {
  scene = read("Material { diffuseColor 0.2 0.7 0.3 } Separator { Rotation { rotation 1 1 0 0.6 } Cube {} } "
               "Translation { translation 3 0 0 } Sphere {} Translation { translation -6 0 0 } Cone {}");
  ASSERT_TRUE(scene);
  open();
  const std::string picture = desktop::takePicture("lit-scene");
  const std::array<int, 2> place = desktop::placeOf(*area);
  const auto middle = desktop::pixelOf(picture, place[0] + kWidth / 2, place[1] + kHeight / 2);
  EXPECT_GT(middle[1], 100);
  EXPECT_GT(middle[1], middle[0]);
  EXPECT_GT(middle[1], middle[2]);
  EXPECT_EQ(desktop::pixelOf(picture, place[0] + 2, place[1] + 2), kBlue);
}

TEST_F(NkRenderAreaTest, MouseDragsTheDragger) {
  open();
  std::string phases;
  const auto note = [](char phase) {
    return phase == 's'   ? [](void* data, NkDragger*) { static_cast<std::string*>(data)->push_back('s'); }
           : phase == 'm' ? [](void* data, NkDragger*) { static_cast<std::string*>(data)->push_back('m'); }
                          : [](void* data, NkDragger*) { static_cast<std::string*>(data)->push_back('f'); };
  };
  dragger->addStartCallback(note('s'), &phases);
  dragger->addMotionCallback(note('m'), &phases);
  dragger->addFinishCallback(note('f'), &phases);

  ASSERT_TRUE(desktop::act(desktop::moveTo(*area, kWidth / 2, kHeight / 2) + "mousedown 1"));
  ASSERT_TRUE(desktop::act(desktop::moveTo(*area, kWidth / 2 + 30, kHeight / 2 - 10)));
  ASSERT_TRUE(desktop::act(desktop::moveTo(*area, kWidth / 2 + 100, kHeight / 2 - 50) + "mouseup 1"));
  // 50 pixels are one unit, and pixels count downwards on the screen.
  EXPECT_NEAR(dragger->translation.getValue()[0], 2, 0.03F);
  EXPECT_NEAR(dragger->translation.getValue()[1], 1, 0.03F);
  EXPECT_EQ(phases.substr(0, 2), "sm");
  EXPECT_EQ(phases.back(), 'f');
  EXPECT_EQ(std::count(phases.begin(), phases.end(), 'f'), 1);
  EXPECT_EQ(desktop::pixelOf(*area, kWidth / 2 - 25, kHeight / 2), kBlue);
  EXPECT_EQ(desktop::pixelOf(*area, kWidth / 2 + 100, kHeight / 2 - 50), kRed);
}

TEST_F(NkRenderAreaTest, DragGoesOnOutsideOfTheWindow) {
  open();
  ASSERT_TRUE(desktop::act(desktop::moveTo(*area, kWidth / 2, kHeight / 2) + "mousedown 1"));
  ASSERT_TRUE(desktop::act(desktop::moveTo(*area, kWidth + 100, kHeight / 2)));
  EXPECT_NEAR(dragger->translation.getValue()[0], 6, 0.03F);
  ASSERT_TRUE(desktop::act("mouseup 1"));
  ASSERT_TRUE(desktop::act(desktop::moveTo(*area, kWidth / 2, kHeight / 2)));
  EXPECT_NEAR(dragger->translation.getValue()[0], 6, 0.03F);
}

TEST_F(NkRenderAreaTest, ViewingMovesTheCameraInstead) {
  open();
  area->setViewing(true);
  const NbVec3f before = area->getCamera()->position.getValue();
  ASSERT_TRUE(desktop::act(desktop::moveTo(*area, kWidth / 2, kHeight / 2) + "mousedown 1"));
  ASSERT_TRUE(desktop::act(desktop::moveTo(*area, kWidth / 2 + 75, kHeight / 2) + "mouseup 1"));
  EXPECT_EQ(dragger->translation.getValue(), NbVec3f(0, 0, 0));
  EXPECT_GT((area->getCamera()->position.getValue() - before).length(), 1);
  const auto* camera = static_cast<const NkOrthographicCamera*>(area->getCamera());
  ASSERT_TRUE(desktop::act("click 4"));
  EXPECT_NEAR(camera->height.getValue(), 5.4F, 0.01F);
}

struct Heard {
  std::vector<NkKeyboardEvent::Key> presses;
  std::string typed;
  int wheel = 0;
  bool ctrlClick = false;
};

void hear(void* data, NkEventCallback* node) {
  auto* heard = static_cast<Heard*>(data);
  const NkEvent* event = node->getEvent();
  if (NkKeyboardEvent::isKeyPressEvent(event, NkKeyboardEvent::ANY)) {
    const auto* key = static_cast<const NkKeyboardEvent*>(event);
    heard->presses.push_back(key->getKey());
    if (key->getPrintableCharacter() != 0) heard->typed += key->getPrintableCharacter();
  } else if (event->isOfType(NkMouseWheelEvent::getClassTypeId())) {
    heard->wheel += static_cast<const NkMouseWheelEvent*>(event)->getDelta();
  } else if (NkMouseButtonEvent::isButtonPressEvent(event, NkMouseButtonEvent::BUTTON3)) {
    heard->ctrlClick = event->wasCtrlDown();
  }
}

TEST_F(NkRenderAreaTest, KeysAndWheelReachTheScene) {
  open();
  Heard heard;
  keys->addEventCallback(NkEvent::getClassTypeId(), hear, &heard);
  ASSERT_TRUE(desktop::act(desktop::moveTo(*area, 20, 20) + "click 1"));
  ASSERT_TRUE(desktop::act("key a shift+b 7 Return BackSpace KP_7 Left F5"));
  EXPECT_EQ(heard.typed, "aB77");
  for (const NkKeyboardEvent::Key key :
       {NkKeyboardEvent::A, NkKeyboardEvent::B, NkKeyboardEvent::NUMBER_7, NkKeyboardEvent::RETURN,
        NkKeyboardEvent::BACKSPACE, NkKeyboardEvent::PAD_7, NkKeyboardEvent::LEFT_ARROW, NkKeyboardEvent::F5}) {
    EXPECT_EQ(std::count(heard.presses.begin(), heard.presses.end(), key), 1) << std::hex << key;
  }
  ASSERT_TRUE(desktop::act("click 5 click 5"));
  EXPECT_EQ(heard.wheel, -2 * NkMouseWheelEvent::kNotch);
  ASSERT_TRUE(desktop::act("keydown ctrl click 3 keyup ctrl"));
  EXPECT_TRUE(heard.ctrlClick);
  ASSERT_TRUE(desktop::act("key Escape"));
  EXPECT_TRUE(area->isViewing());
}

TEST_F(NkRenderAreaTest, ResizingKeepsTheScale) {
  open();
  area->setSize({500, 200});
  desktop::serveAWhile();
  EXPECT_EQ(area->getSize(), NbVec2i32(500, 200));
  EXPECT_EQ(desktop::pixelOf(*area, 250, 100), kRed);
  // The cube takes a third of the height.
  EXPECT_EQ(desktop::pixelOf(*area, 250 - 28, 100 - 28), kRed);
  EXPECT_EQ(desktop::pixelOf(*area, 250 - 40, 100), kBlue);
}

TEST_F(NkRenderAreaTest, MayBeDeletedInsideADraggersCallback) {
  open();
  dragger->addMotionCallback([](void* data, NkDragger*) { static_cast<std::unique_ptr<NkRenderArea>*>(data)->reset(); },
                             &area);
  ASSERT_TRUE(desktop::act(desktop::moveTo(*area, kWidth / 2, kHeight / 2) + "mousedown 1"));
  ASSERT_TRUE(desktop::act("mousemove_relative 20 0 mouseup 1"));
  EXPECT_TRUE(desktop::serveUntil([this] { return area == nullptr; }));
}

TEST_F(NkRenderAreaTest, MayBeDeletedInsideAKeysCallback) {
  open();
  keys->addEventCallback(
      NkKeyboardEvent::getClassTypeId(),
      [](void* data, NkEventCallback*) { static_cast<std::unique_ptr<NkRenderArea>*>(data)->reset(); }, &area);
  ASSERT_TRUE(desktop::act(desktop::moveTo(*area, 20, 20) + "click 1 key x"));
  EXPECT_TRUE(desktop::serveUntil([this] { return area == nullptr; }));
}

TEST_F(NkRenderAreaTest, MayBeDeletedWhileItPaints) {
  open();
  NkRenderArea other(nullptr, "the other area");
  other.setSize({200, 150});
  other.setSceneGraph(scene.get());
  other.show();
  desktop::serveAWhile();
  // A paint puts the camera's planes around the scene; that's where the application hears of it.
  NkFieldSensor sensor([](void* data, NkSensor*) { static_cast<std::unique_ptr<NkRenderArea>*>(data)->reset(); },
                       &area);
  sensor.setPriority(0);
  sensor.attach(&area->getCamera()->nearDistance);
  dragger->translation.setValue(0, 0, 2);
  area->redraw();
  EXPECT_EQ(area, nullptr);
  sensor.detach();
  material->emissiveColor = NbColor(0, 1, 0);
  desktop::serveAWhile();
  EXPECT_EQ(desktop::pixelOf(other, 100, 75), kGreen);
}

TEST_F(NkRenderAreaTest, LoopServesTheAreaUntilItsEnd) {
  open();
  struct Steps {
    NkPlaneDragger* dragger;
    int count = 0;
  } steps{dragger};
  NkDelayQueueSensor sensor(
      [](void* data, NkSensor* self) {
        auto* all = static_cast<Steps*>(data);
        all->dragger->translation.setValue(0.1F * static_cast<float>(++all->count), 0, 0);
        if (all->count < 20) {
          self->schedule();
        } else {
          NkWin::exitMainLoop(3);
        }
      },
      &steps);
  sensor.schedule();
  EXPECT_EQ(NkWin::mainLoop(), 3);
  EXPECT_EQ(steps.count, 20);
}

TEST_F(NkRenderAreaTest, SleepingLoopWakesForTheUser) {
  open();
  keys->addEventCallback(NkKeyboardEvent::getClassTypeId(), [](void*, NkEventCallback*) { NkWin::exitMainLoop(4); });
  desktop::launch("sleep 0.5; xdotool key x");
  EXPECT_EQ(NkWin::mainLoop(), 4);
}

TEST_F(NkRenderAreaTest, ClosingTheWindowEndsTheLoop) {
  open();
  ASSERT_TRUE(desktop::closeByUser(*area));
  ASSERT_TRUE(desktop::serveUntil([this] { return !area->isOpen(); }));
  EXPECT_FALSE(NkWin::processPendingMessages());
  EXPECT_EQ(NkWin::mainLoop(), 0);
  EXPECT_FALSE(area->isVisible());
}

TEST_F(NkRenderAreaTest, CloseCallbackMayDeleteTheArea) {
  open();
  area->setCloseCallback(
      [](void* data, NkRenderArea* closed) {
        EXPECT_FALSE(closed->isOpen());
        static_cast<std::unique_ptr<NkRenderArea>*>(data)->reset();
      },
      &area);
  ASSERT_TRUE(desktop::closeByUser(*area));
  EXPECT_TRUE(desktop::serveUntil([this] { return area == nullptr; }));
  EXPECT_TRUE(NkWin::processPendingMessages());
}

TEST_F(NkRenderAreaTest, TwoAreasShowOneScene) {
  open();
  NkRenderArea other(nullptr, "the other area");
  other.setSize({200, 150});
  other.setSceneGraph(scene.get());
  other.show();
  desktop::serveAWhile();
  material->emissiveColor = NbColor(0, 1, 0);
  desktop::serveAWhile();
  EXPECT_EQ(desktop::pixelOf(other, 100, 75), kGreen);
  other.hide();
  area->show();
  desktop::serveAWhile();
  EXPECT_EQ(desktop::pixelOf(*area, kWidth / 2, kHeight / 2), kGreen);
}

TEST_F(NkRenderAreaTest, SceneOutlivesTheAreaAndTheOtherWayRound) {
  open();
  area->setSceneGraph(nullptr);
  EXPECT_TRUE(desktop::serveUntil([&] { return desktop::pixelOf(*area, kWidth / 2, kHeight / 2) == kBlue; }));
  EXPECT_EQ(scene->getRefCount(), 1);
  area->setSceneGraph(scene.get());
  area.reset();
  EXPECT_EQ(scene->getRefCount(), 1);
}

} // namespace
