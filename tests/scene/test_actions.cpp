#include "SceneTest.h"
#include "arbora/scene/NkBaseKit.h"
#include "arbora/scene/NkCallbackAction.h"
#include "arbora/scene/NkCube.h"
#include "arbora/scene/NkGetBoundingBoxAction.h"
#include "arbora/scene/NkGetMatrixAction.h"
#include "arbora/scene/NkScale.h"
#include "arbora/scene/NkSearchAction.h"
#include "arbora/scene/NkSphere.h"
#include "arbora/scene/NkSwitch.h"
#include "arbora/scene/NkTranslation.h"

using arbora::Ref;

namespace {

NbVec3f throughMatrix(NkGetMatrixAction& action, const NbVec3f& point) {
  NbVec3f result;
  action.getMatrix().multVecMatrix(point, result);
  return result;
}

} // namespace

using Paths = SceneTest;

TEST_F(Paths, APathReferencesItsNodes) {
  const Ref<NkGroup> root(new NkGroup);
  auto* cube = new NkCube;
  root->addChild(new NkGroup);
  root->addChild(cube);
  {
    const Ref<NkPath> path(NkPath::create(root.get()));
    EXPECT_TRUE(path->append(1));
    EXPECT_EQ(path->getLength(), 2);
    EXPECT_EQ(path->getTail(), cube);
    EXPECT_EQ(path->getNodeFromTail(1), root.get());
    EXPECT_EQ(path->getIndex(1), 1);
    EXPECT_EQ(cube->getRefCount(), 2);
    EXPECT_TRUE(path->containsNode(cube));
    EXPECT_FALSE(path->containsNode(root->getChild(0)));
    EXPECT_FALSE(path->containsNode(nullptr));
    EXPECT_EQ(path->getNode(2), nullptr);
    EXPECT_EQ(path->getNode(-1), nullptr);
  }
  EXPECT_EQ(cube->getRefCount(), 1);
}

TEST_F(Paths, APublicEndHidesTheRestButNotFromContainsNode) {
  const Ref<NkGroup> root(new NkGroup);
  auto* inner = new NkGroup;
  auto* cube = new NkCube;
  root->addChild(inner);
  inner->addChild(cube);
  const Ref<NkFullPath> path(NkPath::create(root.get()));
  path->append(inner);
  path->append(cube);
  NkPath* const seen = path.get();
  seen->setNumPublic(2);
  EXPECT_EQ(seen->getLength(), 2);
  EXPECT_EQ(seen->getTail(), inner);
  EXPECT_EQ(seen->full()->getLength(), 3);
  EXPECT_EQ(seen->full()->getTail(), cube);
  EXPECT_TRUE(seen->containsNode(cube));
  seen->setNumPublic(-1);
  EXPECT_EQ(seen->getLength(), 3);
}

TEST_F(Paths, ABrokenPathIsNoticed) {
  const Ref<NkGroup> root(new NkGroup);
  auto* inner = new NkGroup;
  root->addChild(inner);
  inner->addChild(new NkCube);
  const Ref<NkFullPath> path(NkPath::create(root.get()));
  path->append(0);
  path->append(0);
  EXPECT_TRUE(path->isIntact());
  root->insertChild(new NkCube, 0);
  EXPECT_TRUE(path->isIntact());
  root->removeChild(inner);
  EXPECT_FALSE(path->isIntact());
}

TEST_F(Paths, MisuseIsPosted) {
  const Ref<NkGroup> root(new NkGroup);
  const Ref<NkPath> path(NkPath::create(root.get()));
  expectMessage("The tail has no child 3");
  EXPECT_FALSE(path->append(3));
  const Ref<NkCube> cube(new NkCube);
  expectMessage("The node is no child of the tail");
  EXPECT_FALSE(path->append(cube.get()));
  EXPECT_EQ(path->getLength(), 1);
}

TEST_F(Paths, PathsContainAndEqual) {
  const Ref<NkGroup> root(new NkGroup);
  auto* inner = new NkGroup;
  root->addChild(inner);
  inner->addChild(new NkCube);
  const Ref<NkFullPath> path(NkPath::create(root.get()));
  path->append(0);
  path->append(0);
  const Ref<NkFullPath> part(NkPath::create(inner));
  part->append(0);
  EXPECT_TRUE(path->containsPath(part.get()));
  EXPECT_FALSE(part->containsPath(path.get()));
  const Ref<NkFullPath> copy(path->copy());
  EXPECT_TRUE(*copy == *path);
  copy->truncate(1);
  EXPECT_FALSE(*copy == *path);
}

using Matrices = SceneTest;

TEST_F(Matrices, APathAccumulatesWhatStandsLeftOfItAndItsTail) {
  const auto root = read(
      "Separator { Translation { translation 1 0 0 } Separator { Translation { translation 100 0 0 } } "
      "Group { Scale { scaleFactor 2 2 2 } DEF tail Translation { translation 0 3 0 } } Translation { translation 50 0 "
      "0 } }");
  ASSERT_TRUE(root);
  NkSearchAction search;
  search.setName("tail");
  search.apply(root.get());
  ASSERT_TRUE(search.getPath());
  NkGetMatrixAction action;
  action.apply(search.getPath());
  EXPECT_EQ(throughMatrix(action, NbVec3f(0, 0, 0)), NbVec3f(1, 6, 0));
  EXPECT_EQ(throughMatrix(action, NbVec3f(1, 0, 0)), NbVec3f(3, 6, 0));
  NbVec3f back;
  action.getInverse().multVecMatrix(NbVec3f(1, 6, 0), back);
  EXPECT_EQ(back, NbVec3f(0, 0, 0));
}

TEST_F(Matrices, ANodeAloneGivesItsOwnTransform) {
  const auto root = read("DEF t Translation { translation 4 5 6 }");
  NkGetMatrixAction action;
  action.apply(NkNode::getByName("t"));
  EXPECT_EQ(throughMatrix(action, NbVec3f(0, 0, 0)), NbVec3f(4, 5, 6));
  action.apply(root.get());
  EXPECT_TRUE(action.getMatrix().isIdentity());
}

TEST_F(Matrices, TheLastNodeOfASubgraphEndsWhereItIsMovedTo) {
  // How a text is put on the front face of a skin part, however deep that is drawn.
  const auto root =
      read("Group { Scale { scaleFactor 200 20 1 } Switch { whichChild 1 Group { Translation { translation 0 0 9 } } "
           "Group { Translation { translation 0 0 0.5 } Cube { } Translation { translation 0 0 0.5 } } } }");
  NkGetMatrixAction action;
  action.applyToEnd(root.get());
  NbVec3f translation;
  NbRotation rotation;
  NbVec3f scale;
  NbRotation scaleOrientation;
  action.getMatrix().getTransform(translation, rotation, scale, scaleOrientation);
  EXPECT_EQ(translation, NbVec3f(0, 0, 1));
  EXPECT_TRUE(scale.equals(NbVec3f(200, 20, 1), 1e-3f));
}

TEST_F(Matrices, TheEndIsThatOfThePathToTheLastNodeOfASearch) {
  for (const char* text : {
           "Translation { translation 1 2 3 }",
           "Group { Translation { translation 1 2 3 } Cube { } }",
           "Separator { Translation { translation 1 0 0 } Separator { Scale { scaleFactor 2 3 4 } Translation { "
           "translation 1 1 1 } Cube { } } }",
           "Separator { Translation { translation 1 0 0 } Separator { Scale { scaleFactor 2 3 4 } } Cube { } }",
           "Group { Translation { translation 1 0 0 } Group { } }",
           "Group { Translation { translation 1 0 0 } Switch { whichChild -1 Translation { translation 1 0 0 } } }",
           "Group { Switch { whichChild -3 Translation { translation 1 0 0 } Scale { scaleFactor 2 2 2 } } }",
           "Group { InteractionKit { geomSeparator Separator { Translation { translation 0 7 0 } } } }",
       }) {
    SCOPED_TRACE(text);
    const auto root = read(text);
    ASSERT_TRUE(root);
    for (const bool searchesKits : {true, false}) {
      NkBaseKit::setSearchingChildren(searchesKits);
      NkSearchAction search;
      search.setInterest(NkSearchAction::LAST);
      search.setType(NkNode::getClassTypeId(), true);
      search.apply(root.get());
      NkGetMatrixAction path;
      path.apply(search.getPath());
      NkGetMatrixAction end;
      end.applyToEnd(root.get());
      EXPECT_EQ(end.getMatrix(), path.getMatrix());
      // The mode is over.
      end.apply(search.getPath());
      EXPECT_EQ(end.getMatrix(), path.getMatrix());
    }
    NkBaseKit::setSearchingChildren(true);
  }
}

using Searches = SceneTest;

TEST_F(Searches, FirstLastAndAll) {
  const auto root = read("Group { Cube { width 1 } Separator { Cube { width 2 } } } Cube { width 3 }");
  NkSearchAction search;
  search.setType(NkCube::getClassTypeId());
  search.apply(root.get());
  ASSERT_TRUE(search.isFound());
  EXPECT_EQ(static_cast<NkCube*>(search.getPath()->getTail())->width.getValue(), 1.0f);
  EXPECT_EQ(search.getPath()->getLength(), 3);
  search.setInterest(NkSearchAction::LAST);
  search.apply(root.get());
  EXPECT_EQ(static_cast<NkCube*>(search.getPath()->getTail())->width.getValue(), 3.0f);
  search.setInterest(NkSearchAction::ALL);
  search.apply(root.get());
  ASSERT_EQ(search.getPaths().getLength(), 3);
  EXPECT_EQ(static_cast<NkCube*>(search.getPaths()[1]->getTail())->width.getValue(), 2.0f);
  EXPECT_EQ(search.getPaths()[3], nullptr);
}

TEST_F(Searches, DerivedTypesCountOnlyIfWanted) {
  const auto root = read("Group { Separator { } }");
  NkSearchAction search;
  search.setInterest(NkSearchAction::ALL);
  search.setType(NkGroup::getClassTypeId(), false);
  search.apply(root.get());
  EXPECT_EQ(search.getPaths().getLength(), 1);
  search.setType(NkGroup::getClassTypeId(), true);
  search.apply(root.get());
  EXPECT_EQ(search.getPaths().getLength(), 3);
}

TEST_F(Searches, NameNodeAndTypeMustAllFit) {
  const auto root = read("DEF a Cube { } DEF a Sphere { }");
  NkSearchAction search;
  search.setName("a");
  search.setType(NkSphere::getClassTypeId());
  search.apply(root.get());
  ASSERT_TRUE(search.getPath());
  EXPECT_TRUE(search.getPath()->getTail()->isOfType(NkSphere::getClassTypeId()));
  search.setNode(root->getChild(0));
  search.apply(root.get());
  EXPECT_EQ(search.getPath(), nullptr);
}

TEST_F(Searches, WhatASwitchHidesIsFoundOnlyWhenSearchingAll) {
  const auto root = read("Switch { Cube { } }");
  NkSearchAction search;
  search.setType(NkCube::getClassTypeId());
  search.apply(root.get());
  EXPECT_FALSE(search.isFound());
  search.setSearchingAll(true);
  search.apply(root.get());
  EXPECT_TRUE(search.isFound());
}

TEST_F(Searches, ResetSearchesForNothing) {
  const auto root = read("Cube { }");
  NkSearchAction search;
  search.setInterest(NkSearchAction::LAST);
  search.setType(NkCube::getClassTypeId());
  search.apply(root.get());
  EXPECT_TRUE(search.getPath());
  search.reset();
  EXPECT_EQ(search.getPath(), nullptr);
  EXPECT_EQ(search.getInterest(), NkSearchAction::FIRST);
  search.apply(root.get());
  EXPECT_EQ(search.getPath(), nullptr);
  search.apply(static_cast<NkNode*>(nullptr));
}

using Traversals = SceneTest;

namespace {

struct Visits {
  std::vector<std::string> types;
  std::vector<int> codes;
  NkCallbackAction::Response response = NkCallbackAction::CONTINUE;
};

NkCallbackAction::Response note(void* data, NkCallbackAction* action, const NkNode* node) {
  auto* visits = static_cast<Visits*>(data);
  visits->types.emplace_back(node->getTypeId().getName().getString());
  visits->codes.push_back(action->getPathCode());
  return node->isOfType(NkSeparator::getClassTypeId()) ? NkCallbackAction::CONTINUE : visits->response;
}

} // namespace

TEST_F(Traversals, CallbacksRunAheadOfAndBehindNodes) {
  const auto root = read("Group { Cube { } } Sphere { }");
  Visits pre;
  Visits post;
  NkCallbackAction action;
  action.addPreCallback(NkNode::getClassTypeId(), &note, &pre);
  action.addPostCallback(NkNode::getClassTypeId(), &note, &post);
  action.apply(root.get());
  EXPECT_EQ(pre.types, (std::vector<std::string>{"Separator", "Group", "Cube", "Sphere"}));
  EXPECT_EQ(post.types, (std::vector<std::string>{"Cube", "Group", "Sphere", "Separator"}));
}

TEST_F(Traversals, PruneSkipsWhatIsBelowAndAbortEnds) {
  const auto root = read("Group { Cube { } } Sphere { }");
  Visits visits;
  visits.response = NkCallbackAction::PRUNE;
  NkCallbackAction action;
  action.addPreCallback(NkNode::getClassTypeId(), &note, &visits);
  action.apply(root.get());
  EXPECT_EQ(visits.types, (std::vector<std::string>{"Separator", "Group", "Sphere"}));
  visits = Visits();
  visits.response = NkCallbackAction::ABORT;
  action.apply(root.get());
  EXPECT_EQ(visits.types, (std::vector<std::string>{"Separator", "Group"}));
  EXPECT_TRUE(action.hasTerminated());
}

TEST_F(Traversals, AlongAPathOnlyWhatChangesTheStateIsVisitedBesideIt) {
  const auto root = read("Translation { } Cube { } Separator { Scale { } } Group { Cube { } Separator { Sphere { } } } "
                         "Translation { }");
  const Ref<NkPath> path(NkPath::create(root.get()));
  path->append(3);
  path->append(1);
  Visits visits;
  NkCallbackAction action;
  action.addPreCallback(NkNode::getClassTypeId(), &note, &visits);
  action.apply(path.get());
  EXPECT_EQ(visits.types, (std::vector<std::string>{"Separator", "Translation", "Group", "Separator", "Sphere"}));
  EXPECT_EQ(visits.codes, (std::vector<int>{NkAction::IN_PATH, NkAction::OFF_PATH, NkAction::IN_PATH,
                                            NkAction::BELOW_PATH, NkAction::BELOW_PATH}));
}

TEST_F(Traversals, SeveralPathsAreWalkedTogether) {
  const auto root = read("Group { Cube { } Sphere { } Cube { } } Sphere { }");
  NkPathList paths;
  for (const int index : {2, 0}) {
    NkFullPath* path = NkPath::create(root.get());
    path->append(0);
    path->append(index);
    paths.append(path);
  }
  Visits visits;
  NkCallbackAction action;
  action.addPreCallback(NkNode::getClassTypeId(), &note, &visits);
  action.apply(paths);
  EXPECT_EQ(visits.types, (std::vector<std::string>{"Separator", "Group", "Cube", "Cube"}));
}

TEST_F(Traversals, TheBoxOfAPathIsThatOfItsTailInTheHeadsSpace) {
  const auto root = read("Cube { } Translation { translation 10 0 0 } Group { Sphere { } Cube { width 4 } }");
  const Ref<NkPath> path(NkPath::create(root.get()));
  path->append(2);
  path->append(1);
  NkGetBoundingBoxAction action;
  action.apply(path.get());
  EXPECT_EQ(action.getBoundingBox(), NbBox3f(8, -1, -1, 12, 1, 1));
}

TEST_F(Traversals, ChildrenMayGoInTheMiddleOfATraversal) {
  const auto root = read("Group { Cube { } } Sphere { } Sphere { }");
  NkCallbackAction action;
  action.addPreCallback(
      NkCube::getClassTypeId(),
      [](void* data, NkCallbackAction*, const NkNode*) {
        static_cast<NkSeparator*>(data)->removeAllChildren();
        return NkCallbackAction::CONTINUE;
      },
      root.get());
  Visits visits;
  action.addPostCallback(NkNode::getClassTypeId(), &note, &visits);
  action.apply(root.get());
  EXPECT_EQ(visits.types, (std::vector<std::string>{"Cube", "Group", "Separator"}));
}
