#include "SceneTest.h"
#include "arbora/scene/NkCube.h"
#include "arbora/scene/NkEventCallback.h"
#include "arbora/scene/NkHandleEventAction.h"
#include "arbora/scene/NkKeyboardEvent.h"
#include "arbora/scene/NkSearchAction.h"
#include "arbora/scene/NkSwitch.h"

// Events leave out what takes none of them, and come back as soon as something there does.

using arbora::Ref;

namespace {

class EventInterest : public SceneTest {
protected:
  EventInterest() : root(new NkSeparator) { action.setEvent(&event); }

  /// A node that counts the events which come to it.
  NkEventCallback* makeListener() {
    auto* node = new NkEventCallback;
    node->addEventCallback(
        NkKeyboardEvent::getClassTypeId(),
        [](void* data, NkEventCallback* callback) {
          auto* self = static_cast<EventInterest*>(data);
          ++self->heard;
          if (self->handles) callback->setHandled();
        },
        this);
    return node;
  }
  NkSeparator* addSeparator(NkGroup* group) {
    auto* separator = new NkSeparator;
    group->addChild(separator);
    return separator;
  }
  /// How often a key is heard.
  int send() {
    heard = 0;
    action.apply(root.get());
    return heard;
  }

  Ref<NkSeparator> root;
  NkHandleEventAction action;
  NkKeyboardEvent event;
  int heard = 0;
  bool handles = false;
};

} // namespace

TEST_F(EventInterest, BeginsWithTheFirstListener) {
  NkSeparator* deep = addSeparator(addSeparator(root.get()));
  deep->addChild(new NkCube);
  EXPECT_EQ(send(), 0);
  EXPECT_EQ(send(), 0);
  NkEventCallback* listener = makeListener();
  deep->addChild(listener);
  EXPECT_EQ(send(), 1);
  EXPECT_EQ(send(), 1);
  deep->removeChild(listener);
  EXPECT_EQ(send(), 0);
}

TEST_F(EventInterest, FollowsASwitch) {
  auto* choice = new NkSwitch;
  addSeparator(root.get())->addChild(choice);
  addSeparator(choice)->addChild(makeListener());
  EXPECT_EQ(send(), 0);
  choice->whichChild = 0;
  EXPECT_EQ(send(), 1);
  choice->whichChild = NK_SWITCH_NONE;
  EXPECT_EQ(send(), 0);
}

TEST_F(EventInterest, FollowsASwitchThatStandsAhead) {
  auto* group = new NkGroup;
  root->addChild(group);
  auto* leader = new NkSwitch;
  group->addChild(leader);
  auto* follower = new NkSwitch;
  follower->whichChild = NK_SWITCH_INHERIT;
  addSeparator(group)->addChild(follower);
  addSeparator(follower)->addChild(makeListener());
  EXPECT_EQ(send(), 0);
  leader->whichChild = 0;
  EXPECT_EQ(send(), 1);
}

TEST_F(EventInterest, AnEventAlongAPathTellsNothingOfWhatIsBesideIt) {
  addSeparator(root.get())->addChild(makeListener());
  auto* cube = new NkCube;
  addSeparator(root.get())->addChild(cube);
  NkSearchAction search;
  search.setNode(cube);
  search.apply(root.get());
  action.apply(search.getPath());
  EXPECT_EQ(heard, 0);
  EXPECT_EQ(send(), 1);
}

TEST_F(EventInterest, AnEventThatEndsEarlyTellsNothingOfWhatIsBehind) {
  handles = true;
  NkSeparator* place = addSeparator(root.get());
  NkEventCallback* first = makeListener();
  place->addChild(first);
  addSeparator(root.get())->addChild(makeListener());
  EXPECT_EQ(send(), 1);
  handles = false;
  EXPECT_EQ(send(), 2);
  place->removeChild(first);
  EXPECT_EQ(send(), 1);
}

TEST_F(EventInterest, IsThatOfEachPlaceOfANode) {
  NkSeparator* shared = addSeparator(addSeparator(root.get()));
  addSeparator(root.get())->addChild(shared);
  EXPECT_EQ(send(), 0);
  shared->addChild(makeListener());
  EXPECT_EQ(send(), 2);
}
