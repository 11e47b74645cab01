#include "SceneTest.h"
#include "arbora/scene/NkCube.h"
#include "arbora/scene/NkGetBoundingBoxAction.h"
#include "arbora/scene/NkScale.h"
#include "arbora/scene/NkSwitch.h"
#include "arbora/scene/NkTranslation.h"

using arbora::Ref;

namespace {

NkTranslation* moved(float x, float y, float z) {
  auto* translation = new NkTranslation;
  translation->translation.setValue(x, y, z);
  return translation;
}

NbBox3f boxOf(NkNode* node) {
  NkGetBoundingBoxAction action;
  action.apply(node);
  return action.getBoundingBox();
}

/// Makes its content when it is first asked for its box, as panels do.
class LateGroup : public NkGroup {
  NK_NODE_HEADER(LateGroup);

public:
  LateGroup() { NK_NODE_CONSTRUCTOR(LateGroup); }
  void getBoundingBox(NkGetBoundingBoxAction* action) override {
    if (!m_cube) {
      const bool wasEnabled = enableNotify(false);
      addChild(m_cube = new NkCube);
      enableNotify(wasEnabled);
    }
    NkGroup::getBoundingBox(action);
  }
  NkCube* m_cube = nullptr;

protected:
  ~LateGroup() override = default;
};
NK_NODE_SOURCE(LateGroup, NkGroup, "LateGroup");

} // namespace

using Groups = SceneTest;

TEST_F(Groups, ChildrenAreInsertedFoundReplacedAndRemoved) {
  const Ref<NkGroup> group(new NkGroup);
  auto* a = new NkCube;
  auto* b = new NkCube;
  const Ref<NkCube> c(new NkCube);
  group->addChild(a);
  group->insertChild(b, 0);
  group->insertChild(c.get(), 2);
  EXPECT_EQ(group->getNumChildren(), 3);
  EXPECT_EQ(group->getChild(0), b);
  EXPECT_EQ(group->findChild(a), 1);
  EXPECT_EQ(group->findChild(c.get()), 2);
  group->removeChild(a);
  EXPECT_EQ(group->findChild(c.get()), 1);
  auto* d = new NkCube;
  group->replaceChild(c.get(), d);
  EXPECT_EQ(group->getChild(1), d);
  EXPECT_EQ(c->getRefCount(), 1);
  group->replaceChild(0, c.get());
  EXPECT_EQ(group->getChild(0), c.get());
  group->removeAllChildren();
  EXPECT_EQ(group->getNumChildren(), 0);
  EXPECT_EQ(group->findChild(c.get()), -1);
}

TEST_F(Groups, MisuseIsPostedAndChangesNothing) {
  const Ref<NkGroup> group(new NkGroup);
  group->addChild(new NkCube);
  const Ref<NkCube> stranger(new NkCube);
  expectMessage("NkGroup::addChild(): NULL child node");
  group->addChild(nullptr);
  expectMessage("NkGroup::insertChild(): NULL child node");
  group->insertChild(nullptr, 0);
  expectMessage("NkGroup::insertChild(): Index 2 is out of range 0 - 1");
  group->insertChild(stranger.get(), 2);
  expectMessage("NkGroup::getChild(): Index 1 is out of range 0 - 0");
  EXPECT_EQ(group->getChild(1), nullptr);
  expectMessage("NkGroup::getChild(): Index -1 is out of range 0 - 0");
  EXPECT_EQ(group->getChild(-1), nullptr);
  expectMessage("NkGroup::removeChild(): Index 7 is out of range 0 - 0");
  group->removeChild(7);
  expectMessage("NkGroup::removeChild(): Index -1 is out of range 0 - 0");
  group->removeChild(stranger.get());
  expectMessage("NkGroup::replaceChild(): Index -1 is out of range 0 - 0");
  group->replaceChild(stranger.get(), stranger.get());
  expectMessage("NkGroup::replaceChild(): NULL child node");
  group->replaceChild(0, nullptr);
  EXPECT_EQ(group->getNumChildren(), 1);
}

TEST_F(Groups, AGroupPassesItsStateOnAndASeparatorDoesNot) {
  const Ref<NkGroup> root(new NkGroup);
  auto* inner = new NkGroup;
  inner->addChild(moved(10, 0, 0));
  root->addChild(inner);
  root->addChild(new NkCube);
  EXPECT_EQ(boxOf(root.get()), NbBox3f(9, -1, -1, 11, 1, 1));
  EXPECT_TRUE(inner->affectsState());
  auto* separator = new NkSeparator;
  separator->addChild(moved(10, 0, 0));
  EXPECT_FALSE(separator->affectsState());
  root->replaceChild(0, separator);
  EXPECT_EQ(boxOf(root.get()), NbBox3f(-1, -1, -1, 1, 1, 1));
}

TEST_F(Groups, ASwitchShowsNoneOneOrAll) {
  const Ref<NkSwitch> choice(new NkSwitch);
  choice->addChild(moved(5, 0, 0));
  choice->addChild(new NkCube);
  EXPECT_EQ(choice->whichChild.getValue(), NK_SWITCH_NONE);
  EXPECT_TRUE(boxOf(choice.get()).isEmpty());
  EXPECT_FALSE(choice->affectsState());
  choice->whichChild = 1;
  EXPECT_EQ(boxOf(choice.get()), NbBox3f(-1, -1, -1, 1, 1, 1));
  EXPECT_FALSE(choice->affectsState());
  choice->whichChild = 0;
  EXPECT_TRUE(boxOf(choice.get()).isEmpty());
  EXPECT_TRUE(choice->affectsState());
  choice->whichChild = NK_SWITCH_ALL;
  EXPECT_EQ(boxOf(choice.get()), NbBox3f(4, -1, -1, 6, 1, 1));
  choice->whichChild = 17;
  EXPECT_TRUE(boxOf(choice.get()).isEmpty());
  choice->whichChild = -9;
  EXPECT_TRUE(boxOf(choice.get()).isEmpty());
}

TEST_F(Groups, AnInheritingSwitchFollowsTheOneAboveAlsoThroughACachedBox) {
  const Ref<NkGroup> root(new NkGroup);
  auto* leader = new NkSwitch;
  leader->addChild(new NkGroup);
  leader->addChild(new NkGroup);
  auto* separator = new NkSeparator;
  auto* follower = new NkSwitch;
  follower->whichChild = NK_SWITCH_INHERIT;
  follower->addChild(new NkCube);
  auto* wide = new NkCube;
  wide->width = 8;
  follower->addChild(wide);
  separator->addChild(follower);
  root->addChild(leader);
  root->addChild(separator);
  leader->whichChild = 0;
  EXPECT_FLOAT_EQ(boxOf(root.get()).getSize()[0], 2);
  leader->whichChild = 1;
  EXPECT_FLOAT_EQ(boxOf(root.get()).getSize()[0], 8);
}

TEST_F(Groups, ACachedBoxFollowsChangesBelow) {
  const Ref<NkSeparator> root(new NkSeparator);
  auto* separator = new NkSeparator;
  auto* translation = moved(1, 0, 0);
  auto* cube = new NkCube;
  separator->addChild(translation);
  separator->addChild(cube);
  root->addChild(moved(0, 5, 0));
  root->addChild(separator);
  EXPECT_EQ(boxOf(root.get()), NbBox3f(0, 4, -1, 2, 6, 1));
  EXPECT_EQ(boxOf(root.get()), NbBox3f(0, 4, -1, 2, 6, 1));
  cube->width = 4;
  EXPECT_EQ(boxOf(root.get()), NbBox3f(-1, 4, -1, 3, 6, 1));
  translation->translation.setValue(2, 0, 0);
  EXPECT_EQ(boxOf(root.get()), NbBox3f(0, 4, -1, 4, 6, 1));
  separator->addChild(moved(100, 0, 0));
  separator->addChild(new NkCube);
  EXPECT_FLOAT_EQ(boxOf(root.get()).getMax()[0], 103);
  separator->removeAllChildren();
  EXPECT_TRUE(boxOf(root.get()).isEmpty());
}

TEST_F(Groups, AMeasuredBoxFollowsContentThatTheMeasuringMade) {
  LateGroup::initClass();
  {
    const Ref<NkSeparator> root(new NkSeparator);
    auto* separator = new NkSeparator;
    auto* late = new LateGroup;
    separator->addChild(late);
    root->addChild(separator);
    EXPECT_FLOAT_EQ(boxOf(root.get()).getSize()[0], 2);
    late->m_cube->width = 6;
    EXPECT_FLOAT_EQ(boxOf(root.get()).getSize()[0], 6);
    late->m_cube->width = 8;
    EXPECT_FLOAT_EQ(boxOf(root.get()).getSize()[0], 8);
    auto* another = new LateGroup;
    separator->addChild(another);
    boxOf(root.get());
    ASSERT_TRUE(another->m_cube);
    another->m_cube->height = 9;
    EXPECT_FLOAT_EQ(boxOf(root.get()).getSize()[1], 9);
  }
  LateGroup::exitClass();
}

TEST_F(Groups, ASharedSeparatorIsMeasuredInEachPlace) {
  const Ref<NkSeparator> root(new NkSeparator);
  auto* shared = new NkSeparator;
  auto* cube = new NkCube;
  shared->addChild(cube);
  root->addChild(shared);
  root->addChild(moved(10, 0, 0));
  root->addChild(shared);
  EXPECT_EQ(boxOf(root.get()), NbBox3f(-1, -1, -1, 11, 1, 1));
  cube->height = 6;
  EXPECT_EQ(boxOf(root.get()), NbBox3f(-1, -3, -1, 11, 3, 1));
}

TEST_F(Groups, AChangeWithNotificationOffStillDropsTheBoxesAbove) {
  const Ref<NkSeparator> root(new NkSeparator);
  auto* cube = new NkCube;
  root->addChild(cube);
  boxOf(root.get());
  cube->enableNotify(false);
  cube->width = 20;
  cube->enableNotify(true);
  EXPECT_FLOAT_EQ(boxOf(root.get()).getSize()[0], 20);
}

TEST_F(Groups, BoxAfterEachOfManyRandomChangesEqualsAFreshOne) {
  // The cached result must always be what a traversal without caches gives.
  const Ref<NkSeparator> root(new NkSeparator);
  std::vector<NkSeparator*> separators{root.get()};
  std::vector<NkTranslation*> translations;
  unsigned seed = 12345;
  const auto random = [&seed](unsigned n) {
    seed = seed * 1664525u + 1013904223u;
    return (seed >> 16) % n;
  };
  for (int step = 0; step < 400; ++step) {
    NkSeparator* parent = separators[random(static_cast<unsigned>(separators.size()))];
    switch (random(4)) {
      case 0: {
        auto* child = new NkSeparator;
        parent->addChild(child);
        separators.push_back(child);
        break;
      }
      case 1:
        parent->addChild(translations.emplace_back(moved(static_cast<float>(random(9)), 0, 0)));
        break;
      case 2:
        parent->addChild(new NkCube);
        break;
      default:
        if (!translations.empty())
          translations[random(static_cast<unsigned>(translations.size()))]->translation.setValue(
              static_cast<float>(random(50)), static_cast<float>(random(50)), 0);
        break;
    }
    const Ref<NkNode> fresh(root->copy());
    ASSERT_EQ(boxOf(root.get()), boxOf(fresh.get())) << "after step " << step;
  }
}

using Guards = SceneTest;

TEST_F(Guards, ANodeThatContainsItselfIsPostedOnce) {
  const Ref<NkGroup> group(new NkGroup);
  group->addChild(new NkCube);
  group->addChild(group.get());
  group->addChild(group.get());
  expectMessage("A node of type Group contains itself");
  EXPECT_EQ(boxOf(group.get()), NbBox3f(-1, -1, -1, 1, 1, 1));
  group->removeAllChildren();
}

TEST_F(Guards, AChangeInARingOfNodesEnds) {
  const Ref<NkSeparator> a(new NkSeparator);
  auto* b = new NkSeparator;
  auto* cube = new NkCube;
  a->addChild(b);
  b->addChild(a.get());
  b->addChild(cube);
  expectMessage("A node of type Separator contains itself");
  boxOf(a.get());
  cube->width = 9;
  b->removeChild(0);
  EXPECT_FLOAT_EQ(boxOf(a.get()).getSize()[0], 9);
}

TEST_F(Guards, ADeepSceneIsCutWithAMessage) {
  const Ref<NkSeparator> root(new NkSeparator);
  NkSeparator* tail = root.get();
  for (int i = 0; i < 3 * NkAction::kMaxDepth; ++i) {
    auto* next = new NkSeparator;
    tail->addChild(next);
    tail = next;
  }
  auto* cube = new NkCube;
  tail->addChild(cube);
  expectMessage("The scene is nested deeper than 2000 levels");
  EXPECT_TRUE(boxOf(root.get()).isEmpty());
  cube->width = 3;
}

TEST_F(Guards, ASceneOfTheGreatestDepthIsMeasured) {
  const Ref<NkSeparator> root(new NkSeparator);
  NkSeparator* tail = root.get();
  for (int i = 2; i < NkAction::kMaxDepth; ++i) {
    auto* next = new NkSeparator;
    tail->addChild(next);
    tail = next;
  }
  auto* cube = new NkCube;
  tail->addChild(cube);
  EXPECT_FLOAT_EQ(boxOf(root.get()).getSize()[0], 2);
  cube->width = 3;
  EXPECT_FLOAT_EQ(boxOf(root.get()).getSize()[0], 3);
}
