#include <algorithm>
#include <cmath>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <unordered_set>
#include <vector>

#include "arbora/scene/NkCoordinate3.h"
#include "arbora/scene/NkCube.h"
#include "arbora/scene/NkFaceSet.h"
#include "arbora/scene/NkFont.h"
#include "arbora/scene/NkGLRenderAction.h"
#include "arbora/scene/NkGetBoundingBoxAction.h"
#include "arbora/scene/NkInteractionKit.h"
#include "arbora/scene/NkMField.h"
#include "arbora/scene/NkNodeSensor.h"
#include "arbora/scene/NkRayPickAction.h"
#include "arbora/scene/NkScale.h"
#include "arbora/scene/NkSwitch.h"
#include "arbora/scene/NkText3.h"
#include "arbora/scene/NkTranslation.h"
#include "arbora/scene/RecordingBackend.h"
#include "tests/scene/ModelNodes.h"
#include "tests/scene/SceneTest.h"

using arbora::RecordingBackend;
using arbora::Ref;

// Random changes to a random scene. After each one, who was told, what was measured and what was drawn are compared
// with what a plain walk over the scene gives. That walk visits nothing in the sense of the library: a visit makes
// nodes tell of their changes, which would hide that they don't.

namespace {

class Kit : public NkInteractionKit {
  NK_KIT_HEADER(Kit);

public:
  NkSFNode place;
  NkSFNode shape;
  Kit() {
    NK_KIT_CONSTRUCTOR(Kit);
    NK_KIT_ADD_CATALOG_ENTRY(place, NkTranslation, true, "geomSeparator", "", true);
    NK_KIT_ADD_CATALOG_ABSTRACT_ENTRY(shape, NkNode, NkCube, true, "geomSeparator", "", true);
    NK_KIT_INIT_INSTANCE();
  }

protected:
  ~Kit() override = default;
};
NK_KIT_SOURCE(Kit, NkInteractionKit, "RandomKit");

/// Makes its content when it is first asked for its box, as panels do.
class LateKit : public Kit {
  NK_KIT_HEADER(LateKit);

public:
  LateKit() {
    NK_KIT_CONSTRUCTOR(LateKit);
    NK_KIT_INIT_INSTANCE();
  }
  void getBoundingBox(NkGetBoundingBoxAction* action) override {
    if (!m_made) {
      m_made = true;
      const bool wasEnabled = enableNotify(false);
      static_cast<NkTranslation*>(getPart("place", true))->translation.setValue(3, 1, 0);
      if (!shape.getValue()) setPart("shape", new NkCube);
      enableNotify(wasEnabled);
    }
    Kit::getBoundingBox(action);
  }

protected:
  ~LateKit() override = default;

private:
  bool m_made = false;
};
NK_KIT_SOURCE(LateKit, Kit, "RandomLateKit");

template <class T>
T* as(NkNode* node) {
  return node && node->isOfType(T::getClassTypeId()) ? static_cast<T*>(node) : nullptr;
}

// The plain walk

/// Whether a change of a node is told at another one: by some way on which all nodes pass it on.
bool isTold(NkNode* at, const NkNode* changed, std::unordered_set<const NkNode*>& seen) {
  if (!at || !at->isNotifyEnabled() || !seen.insert(at).second) return false;
  if (at == changed) return true;
  bool told = false;
  if (const NkChildList* children = at->getChildren()) {
    for (int i = 0; i < children->getLength(); ++i) told = told || isTold((*children)[i], changed, seen);
  }
  if (auto* holder = as<Holder>(at)) {
    told = told || isTold(holder->one.getValue(), changed, seen);
    for (int i = 0; i < holder->many.getNum(); ++i) told = told || isTold(holder->many[i], changed, seen);
  }
  return told;
}

/// What a scene looks like: its box, and for each mesh the matrix and the number of the mesh.
struct Look {
  NbBox3f box;
  std::vector<std::vector<float>> meshes;
};

void look(NkNode* node, NkState& state, Look& result) {
  const auto lookAtChildren = [&](int which) {
    const NkChildList& children = *node->getChildren();
    for (int i = 0; i < children.getLength(); ++i) {
      if (which == NK_SWITCH_ALL || which == i) look(children[i], state, result);
    }
  };
  NbMatrix local;
  if (auto* choice = as<NkSwitch>(node)) {
    if (choice->whichChild.getValue() != NK_SWITCH_INHERIT) state.switchChild = choice->whichChild.getValue();
    lookAtChildren(state.switchChild);
  } else if (as<NkSeparator>(node) || as<Isolating>(node)) {
    const NkState outer = state;
    lookAtChildren(NK_SWITCH_ALL);
    state = outer;
  } else if (node->getChildren()) {
    lookAtChildren(NK_SWITCH_ALL);
  } else if (auto* translation = as<NkTranslation>(node)) {
    local.setTranslate(translation->translation.getValue());
    state.model.multLeft(local);
  } else if (auto* scale = as<NkScale>(node)) {
    local.setScale(scale->scaleFactor.getValue());
    state.model.multLeft(local);
  } else if (auto* font = as<NkFont>(node)) {
    state.font = {font->name.getValue(), font->size.getValue()};
  } else if (auto* coordinates = as<NkCoordinate3>(node)) {
    state.coordinates = coordinates;
  } else if (as<NkShape>(node)) {
    // A copy: the shape itself may keep what it computed before.
    const Ref<NkNode> copy(node->copy());
    auto* shape = static_cast<NkShape*>(copy.get());
    NbBox3f box = shape->computeBox(state);
    if (!box.isEmpty()) {
      box.transform(state.model);
      result.box.extendBy(box);
    }
    for (const arbora::PlacedMesh& placed : shape->getMeshes(state)) {
      if (placed.mesh->getIndices().empty()) continue;
      std::vector<float> mesh{static_cast<float>(placed.mesh->getId())};
      for (int column = 0; column < 3; ++column) {
        float offset = state.model[3][column];
        for (int row = 0; row < 3; ++row) {
          mesh.push_back(placed.scale[row] * state.model[row][column]);
          offset += placed.offset[row] * state.model[row][column];
        }
        mesh.push_back(offset);
      }
      result.meshes.push_back(std::move(mesh));
    }
  }
}

Look lookAt(NkNode* root) {
  NkState state;
  Look result;
  look(root, state, result);
  std::sort(result.meshes.begin(), result.meshes.end());
  return result;
}

bool isClose(float a, float b) { return std::fabs(a - b) <= 1e-3F * (1 + std::fabs(a) + std::fabs(b)); }

bool isClose(const NbBox3f& a, const NbBox3f& b) {
  if (a.isEmpty() || b.isEmpty()) return a.isEmpty() == b.isEmpty();
  for (int axis = 0; axis < 3; ++axis) {
    if (!isClose(a.getMin()[axis], b.getMin()[axis]) || !isClose(a.getMax()[axis], b.getMax()[axis])) return false;
  }
  return true;
}

// The scene

struct Watch {
  Watch() {
    sensor.setPriority(0);
    sensor.setData(this);
    sensor.setFunction([](void* data, NkSensor*) { ++static_cast<Watch*>(data)->told; });
  }
  NkNodeSensor sensor;
  int told = 0;
};

/// A draw list that is kept from frame to frame.
struct View {
  View() { action.setBackend(&backend); }
  RecordingBackend backend;
  NkGLRenderAction action{NbViewportRegion(100, 100)};
};

class World {
public:
  explicit World(unsigned seed) : m_random(seed), m_seed(seed) {
    for (std::size_t i = 0; i < kContainers; ++i) m_nodes.emplace_back(makeContainer(i));
    for (int i = 0; i < 3; ++i) m_nodes.emplace_back(new NkTranslation);
    m_nodes.emplace_back(new NkScale);
    for (int i = 0; i < 2; ++i) m_nodes.emplace_back(new NkFont);
    for (int i = 0; i < 2; ++i) {
      const NbVec3f points[] = {{0, 0, 0}, {1, 0, 0}, {0, 1 + value(), 0}};
      auto* coordinates = new NkCoordinate3;
      coordinates->point.setValues(0, 3, points);
      m_nodes.emplace_back(coordinates);
    }
    for (int i = 0; i < 3; ++i) m_nodes.emplace_back(new NkCube);
    for (int i = 0; i < 2; ++i) m_nodes.emplace_back(new NkFaceSet);
    for (int i = 0; i < 2; ++i) {
      auto* text = new NkText3;
      text->string = NbString("ab");
      m_nodes.emplace_back(text);
    }
    for (int i = 0; i < 40; ++i) changeStructure();
  }

  void step() {
    switch (pick(20)) {
      case 0:
      case 1:
      case 2:
      case 3:
        changeStructure();
        break;
      case 4:
        m_watches.push_back(std::make_unique<Watch>());
        m_watches.back()->sensor.attach(any());
        break;
      case 5:
        if (!m_watches.empty()) m_watches[pick(m_watches.size())]->sensor.detach();
        break;
      case 6:
        if (!m_watches.empty())
          m_watches.erase(m_watches.begin() + static_cast<std::ptrdiff_t>(pick(m_watches.size())));
        break;
      case 7:
        any()->enableNotify(pick(3) > 0);
        break;
      case 8:
      case 9:
      case 10:
        measure(m_nodes[pick(kContainers)].get());
        break;
      case 11: {
        NkRayPickAction action(NbViewportRegion(100, 100));
        action.setRay(NbVec3f(value(), value(), 1000), NbVec3f(0, 0, -1));
        action.apply(m_nodes[pick(kContainers)].get());
        break;
      }
      case 12:
      case 13:
        draw(m_views[pick(2)], m_nodes[pick(4)].get());
        break;
      default:
        write();
        break;
    }
  }

private:
  // A container holds only what stands behind it here, so that none contains itself. The last two hold it in fields.
  static constexpr std::size_t kContainers = 12;

  std::size_t pick(std::size_t count) { return m_random() % count; }
  int index(int count) { return static_cast<int>(pick(static_cast<std::size_t>(count))); }
  float value() { return static_cast<float>(m_random() % 40) / 4.0F; }
  NkNode* any() { return m_nodes[pick(m_nodes.size())].get(); }

  NkNode* makeContainer(std::size_t place) {
    if (place + 2 >= kContainers) return new Holder;
    switch (pick(9)) {
      case 0:
        return new NkSwitch;
      case 1:
        return new NkGroup;
      case 2:
        return new Kit;
      case 3:
        return new LateKit;
      case 4:
        return new Isolating;
      default:
        return new NkSeparator;
    }
  }

  /// Makes one change of a node, and compares who was told. Some changes come in several parts.
  void change(NkNode* node, const std::function<void()>& make, bool isSingle = true) {
    for (const auto& watch : m_watches) watch->told = 0;
    make();
    for (const auto& watch : m_watches) {
      std::unordered_set<const NkNode*> seen;
      const bool expected = isTold(watch->sensor.getAttachedNode(), node, seen);
      EXPECT_EQ(isSingle ? watch->told : std::min(watch->told, 1), expected ? 1 : 0)
          << "seed " << m_seed << ": a change in a " << node->getTypeId().getName().getString();
    }
  }

  void changeStructure() {
    const std::size_t place = pick(kContainers);
    NkNode* parent = m_nodes[place].get();
    NkNode* child = m_nodes[place + 1 + pick(m_nodes.size() - place - 1)].get();
    if (auto* group = as<NkGroup>(parent))
      changeGroup(group, child);
    else if (auto* kit = as<Kit>(parent))
      changeKit(kit, child);
    else if (auto* holder = as<Holder>(parent))
      changeHolder(holder, child);
  }

  void changeGroup(NkGroup* group, NkNode* child) {
    const int count = group->getNumChildren();
    if (count == 0 || (count < 6 && pick(2) == 0)) {
      const int place = index(count + 1);
      change(group, [&] { group->insertChild(child, place); });
      return;
    }
    const int place = index(count);
    switch (pick(6)) {
      case 0:
        change(group, [&] { group->removeAllChildren(); });
        break;
      case 1:
      case 2:
        change(group, [&] { group->replaceChild(place, child); });
        break;
      default:
        change(group, [&] { group->removeChild(place); });
        break;
    }
  }

  void changeKit(Kit* kit, NkNode* child) {
    switch (pick(4)) {
      case 0:
        change(
            kit, [&] { kit->setPart("shape", child); }, false);
        break;
      case 1:
        if (kit->shape.getValue())
          change(
              kit, [&] { kit->setPart("shape", nullptr); }, false);
        break;
      case 2: {
        auto* place = static_cast<NkTranslation*>(kit->getPart("place", true));
        change(place, [&] { place->translation.setValue(value(), value(), value()); });
        break;
      }
      default:
        change(
            kit, [&] { kit->shape = child; }, false);
        break;
    }
  }

  void changeHolder(Holder* holder, NkNode* child) {
    switch (pick(4)) {
      case 0:
        change(holder, [&] { holder->one = child; });
        break;
      case 1:
        change(holder, [&] { holder->one = nullptr; });
        break;
      case 2:
        change(holder, [&] { holder->many.set1Value(index(3), child); });
        break;
      default:
        change(holder, [&] { holder->many.deleteValues(0); });
        break;
    }
  }

  void write() {
    NkNode* node = any();
    change(node, [&] {
      if (auto* translation = as<NkTranslation>(node))
        translation->translation.setValue(value(), value(), value());
      else if (auto* scale = as<NkScale>(node))
        scale->scaleFactor.setValue(1 + value(), 1, 1);
      else if (auto* font = as<NkFont>(node))
        font->size = 1 + value();
      else if (auto* coordinates = as<NkCoordinate3>(node))
        coordinates->point.set1Value(1, NbVec3f(1 + value(), 0, 0));
      else if (auto* cube = as<NkCube>(node))
        cube->width = 1 + value();
      else if (auto* faces = as<NkFaceSet>(node))
        faces->numVertices.set1Value(0, pick(2) ? -1 : 3);
      else if (auto* text = as<NkText3>(node))
        text->string.set1Value(0, NbString(std::string(1 + pick(4), 'x')));
      else if (auto* choice = as<NkSwitch>(node))
        choice->whichChild = index(7) - 3;
      else
        node->touch();
    });
  }

  void measure(NkNode* root) {
    NkGetBoundingBoxAction action;
    action.apply(root);
    EXPECT_TRUE(isClose(action.getBoundingBox(), lookAt(root).box)) << "seed " << m_seed;
  }

  void draw(View& view, NkNode* root) {
    view.action.apply(root);
    std::vector<std::vector<float>> seen;
    for (const RecordingBackend::Draw& draw : view.backend.getDraws()) {
      const RecordingBackend::Batch& batch = view.backend.getBatches().at(draw.batch);
      for (std::size_t i = draw.first; i < draw.first + draw.count; ++i) {
        const float* columns = &batch.instances[i].columns[0][0];
        seen.push_back({static_cast<float>(batch.description.mesh->getId())});
        seen.back().insert(seen.back().end(), columns, columns + 12);
      }
    }
    std::sort(seen.begin(), seen.end());
    const std::vector<std::vector<float>> expected = lookAt(root).meshes;
    ASSERT_EQ(seen.size(), expected.size()) << "seed " << m_seed;
    for (std::size_t i = 0; i < seen.size(); ++i) {
      EXPECT_TRUE(std::equal(seen[i].begin(), seen[i].end(), expected[i].begin(), expected[i].end(),
                             [](float a, float b) { return isClose(a, b); }))
          << "seed " << m_seed;
    }
  }

  std::mt19937 m_random;
  unsigned m_seed;
  std::vector<Ref<NkNode>> m_nodes;
  std::vector<std::unique_ptr<Watch>> m_watches;
  View m_views[2];
};

class RandomChanges : public SceneTest {
protected:
  RandomChanges() {
    Holder::initClass();
    Isolating::initClass();
    Kit::initClass();
    LateKit::initClass();
  }
  ~RandomChanges() override {
    LateKit::exitClass();
    Kit::exitClass();
    Isolating::exitClass();
    Holder::exitClass();
  }
};

} // namespace

TEST_F(RandomChanges, AreToldMeasuredAndDrawnAsAPlainWalkGives) {
  for (unsigned seed = 1; seed <= 1500 && !HasFailure(); ++seed) {
    World world(seed);
    for (int i = 0; i < 200 && !HasFailure(); ++i) world.step();
  }
}
