#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "arbora/scene/NkCallbackAction.h"
#include "arbora/scene/NkCoordinate3.h"
#include "arbora/scene/NkCube.h"
#include "arbora/scene/NkFaceSet.h"
#include "arbora/scene/NkFieldSensor.h"
#include "arbora/scene/NkFont.h"
#include "arbora/scene/NkGLRenderAction.h"
#include "arbora/scene/NkGetBoundingBoxAction.h"
#include "arbora/scene/NkGetMatrixAction.h"
#include "arbora/scene/NkInteractionKit.h"
#include "arbora/scene/NkMField.h"
#include "arbora/scene/NkNodeKitListPart.h"
#include "arbora/scene/NkNodeSensor.h"
#include "arbora/scene/NkOrthographicCamera.h"
#include "arbora/scene/NkPath.h"
#include "arbora/scene/NkPlaneDragger.h"
#include "arbora/scene/NkSearchAction.h"
#include "arbora/scene/NkSwitch.h"
#include "arbora/scene/NkText3.h"
#include "arbora/scene/NkTexture2.h"
#include "arbora/scene/NkTransform.h"
#include "arbora/scene/RecordingBackend.h"
#include "tests/scene/ModelNodes.h"
#include "tests/scene/SceneTest.h"

using arbora::Ref;

namespace {

/// Calls out, once, when a traversal comes by.
class Caller : public NkGroup {
  NK_NODE_HEADER(Caller);

public:
  std::function<void()> call;
  Caller() { NK_NODE_CONSTRUCTOR(Caller); }
  explicit Caller(std::function<void()> function) : Caller() { call = std::move(function); }
  void doAction(NkAction* action) override {
    if (const auto function = std::exchange(call, nullptr)) function();
    NkGroup::doAction(action);
  }

protected:
  ~Caller() override = default;
};
NK_NODE_SOURCE(Caller, NkGroup, "RobustCaller");

class Kit : public NkInteractionKit {
  NK_KIT_HEADER(Kit);

public:
  NkSFNode choice;
  NkSFNode inner;
  NkSFNode shape;
  NkSFNode dragger;
  NkSFNode entries;
  Kit() {
    NK_KIT_CONSTRUCTOR(Kit);
    NK_KIT_ADD_CATALOG_ENTRY(choice, NkSwitch, true, "geomSeparator", "", true);
    NK_KIT_ADD_CATALOG_ENTRY(inner, NkGroup, true, "choice", "", true);
    NK_KIT_ADD_CATALOG_ABSTRACT_ENTRY(shape, NkNode, NkCube, true, "geomSeparator", "", true);
    NK_KIT_ADD_CATALOG_ENTRY(dragger, NkPlaneDragger, true, "geomSeparator", "", true);
    NK_KIT_ADD_CATALOG_LIST_ENTRY(entries, NkSeparator, true, "geomSeparator", "", NkShape, true);
    NK_KIT_INIT_INSTANCE();
  }

protected:
  ~Kit() override = default;
};
NK_KIT_SOURCE(Kit, NkInteractionKit, "RobustKit");

class Robustness : public SceneTest {
protected:
  Robustness() {
    Holder::initClass();
    Caller::initClass();
    Isolating::initClass();
    Kit::initClass();
  }
  ~Robustness() override {
    Kit::exitClass();
    Isolating::exitClass();
    Caller::exitClass();
    Holder::exitClass();
  }
};

/// Calls a function inside each change of what it watches.
template <class Sensor>
struct Calling {
  template <class Watched>
  Calling(Watched* watched, std::function<void()> function) : call(std::move(function)) {
    sensor.setFunction([](void* data, NkSensor*) { static_cast<Calling*>(data)->call(); });
    sensor.setData(this);
    sensor.setPriority(0);
    sensor.attach(watched);
  }
  Sensor sensor;
  std::function<void()> call;
};

float widthOf(NkNode* node) {
  NkGetBoundingBoxAction action;
  action.apply(node);
  return action.getBoundingBox().isEmpty() ? 0 : action.getBoundingBox().getSize()[0];
}

/// Groups within one another around a node, the given number of them.
Ref<NkNode> nested(NkNode* innermost, int levels) {
  Ref<NkNode> below(innermost);
  for (int i = 0; i < levels; ++i) {
    auto* group = new NkGroup;
    group->addChild(below.get());
    below = Ref<NkNode>(group);
  }
  return below;
}

arbora::Image dot() {
  arbora::Image image;
  image.width = image.height = 1;
  image.components = 3;
  image.pixels = {1, 2, 3};
  return image;
}

} // namespace

// Sensors

TEST_F(Robustness, AllSensorsOfADyingFieldAreTold) {
  Ref<NkCube> cube(new NkCube);
  int told = 0;
  NkFieldSensor sensors[6];
  for (NkFieldSensor& sensor : sensors) {
    sensor.setDeleteCallback([](void* data, NkSensor*) { ++*static_cast<int*>(data); }, &told);
    sensor.attach(&cube->width);
  }
  cube = Ref<NkCube>();
  EXPECT_EQ(told, 6);
  for (const NkFieldSensor& sensor : sensors) EXPECT_EQ(sensor.getAttachedField(), nullptr);
}

TEST_F(Robustness, ADeleteCallbackMayDeleteTheSensorAndItsNeighbour) {
  Ref<NkCube> cube(new NkCube);
  static NkFieldSensor* s_neighbour = nullptr;
  auto* field = new NkFieldSensor;
  field->setDeleteCallback([](void*, NkSensor* sensor) {
    delete sensor;
    delete s_neighbour;
  });
  field->attach(&cube->width);
  s_neighbour = new NkFieldSensor;
  s_neighbour->setDeleteCallback([](void*, NkSensor*) { FAIL(); });
  s_neighbour->attach(&cube->width);
  auto* node = new NkNodeSensor;
  node->setDeleteCallback([](void*, NkSensor* sensor) { delete sensor; });
  node->attach(cube.get());
  cube = Ref<NkCube>();
}

TEST_F(Robustness, AWriteInsideACallbackLeavesTheTriggerOfTheOuterOne) {
  const Ref<NkCube> cube(new NkCube);
  std::vector<NkField*> triggers;
  Calling<NkNodeSensor> watch(cube.get(), [&] {
    if (triggers.empty()) {
      triggers.push_back(watch.sensor.getTriggerField());
      cube->height = 4;
    }
    triggers.push_back(watch.sensor.getTriggerField());
    EXPECT_EQ(watch.sensor.getTriggerNode(), cube.get());
  });
  cube->width = 4;
  EXPECT_EQ(triggers, (std::vector<NkField*>{&cube->width, &cube->height, &cube->width}));
  EXPECT_EQ(watch.sensor.getTriggerField(), nullptr);
}

TEST_F(Robustness, ANodeThatHasStoppedTellingTellsAgainAsTheValueOfAField) {
  const Ref<NkGroup> top(new NkGroup);
  auto* holder = new Holder;
  top->addChild(holder);
  int told = 0;
  const Calling<NkNodeSensor> watch(top.get(), [&] { ++told; });
  const Ref<NkGroup> groups[] = {Ref<NkGroup>(new NkGroup), Ref<NkGroup>(new NkGroup)};
  NkCube* cubes[] = {new NkCube, new NkCube};
  for (int i = 0; i < 2; ++i) {
    groups[i]->addChild(cubes[i]);
    // Nobody listens yet: from here on they keep their changes to themselves.
    cubes[i]->width = 1;
  }
  holder->one = groups[0].get();
  holder->many.setValue(groups[1].get());
  EXPECT_EQ(told, 2);
  for (NkCube* cube : cubes) cube->width = 2;
  EXPECT_EQ(told, 4);
  holder->one = nullptr;
  holder->many.deleteValues(0);
  for (NkCube* cube : cubes) cube->width = 3;
  EXPECT_EQ(told, 6);
}

TEST_F(Robustness, ASensorHearsOfWhatIsAnyNumberOfLevelsBelowByEachWay) {
  const Ref<NkCube> cube(new NkCube);
  const Ref<NkGroup> group(new NkGroup);
  group->addChild(nested(cube.get(), 3990).get());
  group->addChild(cube.get());
  const Ref<NkNode> root = nested(group.get(), 6000);
  int told = 0;
  const Calling<NkNodeSensor> watch(root.get(), [&] { ++told; });
  cube->width = 7;
  EXPECT_EQ(told, 1);
}

TEST_F(Robustness, ADyingNodeIsNotFoundByItsName) {
  Ref<NkCube> cube(new NkCube);
  cube->setName("dying");
  NkNode* found = cube.get();
  NkNodeSensor sensor;
  sensor.setDeleteCallback([](void* data, NkSensor*) { *static_cast<NkNode**>(data) = NkNode::getByName("dying"); },
                           &found);
  sensor.attach(cube.get());
  cube = Ref<NkCube>();
  EXPECT_EQ(found, nullptr);
}

TEST_F(Robustness, ANodeThatNobodyHasReferencedSurvivesAReferenceInACallback) {
  auto* cube = new NkCube;
  {
    const Calling<NkFieldSensor> watch(&cube->width, [&] { const Ref<NkCube> keep(cube); });
    cube->width = 3;
    EXPECT_EQ(cube->width.getValue(), 3);
    EXPECT_EQ(cube->getRefCount(), 0);
  }
  cube->ref();
  cube->unref();
}

// Changes inside the callbacks of a change

TEST_F(Robustness, AChildMayGoInTheCallbackOfItsComing) {
  const Ref<NkGroup> group(new NkGroup);
  const Calling<NkNodeSensor> watch(group.get(), [&] {
    if (group->getNumChildren() > 0) group->removeChild(0);
  });
  group->addChild(new NkCube);
  EXPECT_EQ(group->getNumChildren(), 0);
  group->insertChild(new NkCube, 0);
  EXPECT_EQ(group->getNumChildren(), 0);
}

TEST_F(Robustness, AChildMayGoInTheCallbackOfReplacingAnother) {
  const Ref<NkGroup> group(new NkGroup);
  group->addChild(new NkCube);
  const Calling<NkNodeSensor> watch(group.get(), [&] {
    if (group->getNumChildren() > 0) group->removeChild(0);
  });
  group->replaceChild(0, new NkCube);
  EXPECT_EQ(group->getNumChildren(), 0);
}

TEST_F(Robustness, AnOwnerMayGoInTheCallbacksOfItsChanges) {
  // Each change is made to a node that is thrown away in the middle of it.
  const std::function<void(Kit*)> changes[] = {
      [](Kit* kit) { kit->shape = new NkCube; },
      [](Kit* kit) { kit->setPart("shape", new NkCube); },
      [](Kit* kit) { kit->getPart("inner", true); },
      [](Kit* kit) { kit->getPart("entries[0]", true); },
      [](Kit* kit) { kit->setPart("entries[0]", new NkCube); },
      [](Kit* kit) { kit->getPart("dragger.geometry", true); },
      [](Kit* kit) { kit->setPart("dragger.geometry", new NkCube); },
      [](Kit* kit) { kit->setPartAsDefault("shape", new NkCube, false); },
  };
  for (const auto& change : changes) {
    const Ref<NkGroup> group(new NkGroup);
    auto* kit = new Kit;
    group->addChild(kit);
    const Calling<NkNodeSensor> watch(group.get(), [&] { group->removeAllChildren(); });
    change(kit);
    EXPECT_EQ(group->getNumChildren(), 0);
  }
  const std::function<void(NkGroup*)> makes[] = {
      [](NkGroup* group) {
        auto* holder = new Holder;
        group->addChild(holder);
        const Calling<NkNodeSensor> watch(group, [&] { group->removeAllChildren(); });
        holder->many.setValue(new NkCube);
      },
      [](NkGroup* group) {
        auto* transform = new NkTransform;
        group->addChild(transform);
        const Calling<NkFieldSensor> watch(&transform->translation, [&] { group->removeAllChildren(); });
        transform->setMatrix(NbMatrix());
      },
      [](NkGroup* group) {
        auto* cube = new NkCube;
        group->addChild(cube);
        auto* camera = new NkOrthographicCamera;
        group->addChild(camera);
        const Calling<NkFieldSensor> watch(&camera->position, [&] { group->removeAllChildren(); });
        camera->viewAll(group, NbViewportRegion(100, 100));
      },
      [](NkGroup* group) {
        auto* cube = new NkCube;
        group->addChild(cube);
        const Ref<NkCube> other(new NkCube);
        other->width = 3;
        other->height = 4;
        const Calling<NkFieldSensor> watch(&cube->width, [&] { group->removeAllChildren(); });
        cube->copyFieldValues(other.get());
      },
  };
  for (const auto& make : makes) {
    const Ref<NkGroup> group(new NkGroup);
    make(group.get());
    EXPECT_EQ(group->getNumChildren(), 0);
  }
}

TEST_F(Robustness, APartThatIsReplacedInACallbackStandsInTheTreeOnce) {
  const Ref<Kit> kit(new Kit);
  kit->getPart("inner", true);
  int changes = 0;
  const Calling<NkNodeSensor> watch(kit.get(), [&] {
    if (++changes == 1) kit->setPart("choice", new NkSwitch);
  });
  kit->setPart("choice", new NkSwitch);
  NkSearchAction search;
  search.setType(NkSwitch::getClassTypeId());
  search.setInterest(NkSearchAction::ALL);
  search.setSearchingAll(true);
  search.apply(kit.get());
  ASSERT_EQ(search.getPaths().getLength(), 1);
  EXPECT_EQ(search.getPaths()[0]->full()->getTail(), kit->choice.getValue());
  EXPECT_EQ(kit->choice.getValue()->getChildren()->get(0), kit->inner.getValue());
}

// Changes inside traversals

TEST_F(Robustness, AnActionIsNotAppliedInsideItself) {
  const Ref<NkGroup> group(new NkGroup);
  group->addChild(new NkCube);
  group->addChild(new NkGroup);
  NkCallbackAction action;
  int visited = 0;
  action.addPreCallback(
      NkCube::getClassTypeId(),
      [](void* data, NkCallbackAction* self, const NkNode* node) {
        ++*static_cast<int*>(data);
        self->apply(const_cast<NkNode*>(node));
        return NkCallbackAction::CONTINUE;
      },
      &visited);
  expectMessage("An action of type CallbackAction can't be applied from inside its own traversal");
  action.apply(group.get());
  EXPECT_EQ(visited, 1);
}

TEST_F(Robustness, APropertyMayGoInTheTraversalInWhichItCounts) {
  const NbVec3f points[] = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}};
  arbora::RecordingBackend backend;
  NkGLRenderAction draw(NbViewportRegion(100, 100));
  draw.setBackend(&backend);
  NkGetBoundingBoxAction measure;
  NkAction* const actions[] = {&draw, &measure};
  for (NkAction* action : actions) {
    for (int property = 0; property < 3; ++property) {
      const Ref<NkSeparator> root(new NkSeparator);
      if (property == 0) {
        auto* coordinates = new NkCoordinate3;
        coordinates->point.setValues(0, 3, points);
        root->addChild(coordinates);
      } else if (property == 1) {
        auto* texture = new NkTexture2;
        texture->image.setValue(dot());
        root->addChild(texture);
      } else {
        root->addChild(new NkOrthographicCamera);
      }
      root->addChild(new NkCube);
      // The list moves up by one: its next node isn't visited.
      root->addChild(new Caller([&] { root->removeChild(0); }));
      root->addChild(new NkGroup);
      auto* separator = new NkSeparator;
      separator->addChild(new NkFaceSet);
      separator->addChild(new NkCube);
      root->addChild(separator);
      action->apply(root.get());
      EXPECT_EQ(root->getNumChildren(), 4);
      action->apply(root.get());
    }
  }
  EXPECT_EQ(backend.getDrawnInstances().size(), 2U);
}

TEST_F(Robustness, AFoundNodeThatGoesInTheSearchStaysInItsPath) {
  const Ref<NkGroup> root(new NkGroup);
  root->addChild(new NkCube);
  NkSearchAction search;
  search.setType(NkCube::getClassTypeId());
  search.setInterest(NkSearchAction::LAST);
  // A group searches below itself by its traversal.
  root->addChild(new Caller([&] { root->removeChild(0); }));
  search.apply(root.get());
  ASSERT_NE(search.getPath(), nullptr);
  EXPECT_TRUE(search.getPath()->getTail()->isOfType(NkCube::getClassTypeId()));
  EXPECT_FALSE(search.getPath()->isIntact());
}

TEST_F(Robustness, ABoxThatUsesAnInheritedFontFollowsItThroughAnotherScope) {
  const Ref<NkGroup> root(new NkGroup);
  auto* font = new NkFont;
  auto* separator = new NkSeparator;
  auto* isolating = new Isolating;
  auto* text = new NkText3;
  text->string = NbString("abc");
  root->addChild(font);
  root->addChild(separator);
  separator->addChild(isolating);
  isolating->addChild(text);
  const float width = widthOf(root.get());
  font->size = 2 * font->size.getValue();
  EXPECT_NEAR(widthOf(root.get()), 2 * width, 0.01F * width);
}

TEST_F(Robustness, AChangeInsideAMeasurementIsMeasuredTheNextTime) {
  const Ref<NkSeparator> root(new NkSeparator);
  auto* cube = new NkCube;
  root->addChild(cube);
  root->addChild(new Caller([&] { cube->width = 8; }));
  widthOf(root.get());
  EXPECT_FLOAT_EQ(widthOf(root.get()), 8);
  cube->width = 9;
  EXPECT_FLOAT_EQ(widthOf(root.get()), 9);
}

// Limits

TEST_F(Robustness, ARingOfGroupsBesideAPathIsNoticed) {
  const Ref<NkGroup> group(new NkGroup);
  group->addChild(group.get());
  group->addChild(new NkCube);
  const Ref<NkPath> path(NkPath::create(group.get()));
  path->append(1);
  NkGetMatrixAction action;
  expectMessage("A node of type Group contains itself");
  action.apply(path.get());
  group->removeAllChildren();
}

TEST_F(Robustness, AVeryDeepGroupBesideAPathIsCut) {
  const Ref<NkGroup> root(new NkGroup);
  root->addChild(nested(new NkGroup, 100000).get());
  root->addChild(new NkCube);
  const Ref<NkPath> path(NkPath::create(root.get()));
  path->append(1);
  NkGetMatrixAction action;
  expectMessage("The scene is nested deeper than 2000 levels");
  action.apply(path.get());
}

TEST_F(Robustness, ACopyOfAVeryDeepSceneIsCut) {
  const Ref<NkNode> root = nested(new NkCube, 100000);
  expectMessage("The scene is nested deeper than 2000 levels; what is below isn't copied");
  const Ref<NkNode> copy(root->copy());
  int levels = 0;
  for (const NkNode* node = copy.get(); node; node = node->getChildren()->get(0)) ++levels;
  EXPECT_EQ(levels, NkAction::kMaxDepth + 1);
}

TEST_F(Robustness, AListTakesNoCountThatWouldFillTheMemory) {
  NkMFString strings;
  NkMFVec3f vectors;
  NkMFNode nodes;
  constexpr int kMost = 2147483647;
  for (NkMField* field :
       {static_cast<NkMField*>(&strings), static_cast<NkMField*>(&vectors), static_cast<NkMField*>(&nodes)}) {
    expectMessage("::setNum(): Index 2147483647 is out of range");
    expectMessage("::insertSpace(): Index 2147483647 is out of range");
    field->setNum(kMost);
    field->insertSpace(0, kMost);
    EXPECT_EQ(field->getNum(), 0);
  }
  // A string takes more room than a number, so fewer of them are allowed.
  expectMessage("NkMField::set1Value(): Index 120000000 is out of range");
  strings.set1Value(120000000, NbString());
  EXPECT_EQ(strings.getNum(), 0);
}

TEST_F(Robustness, AChainOfConnectionsIsFollowedAsFarAsTheStackAllows) {
  std::vector<Ref<NkCube>> cubes;
  for (int i = 0; i < 350; ++i) {
    cubes.emplace_back(new NkCube);
    if (i > 0) cubes[static_cast<std::size_t>(i)]->width.connectFrom(&cubes[static_cast<std::size_t>(i) - 1]->width);
  }
  cubes.front()->width = 5;
  EXPECT_EQ(cubes.back()->width.getValue(), 5);
  for (std::size_t i = cubes.size(); i < 20000; ++i) {
    cubes.emplace_back(new NkCube);
    cubes[i]->width.connectFrom(&cubes[i - 1]->width);
  }
  expectMessage("A chain of connections is longer than 400");
  cubes.front()->width = 6;
  EXPECT_EQ(cubes[400]->width.getValue(), 6);
  EXPECT_EQ(cubes.back()->width.getValue(), 5);
}

TEST_F(Robustness, AFollowerMayLeaveInTheMiddleOfAWrite) {
  const Ref<NkCube> source(new NkCube);
  Ref<NkCube> followers[4];
  for (Ref<NkCube>& follower : followers) {
    follower = Ref<NkCube>(new NkCube);
    follower->width.connectFrom(&source->width);
  }
  const Calling<NkFieldSensor> watch(&followers[1]->width, [&] {
    followers[0] = Ref<NkCube>();
    followers[2]->width.disconnect();
    followers[1]->height.connectFrom(&source->width);
  });
  source->width = 9;
  EXPECT_EQ(followers[2]->width.getValue(), 2);
  EXPECT_EQ(followers[3]->width.getValue(), 9);
  EXPECT_EQ(followers[1]->height.getValue(), 9);
  source->width = 10;
  EXPECT_EQ(followers[1]->height.getValue(), 10);
  EXPECT_EQ(followers[3]->width.getValue(), 10);
}
