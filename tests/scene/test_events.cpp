#include "SceneTest.h"
#include "arbora/scene/NkCube.h"
#include "arbora/scene/NkEventCallback.h"
#include "arbora/scene/NkHandleEventAction.h"
#include "arbora/scene/NkKeyboardEvent.h"
#include "arbora/scene/NkLocation2Event.h"
#include "arbora/scene/NkMouseButtonEvent.h"
#include "arbora/scene/NkMouseWheelEvent.h"
#include "arbora/scene/NkOrthographicCamera.h"
#include "arbora/scene/NkPickStyle.h"
#include "arbora/scene/NkPickedPoint.h"
#include "arbora/scene/NkSwitch.h"
#include "arbora/scene/NkTrackerEvent.h"
#include "arbora/scene/NkTranslation.h"

using arbora::Ref;

namespace {

NkKeyboardEvent key(int code, NkButtonEvent::State state = NkButtonEvent::DOWN) {
  NkKeyboardEvent event;
  event.setKey(static_cast<NkKeyboardEvent::Key>(code));
  event.setState(state);
  return event;
}

/// A scene that gets keys, and what the callbacks saw.
class Events : public SceneTest {
public:
  Events() : action(NbViewportRegion(100, 100)), root(new NkSeparator) {}

  NkEventCallback* addCallback(NkGroup* parent, NkEventCallbackCB* function = count) {
    auto* node = new NkEventCallback;
    node->addEventCallback(NkKeyboardEvent::getClassTypeId(), function, this);
    parent->addChild(node);
    return node;
  }
  void send(const NkEvent& event) {
    action.setEvent(&event);
    action.apply(root.get());
    action.setEvent(nullptr);
  }
  void press() { send(key(NkKeyboardEvent::A)); }

  static void count(void* data, NkEventCallback*) { ++static_cast<Events*>(data)->calls; }
  static void handle(void* data, NkEventCallback* node) {
    ++static_cast<Events*>(data)->calls;
    node->setHandled();
  }

  NkHandleEventAction action;
  Ref<NkSeparator> root;
  int calls = 0;
};

} // namespace

// Keys

TEST_F(Events, KeyCodesAreThoseOfTheKeyboard) {
  EXPECT_EQ(NkKeyboardEvent::RETURN, 0xFF0D);
  EXPECT_EQ(NkKeyboardEvent::BACKSPACE, 0xFF08);
  EXPECT_EQ(NkKeyboardEvent::PAD_7, 0xFF95);
  EXPECT_EQ(NkKeyboardEvent::PAD_4, 0xFF96);
  EXPECT_EQ(NkKeyboardEvent::PAD_8, 0xFF97);
  EXPECT_EQ(NkKeyboardEvent::PAD_6, 0xFF98);
  EXPECT_EQ(NkKeyboardEvent::PAD_2, 0xFF99);
  EXPECT_EQ(NkKeyboardEvent::PAD_9, 0xFF9A);
  EXPECT_EQ(NkKeyboardEvent::PAD_3, 0xFF9B);
  EXPECT_EQ(NkKeyboardEvent::PAD_1, 0xFF9C);
  EXPECT_EQ(NkKeyboardEvent::PAD_5, 0xFF9D);
  EXPECT_EQ(NkKeyboardEvent::PAD_0, 0xFF9E);
  EXPECT_EQ(NkKeyboardEvent::PAD_PERIOD, 0xFF9F);
  EXPECT_EQ(NkKeyboardEvent::Z, 'z');
  EXPECT_EQ(NkKeyboardEvent::NUMBER_9, '9');
  EXPECT_EQ(NkKeyboardEvent::F12, 0xFFC9);
}

TEST_F(Events, PrintableCharacters) {
  EXPECT_EQ(key('q').getPrintableCharacter(), 'q');
  EXPECT_EQ(key('5').getPrintableCharacter(), '5');
  EXPECT_EQ(key(0xE9).getPrintableCharacter(), '\xE9');
  EXPECT_EQ(key(NkKeyboardEvent::RETURN).getPrintableCharacter(), '\0');
  EXPECT_EQ(key(NkKeyboardEvent::PAD_7).getPrintableCharacter(), '\0');
  EXPECT_EQ(key(0x7F).getPrintableCharacter(), '\0');
  NkKeyboardEvent shifted = key('q');
  shifted.setShiftDown(true);
  EXPECT_EQ(shifted.getPrintableCharacter(), 'Q');
  NkKeyboardEvent five = key('5');
  five.setShiftDown(true);
  five.setPrintableCharacter('%');
  EXPECT_EQ(five.getPrintableCharacter(), '%');
}

TEST_F(Events, TestsOfKeys) {
  const NkKeyboardEvent down = key(NkKeyboardEvent::RETURN);
  const NkKeyboardEvent up = key(NkKeyboardEvent::RETURN, NkButtonEvent::UP);
  const NkMouseButtonEvent mouse;
  EXPECT_TRUE(NkKeyboardEvent::isKeyPressEvent(&down, NkKeyboardEvent::RETURN));
  EXPECT_TRUE(NkKeyboardEvent::isKeyPressEvent(&down, NkKeyboardEvent::ANY));
  EXPECT_FALSE(NkKeyboardEvent::isKeyPressEvent(&down, NkKeyboardEvent::TAB));
  EXPECT_FALSE(NkKeyboardEvent::isKeyPressEvent(&up, NkKeyboardEvent::RETURN));
  EXPECT_TRUE(NkKeyboardEvent::isKeyReleaseEvent(&up, NkKeyboardEvent::RETURN));
  EXPECT_FALSE(NkKeyboardEvent::isKeyPressEvent(&mouse, NkKeyboardEvent::ANY));
  EXPECT_FALSE(NkKeyboardEvent::isKeyPressEvent(nullptr, NkKeyboardEvent::ANY));
}

// Other events

TEST_F(Events, TestsOfMouseButtons) {
  NkMouseButtonEvent event;
  event.setButton(NkMouseButtonEvent::BUTTON2);
  event.setState(NkButtonEvent::DOWN);
  EXPECT_TRUE(NkMouseButtonEvent::isButtonPressEvent(&event, NkMouseButtonEvent::BUTTON2));
  EXPECT_TRUE(NkMouseButtonEvent::isButtonPressEvent(&event, NkMouseButtonEvent::ANY));
  EXPECT_FALSE(NkMouseButtonEvent::isButtonPressEvent(&event, NkMouseButtonEvent::BUTTON1));
  EXPECT_FALSE(NkMouseButtonEvent::isButtonReleaseEvent(&event, NkMouseButtonEvent::BUTTON2));
  const NkLocation2Event motion;
  EXPECT_FALSE(NkMouseButtonEvent::isButtonPressEvent(&motion, NkMouseButtonEvent::ANY));
}

TEST_F(Events, PositionsWithinTheViewport) {
  NbViewportRegion viewport(200, 100);
  viewport.setViewportPixels(100, 0, 100, 50);
  NkLocation2Event event;
  event.setPosition(NbVec2i32(150, 50));
  EXPECT_EQ(event.getNormalizedPosition(viewport), NbVec2f(0.5f, 1.0f));
  event.setPosition(NbVec2i32(0, -50));
  EXPECT_EQ(event.getNormalizedPosition(viewport), NbVec2f(-1.0f, -1.0f));
}

TEST_F(Events, WhatEventsCarry) {
  NkMouseWheelEvent wheel;
  wheel.setDelta(-NkMouseWheelEvent::kNotch);
  wheel.setTime(2.5);
  wheel.setCtrlDown(true);
  EXPECT_EQ(wheel.getDelta(), -120);
  EXPECT_EQ(wheel.getTime(), 2.5);
  EXPECT_TRUE(wheel.wasCtrlDown());
  EXPECT_FALSE(wheel.wasShiftDown());
  EXPECT_FALSE(wheel.wasAltDown());
  EXPECT_FALSE(wheel.isTrackerEvent());
  EXPECT_TRUE(NkTrackerEvent().isTrackerEvent());
  EXPECT_TRUE(wheel.isOfType(NkEvent::getClassTypeId()));
  EXPECT_FALSE(wheel.isOfType(NkButtonEvent::getClassTypeId()));
}

// Callbacks

TEST_F(Events, ACallbackGetsTheEventsOfItsClass) {
  addCallback(root.get());
  press();
  EXPECT_EQ(calls, 1);
  send(NkLocation2Event());
  EXPECT_EQ(calls, 1);
}

TEST_F(Events, ACallbackSeesTheEventAndNothingAfterwards) {
  NkEventCallback* node = addCallback(root.get(), [](void* data, NkEventCallback* callback) {
    auto* test = static_cast<Events*>(data);
    EXPECT_EQ(callback->getEvent(), test->action.getEvent());
    EXPECT_EQ(callback->getAction(), &test->action);
    EXPECT_FALSE(callback->isHandled());
    ++test->calls;
  });
  press();
  EXPECT_EQ(calls, 1);
  EXPECT_EQ(node->getEvent(), nullptr);
  EXPECT_EQ(node->getAction(), nullptr);
  EXPECT_EQ(node->getPickedPoint(), nullptr);
  node->setHandled();
  node->grabEvents();
  EXPECT_EQ(action.getGrabber(), nullptr);
}

TEST_F(Events, AHiddenCallbackIsntCalled) {
  auto* choice = new NkSwitch;
  root->addChild(choice);
  addCallback(choice);
  press();
  EXPECT_EQ(calls, 0);
  choice->whichChild = -3;
  press();
  EXPECT_EQ(calls, 1);
  choice->whichChild = -1;
  press();
  EXPECT_EQ(calls, 1);
}

TEST_F(Events, AHandledEventGoesNoFurther) {
  addCallback(root.get(), handle);
  addCallback(root.get());
  press();
  EXPECT_EQ(calls, 1);
  EXPECT_TRUE(action.isHandled());
  root->removeChild(0);
  press();
  EXPECT_EQ(calls, 2);
  EXPECT_FALSE(action.isHandled());
}

TEST_F(Events, CallbacksMayRemoveAndAddCallbacks) {
  auto* node = new NkEventCallback;
  root->addChild(node);
  const NkType type = NkKeyboardEvent::getClassTypeId();
  node->addEventCallback(
      type,
      [](void* data, NkEventCallback* callback) {
        callback->removeEventCallback(NkKeyboardEvent::getClassTypeId(), count, data);
        callback->addEventCallback(NkKeyboardEvent::getClassTypeId(), handle, data);
      },
      this);
  node->addEventCallback(type, count, this);
  press();
  EXPECT_EQ(calls, 0);
  EXPECT_FALSE(action.isHandled());
  press();
  EXPECT_EQ(calls, 1);
  EXPECT_TRUE(action.isHandled());
}

TEST_F(Events, ACallbackMayTakeItsNodeOutOfTheScene) {
  addCallback(root.get(), [](void* data, NkEventCallback*) {
    auto* test = static_cast<Events*>(data);
    ++test->calls;
    test->root->removeAllChildren();
  });
  addCallback(root.get());
  press();
  EXPECT_EQ(calls, 1);
  EXPECT_EQ(root->getNumChildren(), 0);
}

// Grabbing

TEST_F(Events, TheGrabberGetsEventsFirstAndOnce) {
  addCallback(root.get());
  addCallback(root.get(), [](void* data, NkEventCallback* callback) {
    static_cast<Events*>(data)->calls += 10;
    callback->grabEvents();
  });
  press();
  EXPECT_EQ(calls, 11);
  ASSERT_NE(action.getGrabber(), nullptr);
  press();
  EXPECT_EQ(calls, 22);
  static_cast<NkEventCallback*>(action.getGrabber())
      ->addEventCallback(NkKeyboardEvent::getClassTypeId(), [](void*, NkEventCallback* callback) {
        callback->setHandled();
        callback->releaseEvents();
      });
  press();
  EXPECT_EQ(calls, 32);
  EXPECT_EQ(action.getGrabber(), nullptr);
}

TEST_F(Events, PathsFromSeveralHeadsAreScenesInTurn) {
  const Ref<NkSeparator> second(new NkSeparator);
  addCallback(root.get(), [](void* data, NkEventCallback*) {
    auto* test = static_cast<Events*>(data);
    test->calls += 1;
    EXPECT_EQ(test->action.getRoot(), test->root.get());
  });
  NkEventCallback* inSecond = addCallback(second.get(), [](void* data, NkEventCallback* callback) {
    auto* test = static_cast<Events*>(data);
    test->calls += 10;
    EXPECT_NE(test->action.getRoot(), test->root.get());
    EXPECT_NE(test->action.getRoot(), nullptr);
    callback->grabEvents();
  });
  NkPathList paths;
  const Ref<NkFullPath> toFirst(NkPath::create(root.get()));
  const Ref<NkFullPath> toSecond(NkPath::create(second.get()));
  const Ref<NkFullPath> empty(NkPath::create(nullptr));
  toSecond->append(0);
  for (NkPath* path : {toFirst.get(), empty.get(), toSecond.get(), toFirst.get()}) paths.append(path);
  paths.append(nullptr);
  const auto pressOnPaths = [&] {
    const NkKeyboardEvent event = key(NkKeyboardEvent::A);
    action.setEvent(&event);
    action.apply(paths);
    action.setEvent(nullptr);
  };
  pressOnPaths();
  EXPECT_EQ(calls, 11);
  EXPECT_EQ(action.getRoot(), nullptr);
  // The grabber comes first, in its own scene.
  ASSERT_EQ(action.getGrabber(), inSecond);
  inSecond->addEventCallback(NkKeyboardEvent::getClassTypeId(), handle, this);
  pressOnPaths();
  EXPECT_EQ(calls, 11 + 10 + 1);
  action.releaseGrabber();
  addCallback(root.get(), handle);
  pressOnPaths();
  EXPECT_EQ(calls, 22 + 2) << "what is handled in one scene doesn't come to the next";
  EXPECT_TRUE(action.isHandled());
  // From inside a callback it is dropped, as any other.
  root->removeAllChildren();
  addCallback(root.get(), [](void* data, NkEventCallback*) {
    auto* test = static_cast<Events*>(data);
    if (++test->calls > 30) return;
    NkPathList again;
    again.append(Ref<NkFullPath>(NkPath::create(test->root.get())).get());
    test->action.apply(again);
  });
  calls = 0;
  press();
  EXPECT_EQ(calls, 1);
}

TEST_F(Events, AGrabberThatGoesIsForgotten) {
  NkEventCallback* node = addCallback(root.get(), [](void*, NkEventCallback* callback) { callback->grabEvents(); });
  press();
  ASSERT_EQ(action.getGrabber(), node);
  root->removeAllChildren();
  EXPECT_EQ(action.getGrabber(), nullptr);
  press();
}

TEST_F(Events, EventsFromInsideACallbackAreDropped) {
  addCallback(root.get(), [](void* data, NkEventCallback*) {
    auto* test = static_cast<Events*>(data);
    if (++test->calls < 5) test->action.apply(test->root.get());
  });
  press();
  EXPECT_EQ(calls, 1);
}

TEST_F(Events, WithoutAnEventOrARootNothingHappens) {
  addCallback(root.get());
  action.apply(root.get());
  EXPECT_EQ(calls, 0);
  const NkKeyboardEvent event = key('a');
  action.setEvent(&event);
  action.apply(static_cast<NkNode*>(nullptr));
  action.apply(static_cast<NkPath*>(nullptr));
  EXPECT_EQ(calls, 0);
  const Ref<NkFullPath> path(NkPath::create(root.get()));
  action.apply(path.get());
  EXPECT_EQ(calls, 1);
}

// Picking

class EventPicking : public Events {
public:
  EventPicking() {
    auto* camera = new NkOrthographicCamera;
    camera->position.setValue(0, 0, 5);
    camera->height = 10;
    root->addChild(camera);
    node = new NkEventCallback;
    node->addEventCallback(
        NkEvent::getClassTypeId(),
        [](void* data, NkEventCallback* callback) {
          auto* test = static_cast<EventPicking*>(data);
          const NkPickedPoint* point = callback->getPickedPoint();
          test->picked = point ? point->getPath()->full()->getTail() : nullptr;
          EXPECT_EQ(callback->getPickedPoint(), point);
          test->pickedCount = static_cast<int>(callback->getAction()->getPickedPointList().size());
          EXPECT_EQ(callback->getPickedPoint(), point);
        },
        this);
    root->addChild(node);
    near = new NkCube;
    far = new NkCube;
    auto* away = new NkTranslation;
    away->translation.setValue(0, 0, -2.5f);
    root->addChild(near);
    root->addChild(away);
    root->addChild(far);
  }
  void point(int x, int y) {
    NkLocation2Event event;
    event.setPosition(NbVec2i32(x, y));
    send(event);
  }
  NkEventCallback* node;
  NkCube* near;
  NkCube* far;
  NkNode* picked = nullptr;
  int pickedCount = -1;
};

TEST_F(EventPicking, FindsWhatLiesUnderThePointer) {
  point(50, 50);
  EXPECT_EQ(picked, near);
  EXPECT_EQ(pickedCount, 2);
  point(5, 5);
  EXPECT_EQ(picked, nullptr);
  EXPECT_EQ(pickedCount, 0);
  EXPECT_EQ(action.getPickedPoint(), nullptr);
}

TEST_F(EventPicking, UnpickableGeometryIsPassedThrough) {
  auto* style = new NkPickStyle;
  style->style = 2;
  root->insertChild(style, root->findChild(near));
  auto* normal = new NkPickStyle;
  root->insertChild(normal, root->findChild(far));
  point(50, 50);
  EXPECT_EQ(picked, far);
}

TEST_F(EventPicking, APickRadiusReachesBesideThePointer) {
  point(61, 50);
  EXPECT_EQ(picked, nullptr);
  action.setPickRadius(3);
  point(61, 50);
  EXPECT_EQ(picked, near);
}

TEST_F(EventPicking, ATrackerPicksAlongItsRay) {
  NkTrackerEvent event;
  event.setRay(NbLine(NbVec3f(0, 0, -10), NbVec3f(0, 0, 0)));
  send(event);
  EXPECT_EQ(picked, far);
}
