#include <algorithm>
#include <cstring>
#include <random>
#include <vector>

#include "arbora/scene/NkBaseColor.h"
#include "arbora/scene/NkClipPlane.h"
#include "arbora/scene/NkCone.h"
#include "arbora/scene/NkCoordinate3.h"
#include "arbora/scene/NkCube.h"
#include "arbora/scene/NkDirectionalLight.h"
#include "arbora/scene/NkFaceSet.h"
#include "arbora/scene/NkGLRenderAction.h"
#include "arbora/scene/NkMaterial.h"
#include "arbora/scene/NkOrthographicCamera.h"
#include "arbora/scene/NkSwitch.h"
#include "arbora/scene/NkTranslation.h"
#include "arbora/scene/RecordingBackend.h"
#include "tests/scene/SceneTest.h"

using arbora::Instance;
using arbora::RecordingBackend;
using arbora::Ref;

namespace {

/// What a frame shows, without regard to the order and to the numbers of meshes and sets.
std::vector<std::vector<float>> seen(const RecordingBackend& backend) {
  std::vector<std::vector<float>> result;
  for (const RecordingBackend::Draw& draw : backend.getDraws()) {
    const RecordingBackend::Batch& batch = backend.getBatches().at(draw.batch);
    for (std::size_t i = draw.first; i < draw.first + draw.count; ++i) {
      const Instance& instance = batch.instances[i];
      std::vector<float> one(&instance.columns[0][0], &instance.columns[0][0] + 12);
      one.push_back(static_cast<float>(batch.description.mesh->getId()));
      for (std::uint32_t color : {instance.diffuse, instance.emissive, instance.specular, instance.ambient})
        for (unsigned shift : {0U, 8U, 16U, 24U}) one.push_back(static_cast<float>(color >> shift & 255U));
      const auto addSet = [&](RecordingBackend::SetKind kind, std::size_t size, std::uint32_t set) {
        const std::vector<NbVec4f>& texels = backend.getTable(backend.getFrameTables(), kind);
        for (std::size_t t = set * size; t < (set + 1) * size; ++t)
          one.insert(one.end(), texels[t].getValue(), texels[t].getValue() + 4);
      };
      addSet(RecordingBackend::CLIP_SETS, arbora::kClipSetTexels, instance.clipSet);
      addSet(RecordingBackend::LIGHT_SETS, arbora::kLightSetTexels, instance.lightSet);
      result.push_back(std::move(one));
    }
  }
  std::sort(result.begin(), result.end());
  return result;
}

/// Changes a scene at random. Nodes are shared and taken out and put back; groups hold only groups that are younger, so
/// that none contains itself.
class RandomScene {
public:
  explicit RandomScene(unsigned seed, NkGroup* root) : m_random(seed) {
    m_groups.emplace_back(root);
    for (int i = 0; i < 12; ++i) {
      NkGroup* group = nullptr;
      if (i % 4 == 0)
        group = new NkSwitch;
      else if (i % 4 == 1)
        group = new NkGroup;
      else
        group = new NkSeparator;
      m_groups.emplace_back(group);
    }
    for (int i = 0; i < 5; ++i) {
      m_leaves.emplace_back(m_translations.emplace_back(new NkTranslation).get());
      m_leaves.emplace_back(m_materials.emplace_back(new NkMaterial).get());
      m_leaves.emplace_back(new NkCube);
      m_leaves.emplace_back(new NkCone);
    }
    m_coordinates = Ref<NkCoordinate3>(new NkCoordinate3);
    const NbVec3f points[] = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}};
    m_coordinates->point.setValues(0, 3, points);
    m_plane = Ref<NkClipPlane>(new NkClipPlane);
    m_light = Ref<NkDirectionalLight>(new NkDirectionalLight);
    m_camera = Ref<NkOrthographicCamera>(new NkOrthographicCamera);
    for (NkNode* node : {static_cast<NkNode*>(m_coordinates.get()), static_cast<NkNode*>(m_plane.get()),
                         static_cast<NkNode*>(m_light.get()), static_cast<NkNode*>(m_camera.get())})
      m_leaves.emplace_back(node);
    m_leaves.emplace_back(new NkFaceSet);
    for (int i = 0; i < 60; ++i) insert();
  }

  void change() {
    switch (pick(12)) {
      case 0:
      case 1:
        insert();
        break;
      case 2:
      case 3:
        remove();
        break;
      case 4:
        m_materials[pick(m_materials.size())]->diffuseColor.setValue(NbColor(value(), value(), value()));
        break;
      case 5:
        m_materials[pick(m_materials.size())]->transparency.setValue(pick(2) ? value() : 0.0f);
        break;
      case 6:
        m_coordinates->point.set1Value(1, NbVec3f(1 + value(), 0, 0));
        break;
      case 7:
        m_plane->plane.setValue(NbPlane(NbVec3f(1, 0, 0), value()));
        break;
      case 8:
        m_light->on = !m_light->on.getValue();
        break;
      case 9:
        m_camera->position.setValue(value(), value(), 1);
        break;
      case 10: {
        auto* choice = static_cast<NkSwitch*>(m_groups[1 + 4 * pick(3)].get());
        choice->whichChild = static_cast<int>(pick(6)) - 3;
        break;
      }
      default:
        m_translations[pick(m_translations.size())]->translation.setValue(value(), value(), value());
    }
  }

private:
  std::size_t pick(std::size_t count) { return m_random() % count; }
  float value() { return static_cast<float>(m_random() % 1000) / 1000.0f; }

  void insert() {
    const std::size_t parent = pick(m_groups.size());
    const std::size_t younger = m_groups.size() - parent - 1;
    NkNode* child = younger > 0 && pick(3) == 0 ? static_cast<NkNode*>(m_groups[parent + 1 + pick(younger)].get())
                                                : m_leaves[pick(m_leaves.size())].get();
    NkGroup& group = *m_groups[parent];
    // Sharing multiplies: a bounded number of children keeps the scene small.
    if (group.getNumChildren() < 7)
      group.insertChild(child, static_cast<int>(pick(1 + static_cast<std::size_t>(group.getNumChildren()))));
  }

  void remove() {
    NkGroup& group = *m_groups[pick(m_groups.size())];
    if (group.getNumChildren() > 0)
      group.removeChild(static_cast<int>(pick(static_cast<std::size_t>(group.getNumChildren()))));
  }

  std::mt19937 m_random;
  std::vector<Ref<NkGroup>> m_groups;
  std::vector<Ref<NkNode>> m_leaves;
  std::vector<Ref<NkTranslation>> m_translations;
  std::vector<Ref<NkMaterial>> m_materials;
  Ref<NkCoordinate3> m_coordinates;
  Ref<NkClipPlane> m_plane;
  Ref<NkDirectionalLight> m_light;
  Ref<NkOrthographicCamera> m_camera;
};

} // namespace

using RandomScenes = SceneTest;

TEST_F(RandomScenes, AListThatFollowsShowsWhatANewOneShows) {
  std::size_t compared = 0;
  for (unsigned seed = 1; seed <= 80; ++seed) {
    const Ref<NkGroup> root(seed % 2 ? new NkSeparator : new NkGroup);
    RandomScene scene(seed, root.get());
    RecordingBackend keptBackend;
    NkGLRenderAction kept(NbViewportRegion(100, 100));
    kept.setBackend(&keptBackend);
    for (int frame = 0; frame < 60; ++frame) {
      for (int i = 0; i < frame % 5; ++i) scene.change();
      kept.apply(root.get());
      // A new list visits all nodes, after which they all tell of their changes. So that the kept list has to see to
      // that itself, most frames aren't compared.
      if (frame % 6 != 0) continue;
      RecordingBackend newBackend;
      NkGLRenderAction fresh(NbViewportRegion(100, 100));
      fresh.setBackend(&newBackend);
      fresh.apply(root.get());
      ASSERT_EQ(seen(keptBackend), seen(newBackend)) << "seed " << seed << ", frame " << frame;
      ASSERT_EQ(keptBackend.getFrame().worldToClip, newBackend.getFrame().worldToClip)
          << "seed " << seed << ", frame " << frame;
      ASSERT_EQ(keptBackend.getFrame().headlight, newBackend.getFrame().headlight);
      ASSERT_EQ(keptBackend.getNumErrors() + newBackend.getNumErrors(), 0U);
      compared += seen(keptBackend).size();
    }
  }
  EXPECT_GT(compared, 5000U);
}
