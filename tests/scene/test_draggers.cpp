#include <functional>
#include <memory>

#include "SceneTest.h"
#include "arbora/base/NbLineProjector.h"
#include "arbora/scene/NkCube.h"
#include "arbora/scene/NkHandleEventAction.h"
#include "arbora/scene/NkKeyboardEvent.h"
#include "arbora/scene/NkLocation2Event.h"
#include "arbora/scene/NkMouseButtonEvent.h"
#include "arbora/scene/NkOrthographicCamera.h"
#include "arbora/scene/NkPerspectiveCamera.h"
#include "arbora/scene/NkPickStyle.h"
#include "arbora/scene/NkPlaneDragger.h"
#include "arbora/scene/NkTrackerEvent.h"
#include "arbora/scene/NkTransform.h"

using arbora::Ref;

namespace {

/// A scene of 100 by 100 pixels that are 0.1 units wide: a camera, a group, and in it a dragger with a cube of 2 units.
class Draggers : public SceneTest {
protected:
  Draggers() : action(std::make_unique<NkHandleEventAction>(NbViewportRegion(100, 100))), root(new NkSeparator) {
    auto* camera = new NkOrthographicCamera;
    camera->position.setValue(0, 0, 50);
    camera->height = 10;
    camera->farDistance = 100;
    root->addChild(camera);
    place = new NkTransform;
    root->addChild(place);
    parent = new NkGroup;
    root->addChild(parent);
    dragger = makeDragger();
    parent->addChild(dragger);
  }

  NkPlaneDragger* makeDragger() {
    auto* made = new NkPlaneDragger;
    made->setPart("geometry", new NkCube);
    made->addStartCallback([](void* data, NkDragger* d) { static_cast<Draggers*>(data)->note('s', d); }, this);
    made->addMotionCallback([](void* data, NkDragger* d) { static_cast<Draggers*>(data)->note('m', d); }, this);
    made->addFinishCallback([](void* data, NkDragger* d) { static_cast<Draggers*>(data)->note('f', d); }, this);
    return made;
  }
  void note(char phase, NkDragger* caller) {
    log += phase;
    lastCaller = caller;
    if (inCallback) inCallback(phase, caller);
  }

  void send(NkEvent& event, int x = 50, int y = 50) {
    event.setPosition(NbVec2i32(x, y));
    action->setEvent(&event);
    action->apply(root.get());
    action->setEvent(nullptr);
  }
  void button(NkButtonEvent::State state, int x, int y,
              NkMouseButtonEvent::Button which = NkMouseButtonEvent::BUTTON1) {
    NkMouseButtonEvent event;
    event.setButton(which);
    event.setState(state);
    send(event, x, y);
  }
  void press(int x = 50, int y = 50) { button(NkButtonEvent::DOWN, x, y); }
  void release(int x = 50, int y = 50) { button(NkButtonEvent::UP, x, y); }
  void move(int x, int y) {
    NkLocation2Event event;
    send(event, x, y);
  }
  static void expectNear(const NbVec3f& a, const NbVec3f& b) {
    EXPECT_TRUE(a.equals(b, 1e-3f)) << a[0] << ' ' << a[1] << ' ' << a[2] << " instead of " << b[0] << ' ' << b[1]
                                    << ' ' << b[2];
  }

  std::unique_ptr<NkHandleEventAction> action;
  Ref<NkSeparator> root;
  NkTransform* place;
  NkGroup* parent;
  NkPlaneDragger* dragger;
  std::string log;
  NkDragger* lastCaller = nullptr;
  std::function<void(char, NkDragger*)> inCallback;
};

} // namespace

// The course of a drag

TEST_F(Draggers, ADragIsPressMotionsRelease) {
  press();
  EXPECT_EQ(log, "s");
  EXPECT_TRUE(dragger->isActive.getValue());
  EXPECT_EQ(action->getGrabber(), dragger);
  EXPECT_TRUE(action->isHandled());
  move(60, 50);
  move(90, 95);
  EXPECT_TRUE(action->isHandled());
  release(90, 95);
  EXPECT_EQ(log, "smmf");
  EXPECT_FALSE(dragger->isActive.getValue());
  EXPECT_EQ(action->getGrabber(), nullptr);
  expectNear(dragger->translation.getValue(), NbVec3f(4, 4.5f, 0));
}

TEST_F(Draggers, AnotherDragGoesOnFromThere) {
  press();
  move(60, 50);
  release(60, 50);
  press(60, 50);
  move(60, 60);
  release(60, 60);
  expectNear(dragger->translation.getValue(), NbVec3f(1, 1, 0));
}

TEST_F(Draggers, NothingHappensWithoutAGrab) {
  press(5, 5);
  move(50, 50);
  release();
  move(60, 60);
  EXPECT_EQ(log, "");
  EXPECT_EQ(dragger->translation.getValue(), NbVec3f(0, 0, 0));
}

TEST_F(Draggers, OtherButtonsDontGrab) {
  button(NkButtonEvent::DOWN, 50, 50, NkMouseButtonEvent::BUTTON3);
  EXPECT_EQ(log, "");
  EXPECT_FALSE(action->isHandled());
}

TEST_F(Draggers, FurtherButtonsDuringADragAreIgnored) {
  press();
  press();
  button(NkButtonEvent::DOWN, 50, 50, NkMouseButtonEvent::BUTTON3);
  EXPECT_TRUE(action->isHandled());
  button(NkButtonEvent::UP, 50, 50, NkMouseButtonEvent::BUTTON3);
  EXPECT_EQ(log, "s");
  release();
  EXPECT_EQ(log, "sf");
}

TEST_F(Draggers, KeysGoTheirWayDuringADrag) {
  press();
  NkKeyboardEvent event;
  event.setState(NkButtonEvent::DOWN);
  send(event);
  EXPECT_FALSE(action->isHandled());
  EXPECT_EQ(log, "s");
}

TEST_F(Draggers, UnpickableGeometryDoesntGrab) {
  auto* style = new NkPickStyle;
  style->style = 2;
  root->insertChild(style, 0);
  press();
  EXPECT_EQ(log, "");
}

TEST_F(Draggers, CallbacksCanBeTakenOff) {
  int calls = 0;
  NkDraggerCB* const count = [](void* data, NkDragger*) { ++*static_cast<int*>(data); };
  dragger->addStartCallback(count, &calls);
  dragger->addMotionCallback(count, &calls);
  dragger->addFinishCallback(count, &calls);
  press();
  move(51, 50);
  release();
  EXPECT_EQ(calls, 3);
  dragger->removeStartCallback(count, &calls);
  dragger->removeMotionCallback(count, &calls);
  dragger->removeFinishCallback(count, &calls);
  press();
  move(51, 50);
  release();
  EXPECT_EQ(calls, 3);
}

TEST_F(Draggers, CallbacksMayAddAndRemoveCallbacks) {
  static int s_calls;
  s_calls = 0;
  dragger->addMotionCallback([](void*, NkDragger* d) {
    static NkDraggerCB* const s_second = [](void*, NkDragger*) { ++s_calls; };
    d->removeMotionCallback(s_second);
    d->addMotionCallback(s_second);
  });
  press();
  move(51, 50);
  EXPECT_EQ(s_calls, 0);
  move(52, 50);
  EXPECT_EQ(s_calls, 0) << "removed and added again ahead of its turn";
  release();
}

// What the callbacks can ask for

TEST_F(Draggers, TheStateOfADrag) {
  inCallback = [&](char phase, NkDragger* d) {
    ASSERT_NE(d->getPickPath(), nullptr);
    EXPECT_TRUE(d->getPickPath()->containsNode(dragger));
    EXPECT_TRUE(d->getPickPath()->containsNode(dragger->getPart("geometry", false)));
    EXPECT_EQ(d->getPickPath()->getHead(), root.get());
    EXPECT_EQ(d->getHandleEventAction(), action.get());
    EXPECT_EQ(d->getEvent(), action->getEvent());
    expectNear(d->getWorldStartingPoint(), NbVec3f(0.5f, 0, 1));
    expectNear(d->getLocalStartingPoint(), NbVec3f(0.5f, 0, 1));
    EXPECT_TRUE(d->getStartLocaterPosition().equals(NbVec2f(0.55f, 0.5f), 1e-5f));
    EXPECT_EQ(d->getViewportSize(), NbVec2i32(100, 100));
    EXPECT_EQ(d->getViewVolume().getProjectionType(), NbViewVolume::ORTHOGRAPHIC);
    if (phase == 's') {
      EXPECT_TRUE(NkViewVolumeElement::isSet(action->getState()));
    } else {
      EXPECT_TRUE(d->getNormalizedLocaterPosition().equals(NbVec2f(0.6f, 0.7f), 1e-5f));
    }
    EXPECT_EQ(d->isActive.getValue(), phase != 'f');
  };
  press(55, 50);
  move(60, 70);
  release(60, 70);
  EXPECT_EQ(log, "smf");
}

TEST_F(Draggers, OutsideADragThereIsNothingToAsk) {
  press();
  EXPECT_NE(dragger->getPickPath(), nullptr);
  EXPECT_EQ(dragger->getEvent(), nullptr);
  release();
  EXPECT_EQ(dragger->getPickPath(), nullptr);
  EXPECT_EQ(dragger->getHandleEventAction(), nullptr);
  EXPECT_EQ(dragger->getEvent(), nullptr);
  EXPECT_EQ(dragger->getLocalToWorldMatrix(), NbMatrix());
}

TEST_F(Draggers, LocalSpaceIsWhereTheDraggerStands) {
  place->translation.setValue(1, 0, 0);
  place->scaleFactor.setValue(2, 2, 2);
  dragger->translation.setValue(0.5f, 0, 0);
  inCallback = [&](char, NkDragger* d) {
    NbVec3f world;
    d->getLocalToWorldMatrix().multVecMatrix(NbVec3f(1, 1, 1), world);
    expectNear(world, NbVec3f(3, 2, 2));
    NbVec3f local;
    d->getWorldToLocalMatrix().multVecMatrix(world, local);
    expectNear(local, NbVec3f(1, 1, 1));
    expectNear(d->getLocalStartingPoint(), NbVec3f(0.5f, 0, 1));
    expectNear(d->getWorldStartingPoint(), NbVec3f(2, 0, 2));
  };
  press(70, 50);
  move(75, 50);
  release(75, 50);
  EXPECT_EQ(log, "smf");
  expectNear(dragger->translation.getValue(), NbVec3f(0.75f, 0, 0));
}

TEST_F(Draggers, MotionInATurnedSpace) {
  place->rotation.setValue(NbVec3f(0, 0, 1), 1.5707963f);
  place->scaleFactor.setValue(2, 1, 1);
  press();
  move(60, 70);
  release();
  // A unit to the right on the screen is down along the space's y axis; two upwards are one along its x axis.
  expectNear(dragger->translation.getValue(), NbVec3f(1, -1, 0));
}

TEST_F(Draggers, MotionInATiltedSpaceSeenInPerspective) {
  auto* camera = new NkPerspectiveCamera;
  camera->position.setValue(0, 0, 10);
  root->replaceChild(0, camera);
  place->rotation.setValue(NbVec3f(1, 0, 0), -0.5f);
  NbVec3f pressed;
  inCallback = [&](char phase, NkDragger* d) {
    if (phase == 's') pressed = d->getWorldStartingPoint();
  };
  press(50, 50);
  move(58, 57);
  release();
  // The point that was pressed lies under the pointer again.
  NbVec3f way;
  NbMatrix turn;
  turn.setRotate(place->rotation.getValue());
  turn.multDirMatrix(dragger->translation.getValue(), way);
  NbVec3f seen;
  camera->getViewVolume(1).projectToScreen(pressed + way, seen);
  EXPECT_NEAR(seen[0], 0.58f, 1e-4f);
  EXPECT_NEAR(seen[1], 0.57f, 1e-4f);
  EXPECT_EQ(dragger->translation.getValue()[2], 0);
}

TEST_F(Draggers, ALineProjectorInTheCallbacks) {
  place->scaleFactor.setValue(2, 2, 2);
  NbLineProjector projector;
  NbVec3f way;
  inCallback = [&](char phase, NkDragger* d) {
    if (phase == 's') {
      const NbVec3f start = d->getLocalStartingPoint();
      projector.setLine(NbLine(start, start + NbVec3f(1, 0, 0)));
      projector.setViewVolume(d->getViewVolume());
    } else if (phase == 'm') {
      projector.setWorkingSpace(d->getLocalToWorldMatrix());
      way = projector.project(d->getNormalizedLocaterPosition()) - d->getLocalStartingPoint();
    }
  };
  press();
  move(80, 90);
  release();
  expectNear(way, NbVec3f(1.5f, 0, 0));
}

TEST_F(Draggers, AMovedParentIsSeenAtTheNextMotion) {
  press();
  place->translation.setValue(1, 0, 0);
  move(60, 50);
  release();
  expectNear(dragger->translation.getValue(), NbVec3f(0, 0, 0));
}

TEST_F(Draggers, ATrackerDragsAlongItsRay) {
  const auto track = [&](NkButtonEvent::State state, float x, float y) {
    NkTrackerEvent event;
    event.setState(state);
    event.setRay(NbLine(NbVec3f(x, y, 10), NbVec3f(x, y, 0)));
    send(event);
  };
  inCallback = [&](char, NkDragger* d) { EXPECT_TRUE(d->getEvent()->isTrackerEvent()); };
  track(NkButtonEvent::DOWN, 0, 0);
  track(NkButtonEvent::UNKNOWN, 3, -2);
  track(NkButtonEvent::UP, 3, -2);
  EXPECT_EQ(log, "smf");
  expectNear(dragger->translation.getValue(), NbVec3f(3, -2, 0));
}

TEST_F(Draggers, AViewAlongThePlaneMovesNothing) {
  place->rotation.setValue(NbVec3f(1, 0, 0), 1.5707963f);
  press();
  move(60, 60);
  release();
  const NbVec3f moved = dragger->translation.getValue();
  EXPECT_TRUE(moved[0] == moved[0] && moved[1] == moved[1]);
  EXPECT_LT(moved.length(), 1e6f);
}

// Which dragger

TEST_F(Draggers, TheInnermostDraggerGrabs) {
  NkPlaneDragger* inner = makeDragger();
  auto* group = new NkGroup;
  auto* aside = new NkTransform;
  aside->translation.setValue(3, 0, 0);
  group->addChild(new NkCube);
  group->addChild(aside);
  group->addChild(inner);
  dragger->setPart("geometry", group);
  press(80, 50);
  EXPECT_EQ(lastCaller, inner);
  EXPECT_EQ(log, "s");
  release(80, 50);
  press(50, 50);
  EXPECT_EQ(lastCaller, dragger);
  release();
  EXPECT_EQ(log, "sfsf");
}

TEST_F(Draggers, ADraggerInTwoPlacesIsDraggedWhereItWasPressed) {
  auto* aside = new NkTransform;
  aside->translation.setValue(3, 0, 0);
  aside->scaleFactor.setValue(0.5f, 0.5f, 0.5f);
  root->addChild(aside);
  root->addChild(dragger);
  press(80, 50);
  move(85, 50);
  release();
  EXPECT_EQ(log, "smf");
  expectNear(dragger->translation.getValue(), NbVec3f(1, 0, 0));
}

namespace {

/// Makes the surrogates of a dragger reachable.
class SurrogateDragger : public NkDragger {
  NK_KIT_HEADER(SurrogateDragger);

public:
  NkSFNode handle;
  SurrogateDragger() {
    NK_KIT_CONSTRUCTOR(SurrogateDragger);
    NK_KIT_ADD_CATALOG_ENTRY(handle, NkSeparator, true, "geomSeparator", "", true);
    NK_KIT_INIT_INSTANCE();
  }

protected:
  ~SurrogateDragger() override = default;
};
NK_KIT_SOURCE(SurrogateDragger, NkDragger, "SurrogateDragger");

} // namespace

TEST_F(Draggers, ASurrogateGrabsForItsDragger) {
  SurrogateDragger::initClass();
  {
    const Ref<SurrogateDragger> remote(new SurrogateDragger);
    std::string seen;
    remote->addStartCallback(
        [](void* data, NkDragger* d) {
          *static_cast<std::string*>(data) += d->getPickPath()->getTail()->getTypeId().getName().getString();
        },
        &seen);
    auto* cube = new NkCube;
    parent->replaceChild(0, cube);
    root->addChild(remote.get());
    const Ref<NkFullPath> path(NkPath::create(root.get()));
    path->append(parent);
    path->append(cube);
    EXPECT_TRUE(remote->setPartAsPath("handle", path.get()));
    press();
    EXPECT_EQ(seen, "Cube");
    EXPECT_EQ(action->getGrabber(), remote.get());
    release();
    EXPECT_TRUE(remote->setPartAsPath("handle", nullptr));
    press();
    EXPECT_EQ(seen, "Cube");
    expectMessage("\"arm\" is no part");
    EXPECT_FALSE(remote->setPartAsPath("arm", path.get()));
    root->removeAllChildren();
  }
  root = {};
  action.reset();
  SurrogateDragger::exitClass();
}

TEST_F(Draggers, ADragBelongsToOneAction) {
  press();
  NkHandleEventAction other(NbViewportRegion(100, 100));
  NkMouseButtonEvent event;
  event.setButton(NkMouseButtonEvent::BUTTON1);
  event.setState(NkButtonEvent::DOWN);
  event.setPosition(NbVec2i32(50, 50));
  other.setEvent(&event);
  other.apply(root.get());
  EXPECT_EQ(log, "s");
  EXPECT_EQ(other.getGrabber(), nullptr);
}

TEST_F(Draggers, EventsOfAnotherSceneLeaveTheDragAlone) {
  press();
  const Ref<NkSeparator> other(new NkSeparator);
  NkLocation2Event event;
  event.setPosition(NbVec2i32(90, 90));
  action->setEvent(&event);
  action->apply(other.get());
  EXPECT_EQ(log, "s");
  EXPECT_FALSE(action->isHandled());
  move(60, 50);
  EXPECT_EQ(log, "sm");
}

// Draggers that go

TEST_F(Draggers, TakingTheDraggerOutBetweenEventsEndsTheDrag) {
  const Ref<NkDragger> keep(dragger);
  press();
  parent->removeAllChildren();
  move(60, 50);
  EXPECT_EQ(log, "s");
  EXPECT_FALSE(keep->isActive.getValue());
  EXPECT_EQ(action->getGrabber(), nullptr);
  EXPECT_EQ(keep->getPickPath(), nullptr);
}

TEST_F(Draggers, ADraggerCanGoInEachCallback) {
  for (const char when : {'s', 'm', 'f'}) {
    log.clear();
    const int before = NkBase::getLiveCount();
    parent->removeAllChildren();
    parent->addChild(makeDragger());
    inCallback = [&](char phase, NkDragger*) {
      if (phase == when) parent->removeAllChildren();
    };
    press();
    move(60, 50);
    move(70, 50);
    release(70, 50);
    EXPECT_EQ(log, when == 's' ? "s" : when == 'm' ? "sm" : "smmf");
    EXPECT_EQ(action->getGrabber(), nullptr);
    EXPECT_LT(NkBase::getLiveCount(), before);
    parent->addChild(makeDragger());
  }
}

TEST_F(Draggers, AWholeSceneCanGoInACallback) {
  inCallback = [&](char phase, NkDragger*) {
    if (phase == 'm') root = {};
  };
  press();
  move(60, 50);
  EXPECT_EQ(log, "sm");
  EXPECT_EQ(action->getGrabber(), nullptr);
}

TEST_F(Draggers, ADraggerThatDiesBetweenEventsIsForgotten) {
  press();
  root = {};
  EXPECT_EQ(action->getGrabber(), nullptr);
}

TEST_F(Draggers, AParentThatIsTakenOutEndsTheDrag) {
  const Ref<NkGroup> keep(parent);
  press();
  root->removeChild(parent);
  move(60, 50);
  EXPECT_EQ(log, "s");
  EXPECT_EQ(action->getGrabber(), nullptr);
}

TEST_F(Draggers, WhatWasPickedMayGoWithoutEndingTheDrag) {
  press();
  dragger->setPart("geometry", new NkGroup);
  move(60, 50);
  EXPECT_EQ(log, "sm");
  EXPECT_TRUE(dragger->getPickPath()->containsNode(dragger));
  release();
  EXPECT_EQ(log, "smf");
}

TEST_F(Draggers, ASiblingThatIsInsertedDoesntEndTheDrag) {
  press();
  parent->insertChild(new NkGroup, 0);
  root->insertChild(new NkGroup, 0);
  move(60, 50);
  EXPECT_EQ(log, "sm");
}

TEST_F(Draggers, TheActionMayGoInTheMiddleOfADrag) {
  press();
  action.reset();
  EXPECT_FALSE(dragger->isActive.getValue());
  EXPECT_EQ(dragger->getHandleEventAction(), nullptr);
  EXPECT_EQ(dragger->getPickPath(), nullptr);
  action = std::make_unique<NkHandleEventAction>(NbViewportRegion(100, 100));
  press();
  EXPECT_EQ(log, "ss");
}

TEST_F(Draggers, ACallbackMayLetThePointerGo) {
  inCallback = [&](char phase, NkDragger*) {
    if (phase == 'm') action->releaseGrabber();
  };
  dragger->addMotionCallback([](void*, NkDragger*) { ADD_FAILURE() << "the drag is over"; });
  press();
  move(60, 50);
  EXPECT_FALSE(dragger->isActive.getValue());
  move(70, 50);
  release();
  EXPECT_EQ(log, "sm");
}

TEST_F(Draggers, IsDraggedByEventsOnPaths) {
  // Another scene stands ahead of its own.
  const Ref<NkSeparator> other(new NkSeparator);
  NkPathList paths;
  paths.append(Ref<NkFullPath>(NkPath::create(other.get())).get());
  paths.append(Ref<NkFullPath>(NkPath::create(root.get())).get());
  const auto sendOnPaths = [&](NkEvent& event, int x) {
    event.setPosition(NbVec2i32(x, 50));
    action->setEvent(&event);
    action->apply(paths);
    action->setEvent(nullptr);
  };
  NkMouseButtonEvent button1;
  button1.setButton(NkMouseButtonEvent::BUTTON1);
  button1.setState(NkButtonEvent::DOWN);
  sendOnPaths(button1, 50);
  EXPECT_TRUE(dragger->isActive.getValue());
  NkLocation2Event motion;
  sendOnPaths(motion, 60);
  expectNear(dragger->translation.getValue(), NbVec3f(1, 0, 0));
  button1.setState(NkButtonEvent::UP);
  sendOnPaths(button1, 60);
  EXPECT_FALSE(dragger->isActive.getValue());
  EXPECT_EQ(log, "smf");
}

TEST_F(Draggers, ACopyIsNotDragged) {
  press();
  const Ref<NkPlaneDragger> copy(static_cast<NkPlaneDragger*>(dragger->copy()));
  EXPECT_FALSE(copy->isActive.getValue());
  move(60, 50);
  EXPECT_TRUE(dragger->isActive.getValue());
  expectNear(dragger->translation.getValue(), NbVec3f(1, 0, 0));
  expectNear(copy->translation.getValue(), NbVec3f(0, 0, 0));
}

TEST_F(Draggers, AnotherGrabberEndsTheDrag) {
  press();
  const Ref<NkGroup> other(new NkGroup);
  action->setGrabber(other.get());
  EXPECT_FALSE(dragger->isActive.getValue());
  EXPECT_EQ(log, "s");
}

// Files

TEST_F(Draggers, IsReadWithItsGeometryAndWrittenWithoutItsState) {
  const Ref<NkSeparator> scene = read("PlaneDragger { translation 1 2 0 geometry Separator { Cube { } } }");
  ASSERT_TRUE(scene);
  auto* made = static_cast<NkPlaneDragger*>(scene->getChild(0));
  EXPECT_EQ(made->translation.getValue(), NbVec3f(1, 2, 0));
  EXPECT_TRUE(made->getPart("geometry", false)->isOfType(NkSeparator::getClassTypeId()));
  made->isActive = true;
  made->setDefaultOnNonWritingFields();
  EXPECT_TRUE(made->isActive.isDefault());
}
