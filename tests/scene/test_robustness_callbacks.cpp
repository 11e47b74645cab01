#include <memory>
#include <random>
#include <string>
#include <vector>

#include "arbora/scene/NkCallbackAction.h"
#include "arbora/scene/NkCoordinate3.h"
#include "arbora/scene/NkCube.h"
#include "arbora/scene/NkEventCallback.h"
#include "arbora/scene/NkFaceSet.h"
#include "arbora/scene/NkFieldSensor.h"
#include "arbora/scene/NkFont.h"
#include "arbora/scene/NkGLRenderAction.h"
#include "arbora/scene/NkGetBoundingBoxAction.h"
#include "arbora/scene/NkGetMatrixAction.h"
#include "arbora/scene/NkHandleEventAction.h"
#include "arbora/scene/NkInteractionKit.h"
#include "arbora/scene/NkLocation2Event.h"
#include "arbora/scene/NkMField.h"
#include "arbora/scene/NkMouseButtonEvent.h"
#include "arbora/scene/NkNodeKitListPart.h"
#include "arbora/scene/NkNodeSensor.h"
#include "arbora/scene/NkOrthographicCamera.h"
#include "arbora/scene/NkPath.h"
#include "arbora/scene/NkPlaneDragger.h"
#include "arbora/scene/NkRayPickAction.h"
#include "arbora/scene/NkSearchAction.h"
#include "arbora/scene/NkSensorManager.h"
#include "arbora/scene/NkSwitch.h"
#include "arbora/scene/NkText3.h"
#include "arbora/scene/NkTransform.h"
#include "arbora/scene/NkTranslation.h"
#include "arbora/scene/RecordingBackend.h"
#include "tests/scene/SceneTest.h"

using arbora::Ref;

// Everything that calls the application calls something here that changes the scene at random: takes nodes out of it
// and drops them, deletes sensors, begins further traversals. What comes out isn't looked at; nothing may be used that
// is gone, which the sanitizers watch, and nothing may be left.

namespace {

/// Does something at random, from inside a callback.
void disturb();

/// Calls out whenever a traversal comes by.
class Loud : public NkGroup {
  NK_NODE_HEADER(Loud);

public:
  Loud() { NK_NODE_CONSTRUCTOR(Loud); }
  void doAction(NkAction* action) override {
    disturb();
    NkGroup::doAction(action);
    disturb();
  }

protected:
  ~Loud() override = default;
};
NK_NODE_SOURCE(Loud, NkGroup, "LoudGroup");

class Kit : public NkInteractionKit {
  NK_KIT_HEADER(Kit);

public:
  NkSFNode choice;
  NkSFNode inner;
  NkSFNode shape;
  NkSFNode entries;
  NkSFNode dragger;
  NkSFNode extra; // No part.
  NkMFNode extras;
  Kit() {
    NK_KIT_CONSTRUCTOR(Kit);
    NK_NODE_ADD_FIELD(extra, (nullptr));
    NK_NODE_ADD_FIELD(extras, (nullptr));
    NK_KIT_ADD_CATALOG_ENTRY(choice, NkSwitch, true, "geomSeparator", "", true);
    NK_KIT_ADD_CATALOG_ENTRY(inner, NkGroup, true, "choice", "", true);
    NK_KIT_ADD_CATALOG_ABSTRACT_ENTRY(shape, NkNode, NkCube, true, "inner", "", true);
    NK_KIT_ADD_CATALOG_LIST_ENTRY(entries, NkSeparator, true, "geomSeparator", "", NkNode, true);
    NK_KIT_ADD_CATALOG_ENTRY(dragger, NkPlaneDragger, true, "geomSeparator", "", true);
    NK_KIT_INIT_INSTANCE();
  }

protected:
  ~Kit() override = default;
};
NK_KIT_SOURCE(Kit, NkInteractionKit, "LoudKit");

template <class T>
T* as(NkNode* node) {
  return node && node->isOfType(T::getClassTypeId()) ? static_cast<T*>(node) : nullptr;
}

class World {
public:
  explicit World(unsigned seed) : m_random(seed) {
    s_world = this;
    for (std::size_t i = 0; i < kNodes; ++i) m_nodes.emplace_back(make(i));
    for (auto& view : m_views) view.action.setBackend(&view.backend);
    for (int i = 0; i < 60; ++i) changeStructure();
    for (std::size_t i = 0; i < kSensors; ++i) {
      renewSensor(i);
      attachSensor(i);
    }
  }
  ~World() {
    s_world = nullptr; // What dies now disturbs nothing any more.
    m_events.reset();
    m_nodes.clear();
  }

  void step() {
    m_budget = 30;
    act();
  }

  static World* s_world;

  void disturbed() {
    constexpr int kMostNested = 4;
    if (m_nested == kMostNested || m_budget <= 0 || pick(3) == 0) return;
    --m_budget;
    ++m_nested;
    act();
    --m_nested;
  }

private:
  static constexpr std::size_t kContainers = 12; // Each holds only what stands behind it.
  static constexpr std::size_t kNodes = 30;
  static constexpr std::size_t kSensors = 32;
  struct View {
    arbora::RecordingBackend backend;
    NkGLRenderAction action{NbViewportRegion(100, 100)};
  };

  std::size_t pick(std::size_t count) { return m_random() % count; }
  int index(int count) { return static_cast<int>(pick(static_cast<std::size_t>(count))); }
  float value() { return static_cast<float>(m_random() % 40) / 4.0F; }
  NkNode* any(std::size_t count = kNodes) { return m_nodes[pick(count)].get(); }

  NkNode* make(std::size_t place) {
    if (place < kContainers) {
      switch (pick(8)) {
        case 0:
          return new NkSwitch;
        case 1:
          return new NkGroup;
        case 2:
          return new Kit;
        case 3:
          return new Loud;
        case 4: {
          auto* dragger = new NkPlaneDragger;
          dragger->addStartCallback([](void*, NkDragger*) { disturb(); });
          dragger->addMotionCallback([](void*, NkDragger*) { disturb(); });
          dragger->addFinishCallback([](void*, NkDragger*) { disturb(); });
          return dragger;
        }
        default:
          return new NkSeparator;
      }
    }
    switch (pick(10)) {
      case 0:
        return new NkTranslation;
      case 1:
        return new NkTransform;
      case 2:
        return new NkFont;
      case 3:
        return new NkCoordinate3;
      case 4:
        return new NkFaceSet;
      case 5: {
        auto* text = new NkText3;
        text->string = NbString("a");
        return text;
      }
      case 6: {
        auto* callback = new NkEventCallback;
        callback->addEventCallback(NkEvent::getClassTypeId(), [](void*, NkEventCallback* node) {
          if (s_world && s_world->pick(4) == 0) node->grabEvents();
          disturb();
          if (s_world && s_world->pick(3) == 0) node->releaseEvents();
        });
        return callback;
      }
      case 7:
        return new NkOrthographicCamera;
      default:
        return new NkCube;
    }
  }

  void changeStructure() {
    const std::size_t place = pick(kContainers);
    NkNode* parent = m_nodes[place].get();
    NkNode* child = m_nodes[place + 1 + pick(kNodes - place - 1)].get();
    if (auto* group = as<NkGroup>(parent)) {
      const int count = group->getNumChildren();
      if (count == 0 || (count < 5 && pick(2) == 0)) {
        group->insertChild(child, index(count + 1));
        return;
      }
      switch (pick(4)) {
        case 0:
          group->replaceChild(index(count), child);
          break;
        case 1:
          group->getChildren()->truncate(index(count));
          break;
        default:
          group->removeChild(index(count));
          break;
      }
    } else if (auto* kit = as<Kit>(parent)) {
      changeKit(kit, child);
    } else if (auto* dragger = as<NkPlaneDragger>(parent)) {
      dragger->setPart("geometry", pick(2) ? new NkCube : nullptr);
    }
  }

  void changeKit(Kit* kit, NkNode* child) {
    switch (pick(14)) {
      case 0:
        kit->setPart("shape", child);
        break;
      case 1:
        kit->setPart("shape", nullptr);
        break;
      case 2:
        kit->getPart("shape", true);
        break;
      case 3:
        kit->setPart("choice", nullptr);
        break;
      case 4:
        kit->setPart("inner", new NkGroup);
        break;
      case 5:
        kit->shape = child;
        break;
      case 6:
        kit->getPart("entries[0]", true);
        break;
      case 7:
        kit->setPart("entries[0]", child);
        break;
      case 8:
        kit->setPart("entries", nullptr);
        break;
      case 9:
        kit->getPart("dragger.geometry", true);
        break;
      case 10:
        kit->choice = new NkSwitch;
        break;
      case 11:
        kit->inner = nullptr;
        break;
      case 12:
        kit->extra = child;
        break;
      default:
        kit->extras.set1Value(index(3), child);
        break;
    }
  }

  void write() {
    NkNode* node = any();
    if (auto* translation = as<NkTranslation>(node))
      translation->translation.setValue(value(), value(), value());
    else if (auto* transform = as<NkTransform>(node))
      transform->setMatrix(NbMatrix());
    else if (auto* coordinates = as<NkCoordinate3>(node))
      coordinates->point.set1Value(index(3), NbVec3f(value(), value(), 0));
    else if (auto* cube = as<NkCube>(node))
      cube->width = 1 + value();
    else if (auto* text = as<NkText3>(node))
      text->string.set1Value(0, NbString(std::string(1 + pick(4), 'x')));
    else if (auto* choice = as<NkSwitch>(node))
      choice->whichChild = index(7) - 3;
    else if (auto* camera = as<NkCamera>(node))
      camera->viewAll(any(kContainers), NbViewportRegion(100, 100));
    else
      node->touch();
  }

  // Sensors

  void renewSensor(std::size_t i) {
    m_sensors[i].reset(i % 2 ? static_cast<NkDataSensor*>(new NkNodeSensor) : new NkFieldSensor);
    m_sensors[i]->setFunction([](void*, NkSensor*) { disturb(); });
    m_sensors[i]->setDeleteCallback([](void*, NkSensor* sensor) {
      disturb();
      if (s_world && s_world->pick(3) == 0) s_world->dropSensor(sensor);
    });
    m_sensors[i]->setPriority(i % 3 ? 0 : 100);
  }

  void dropSensor(const NkSensor* sensor) {
    for (std::unique_ptr<NkDataSensor>& entry : m_sensors) {
      if (entry.get() == sensor) entry.reset();
    }
  }

  void attachSensor(std::size_t i) {
    if (i % 2) {
      static_cast<NkNodeSensor*>(m_sensors[i].get())->attach(any());
    } else if (NkField* field = anyField()) {
      static_cast<NkFieldSensor*>(m_sensors[i].get())->attach(field);
    }
  }

  NkField* anyField() {
    NkFieldList fields;
    any()->getAllFields(fields);
    return fields.empty() ? nullptr : fields[pick(fields.size())];
  }

  void changeSensor() {
    const std::size_t i = pick(kSensors);
    if (!m_sensors[i])
      renewSensor(i);
    else if (pick(4) == 0)
      m_sensors[i].reset();
    else if (pick(6) == 0)
      m_sensors[i]->setPriority(pick(2) ? 0 : 50);
    else
      attachSensor(i);
  }

  void connect() {
    NkField* field = anyField();
    NkField* source = anyField();
    if (!field || !source || field->getTypeId() != source->getTypeId()) return;
    // A node that got into a field of what it holds would be held for ever.
    if (field->getTypeId() == NkSFNode::getClassTypeId() || field->getTypeId() == NkMFNode::getClassTypeId()) return;
    if (pick(4))
      field->connectFrom(source);
    else
      field->disconnect();
  }

  // Traversals

  void sendEvent() {
    if (m_events->getRoot()) return;
    NkLocation2Event motion;
    NkMouseButtonEvent button;
    button.setButton(NkMouseButtonEvent::BUTTON1);
    button.setState(pick(2) ? NkButtonEvent::DOWN : NkButtonEvent::UP);
    NkEvent& event = pick(2) ? static_cast<NkEvent&>(motion) : button;
    event.setPosition(NbVec2i32(45 + index(12), 45 + index(12)));
    m_events->setEvent(&event);
    m_events->apply(any(kContainers));
    m_events->setEvent(nullptr);
  }

  void search() {
    NkSearchAction search;
    search.setType(pick(2) ? NkCube::getClassTypeId() : NkShape::getClassTypeId());
    search.setInterest(index(3));
    search.setSearchingAll(pick(2));
    search.apply(any(kContainers));
    NkPathList paths(search.getPaths());
    if (search.getPath()) paths.append(search.getPath());
    NkGetMatrixAction().apply(paths);
    NkGetBoundingBoxAction().apply(paths);
    m_views[0].action.apply(paths);
  }

  void walk() {
    NkCallbackAction action;
    const auto callback = [](void*, NkCallbackAction*, const NkNode*) {
      if (s_world && s_world->pick(8) == 0) disturb();
      return s_world && s_world->pick(10) == 0 ? NkCallbackAction::PRUNE : NkCallbackAction::CONTINUE;
    };
    action.addPreCallback(NkNode::getClassTypeId(), callback);
    action.addPostCallback(NkGroup::getClassTypeId(), callback);
    action.apply(any(kContainers));
  }

  void act() {
    switch (pick(20)) {
      case 0: {
        const std::size_t place = pick(kNodes);
        Ref<NkNode> node(make(place));
        std::swap(m_nodes[place], node);
        break;
      }
      case 1:
      case 2:
      case 3:
        write();
        break;
      case 4:
      case 5:
        changeSensor();
        break;
      case 6:
        connect();
        break;
      case 7:
        NkGetBoundingBoxAction().apply(any(kContainers));
        break;
      case 8: {
        NkRayPickAction action(NbViewportRegion(100, 100));
        action.setPickAll(pick(2));
        action.setRay(NbVec3f(value(), value(), 1000), NbVec3f(0, 0, -1));
        action.apply(any(kContainers));
        break;
      }
      case 9:
      case 10:
        m_views[pick(3)].action.apply(any(5));
        break;
      case 11:
        sendEvent();
        break;
      case 12:
        search();
        break;
      case 13:
        walk();
        break;
      case 14:
        NkSensorManager::getInstance().processDelayQueue();
        break;
      case 15: {
        const Ref<NkNode> copy(any(kContainers)->copy());
        break;
      }
      case 16:
        any()->enableNotify(pick(3) > 0);
        break;
      default:
        changeStructure();
        break;
    }
  }

  std::mt19937 m_random;
  std::vector<Ref<NkNode>> m_nodes;
  std::unique_ptr<NkDataSensor> m_sensors[kSensors];
  View m_views[3];
  std::unique_ptr<NkHandleEventAction> m_events = std::make_unique<NkHandleEventAction>(NbViewportRegion(100, 100));
  int m_nested = 0;
  int m_budget = 0; // Of disturbances, so that each step ends.
};

World* World::s_world = nullptr;

void disturb() {
  if (World::s_world) World::s_world->disturbed();
}

class RandomCallbacks : public SceneTest {
protected:
  RandomCallbacks() {
    Loud::initClass();
    Kit::initClass();
    // What is asked for at random is often impossible.
    allowMessages("");
  }
  ~RandomCallbacks() override {
    Kit::exitClass();
    Loud::exitClass();
  }
};

} // namespace

TEST_F(RandomCallbacks, MayChangeTheSceneThatCallsThem) {
  for (unsigned seed = 1; seed <= 400; ++seed) {
    World world(seed);
    for (int i = 0; i < 200; ++i) world.step();
  }
}
