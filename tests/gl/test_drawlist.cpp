#include <algorithm>
#include <vector>

#include "arbora/scene/Mesh.h"
#include "arbora/scene/NkBaseColor.h"
#include "arbora/scene/NkClipPlane.h"
#include "arbora/scene/NkCone.h"
#include "arbora/scene/NkCoordinate3.h"
#include "arbora/scene/NkCube.h"
#include "arbora/scene/NkDirectionalLight.h"
#include "arbora/scene/NkFaceSet.h"
#include "arbora/scene/NkGLRenderAction.h"
#include "arbora/scene/NkGetBoundingBoxAction.h"
#include "arbora/scene/NkInteractionKit.h"
#include "arbora/scene/NkMaterial.h"
#include "arbora/scene/NkOrthographicCamera.h"
#include "arbora/scene/NkPath.h"
#include "arbora/scene/NkScale.h"
#include "arbora/scene/NkSphere.h"
#include "arbora/scene/NkSwitch.h"
#include "arbora/scene/NkTexture2.h"
#include "arbora/scene/NkTranslation.h"
#include "arbora/scene/RecordingBackend.h"
#include "tests/scene/SceneTest.h"

using arbora::Instance;
using arbora::Ref;

namespace {

/// A scene with a recording back end behind it.
class DrawLists : public SceneTest {
protected:
  DrawLists() { action.setBackend(&backend); }
  ~DrawLists() override { EXPECT_EQ(backend.getNumErrors(), 0U); }

  /// Draws, and gives what it took.
  NkGLRenderAction::Statistics draw(NkNode* root) {
    backend.resetCounts();
    action.apply(root);
    return action.getStatistics();
  }

  /// The x of all drawn meshes' origins, in the order of drawing.
  std::vector<float> places() const {
    std::vector<float> result;
    for (const Instance& instance : backend.getDrawnInstances()) result.push_back(instance.columns[0][3]);
    return result;
  }

  std::vector<float> sortedPlaces() const {
    std::vector<float> result = places();
    std::sort(result.begin(), result.end());
    return result;
  }

  arbora::RecordingBackend backend;
  NkGLRenderAction action{NbViewportRegion(100, 100)};
};

/// Makes its content when it is first asked for its box, as panels do.
class LateKit : public NkInteractionKit {
  NK_KIT_HEADER(LateKit);

public:
  LateKit() {
    NK_KIT_CONSTRUCTOR(LateKit);
    NK_KIT_INIT_INSTANCE();
  }
  void getBoundingBox(NkGetBoundingBoxAction* action) override {
    if (!m_translation) {
      const bool wasEnabled = enableNotify(false);
      m_translation = new NkTranslation;
      auto* top = static_cast<NkSeparator*>(getAnyPart("geomSeparator", true));
      top->addChild(m_translation);
      top->addChild(new NkCube);
      enableNotify(wasEnabled);
    }
    NkInteractionKit::getBoundingBox(action);
  }
  NkTranslation* m_translation = nullptr;

protected:
  ~LateKit() override = default;
};
NK_KIT_SOURCE(LateKit, NkInteractionKit, "LateKit");

/// Separator { Translation, shape }.
struct Part {
  explicit Part(float x, NkNode* shape = new NkCube) : node(new NkSeparator), translation(new NkTranslation) {
    translation->translation.setValue(x, 0, 0);
    node->addChild(translation);
    node->addChild(shape);
  }
  NkSeparator* node;
  NkTranslation* translation;
};

} // namespace

TEST_F(DrawLists, EqualMeshesAreOneDrawCall) {
  const Ref<NkSeparator> root(new NkSeparator);
  for (int i = 0; i < 1000; ++i) root->addChild(Part(static_cast<float>(i)).node);
  root->addChild(Part(-1, new NkSphere).node);
  const auto statistics = draw(root.get());
  EXPECT_EQ(statistics.drawCalls, 2);
  EXPECT_EQ(statistics.drawnInstances, 1001);
  EXPECT_EQ(backend.getDrawnInstances().size(), 1001U);
}

TEST_F(DrawLists, AnUnchangedFrameVisitsAndSendsNothing) {
  const Ref<NkSeparator> root(new NkSeparator);
  root->addChild(new NkDirectionalLight);
  for (int i = 0; i < 10; ++i) root->addChild(Part(static_cast<float>(i)).node);
  EXPECT_GT(draw(root.get()).visitedNodes, 0);
  const auto statistics = draw(root.get());
  EXPECT_EQ(statistics.visitedNodes, 0);
  EXPECT_EQ(statistics.compiledSegments, 0);
  EXPECT_EQ(backend.getCounts().uploads, 0U);
  EXPECT_EQ(backend.getCounts().draws, 1U);
  EXPECT_EQ(backend.getCounts().drawnInstances, 10U);
}

TEST_F(DrawLists, AnUnchangedFrameOfAPlainGroupVisitsNothing) {
  const Ref<NkGroup> root(new NkGroup);
  const Part part(1);
  root->addChild(part.node);
  root->addChild(new NkCube);
  draw(root.get());
  EXPECT_EQ(draw(root.get()).visitedNodes, 0);
  part.translation->translation.setValue(2, 0, 0);
  draw(root.get());
  EXPECT_EQ(sortedPlaces(), (std::vector<float>{0, 2}));
  EXPECT_EQ(draw(root.get()).visitedNodes, 0);
}

TEST_F(DrawLists, AChangeCompilesOneSegmentAndSendsOneInstance) {
  const Ref<NkSeparator> root(new NkSeparator);
  std::vector<Part> parts;
  for (int i = 0; i < 100; ++i) {
    parts.emplace_back(static_cast<float>(i));
    root->addChild(parts.back().node);
  }
  draw(root.get());
  parts[40].translation->translation.setValue(500, 0, 0);
  const auto statistics = draw(root.get());
  EXPECT_EQ(statistics.compiledSegments, 1);
  EXPECT_EQ(statistics.visitedNodes, 3);
  EXPECT_EQ(backend.getCounts().uploadedBytes, sizeof(Instance));
  std::vector<float> expected;
  for (int i = 0; i < 100; ++i) expected.push_back(i == 40 ? 500.0f : static_cast<float>(i));
  EXPECT_EQ(places(), expected);
}

TEST_F(DrawLists, AKitThatMakesItsContentWhenItIsMeasuredIsInTheFirstFrame) {
  LateKit::initClass();
  {
    const Ref<NkSeparator> root(new NkSeparator);
    auto* separator = new NkSeparator;
    auto* kit = new LateKit;
    separator->addChild(kit);
    root->addChild(separator);
    draw(root.get());
    EXPECT_EQ(places(), std::vector<float>{0});
    ASSERT_TRUE(kit->m_translation);
    for (int x = 3; x < 6; ++x) {
      kit->m_translation->translation.setValue(static_cast<float>(x), 0, 0);
      draw(root.get());
      EXPECT_EQ(places(), std::vector<float>{static_cast<float>(x)});
    }
    EXPECT_EQ(draw(root.get()).visitedNodes, 0);
  }
  LateKit::exitClass();
}

TEST_F(DrawLists, EveryLaterChangeIsSeenToo) {
  const Ref<NkSeparator> root(new NkSeparator);
  auto* outer = new NkSeparator;
  const Part part(1);
  auto* outerMove = new NkTranslation;
  outer->addChild(outerMove);
  outer->addChild(part.node);
  root->addChild(outer);
  draw(root.get());
  for (int i = 0; i < 3; ++i) {
    const auto n = static_cast<float>(i);
    part.translation->translation.setValue(10 + n, 0, 0);
    draw(root.get());
    EXPECT_EQ(places(), (std::vector<float>{10 + n + 100 * n}));
    outerMove->translation.setValue(100 * (n + 1), 0, 0);
    draw(root.get());
    EXPECT_EQ(places(), (std::vector<float>{10 + n + 100 * (n + 1)}));
  }
}

TEST_F(DrawLists, AWriteThatChangesNothingSendsNothing) {
  const Ref<NkSeparator> root(new NkSeparator);
  const Part part(1);
  root->addChild(part.node);
  draw(root.get());
  part.translation->translation.setValue(1, 0, 0);
  EXPECT_EQ(draw(root.get()).compiledSegments, 1);
  EXPECT_EQ(backend.getCounts().uploads, 0U);
}

TEST_F(DrawLists, WhatIsInheritedReachesTheSeparatorsBelow) {
  const Ref<NkSeparator> root(new NkSeparator);
  auto* color = new NkBaseColor;
  color->rgb.setValue(NbColor(1, 0, 0));
  auto* sphere = new NkSphere;
  const Part part(3, sphere);
  root->addChild(part.node);
  root->addChild(color);
  const Part second(5);
  root->addChild(second.node);
  draw(root.get());
  color->rgb.setValue(NbColor(0, 0, 1));
  const auto statistics = draw(root.get());
  // The root and what stands behind the colour; what stands ahead of it stays.
  EXPECT_EQ(statistics.compiledSegments, 2);
  EXPECT_EQ(backend.getCounts().uploadedBytes, sizeof(Instance));
  for (const Instance& instance : backend.getDrawnInstances())
    EXPECT_EQ(instance.diffuse, instance.columns[0][3] == 5 ? 0xffff0000U : 0xffccccccU);
}

TEST_F(DrawLists, ANodeInTwoPlacesIsDrawnAndUpdatedInBoth) {
  const Ref<NkSeparator> root(new NkSeparator);
  const Part part(1);
  auto* shift = new NkTranslation;
  shift->translation.setValue(10, 0, 0);
  root->addChild(part.node);
  root->addChild(shift);
  root->addChild(part.node);
  draw(root.get());
  EXPECT_EQ(sortedPlaces(), (std::vector<float>{1, 11}));
  part.translation->translation.setValue(2, 0, 0);
  draw(root.get());
  EXPECT_EQ(sortedPlaces(), (std::vector<float>{2, 12}));
}

TEST_F(DrawLists, APropertySharedByASeparatorAndItsParentUpdatesBoth) {
  const Ref<NkSeparator> root(new NkSeparator);
  auto* move = new NkTranslation;
  move->translation.setValue(1, 0, 0);
  auto* inner = new NkSeparator;
  inner->addChild(move);
  inner->addChild(new NkCube);
  root->addChild(inner);
  root->addChild(move);
  root->addChild(new NkCube);
  for (float x : {1.0f, 2.0f, 3.0f}) {
    move->translation.setValue(x, 0, 0);
    draw(root.get());
    EXPECT_EQ(sortedPlaces(), (std::vector<float>{x, x}));
  }
}

TEST_F(DrawLists, ChildrenComeGoAndChangePlaces) {
  const Ref<NkSeparator> root(new NkSeparator);
  for (int i = 0; i < 6; ++i) root->addChild(Part(static_cast<float>(i)).node);
  draw(root.get());
  root->removeChild(2);
  auto statistics = draw(root.get());
  EXPECT_EQ(statistics.compiledSegments, 1);
  EXPECT_EQ(sortedPlaces(), (std::vector<float>{0, 1, 3, 4, 5}));
  root->insertChild(Part(7).node, 0);
  statistics = draw(root.get());
  EXPECT_EQ(statistics.compiledSegments, 2);
  EXPECT_EQ(sortedPlaces(), (std::vector<float>{0, 1, 3, 4, 5, 7}));
  const Ref<NkNode> last(root->getChild(5));
  root->removeChild(5);
  root->insertChild(last.get(), 1);
  statistics = draw(root.get());
  EXPECT_EQ(statistics.compiledSegments, 1);
  EXPECT_EQ(sortedPlaces(), (std::vector<float>{0, 1, 3, 4, 5, 7}));
  EXPECT_EQ(backend.getCounts().uploads, 0U);
  root->replaceChild(0, Part(8).node);
  draw(root.get());
  EXPECT_EQ(sortedPlaces(), (std::vector<float>{0, 1, 3, 4, 5, 8}));
  root->removeAllChildren();
  statistics = draw(root.get());
  EXPECT_EQ(statistics.drawCalls, 0);
  EXPECT_TRUE(backend.getBatches().empty());
}

TEST_F(DrawLists, ASwitchShowsAndHides) {
  const Ref<NkSeparator> root(new NkSeparator);
  auto* choice = new NkSwitch;
  choice->addChild(Part(1).node);
  choice->addChild(Part(2, new NkCone).node);
  root->addChild(choice);
  EXPECT_EQ(draw(root.get()).drawCalls, 0);
  choice->whichChild = 0;
  draw(root.get());
  EXPECT_EQ(places(), (std::vector<float>{1}));
  choice->whichChild = NK_SWITCH_ALL;
  draw(root.get());
  EXPECT_EQ(draw(root.get()).visitedNodes, 0);
  EXPECT_GE(places().size(), 2U);
  choice->whichChild = NK_SWITCH_NONE;
  EXPECT_EQ(draw(root.get()).drawCalls, 0);
  EXPECT_TRUE(backend.getBatches().empty());
}

TEST_F(DrawLists, ACameraChangeCompilesNothing) {
  const Ref<NkSeparator> root(new NkSeparator);
  auto* camera = new NkOrthographicCamera;
  root->addChild(camera);
  root->addChild(Part(1).node);
  draw(root.get());
  const NbMatrix before = backend.getFrame().worldToClip;
  camera->position.setValue(5, 0, 1);
  EXPECT_EQ(draw(root.get()).visitedNodes, 0);
  EXPECT_EQ(backend.getCounts().uploads, 0U);
  EXPECT_NE(before, backend.getFrame().worldToClip);
}

TEST_F(DrawLists, TheFirstCameraCounts) {
  const Ref<NkSeparator> root(new NkSeparator);
  const auto cameraAt = [](float x) {
    auto* camera = new NkOrthographicCamera;
    camera->position.setValue(x, 0, 1);
    return camera;
  };
  // What x lies in the middle of the picture.
  const auto middle = [this] {
    const NbMatrix& matrix = backend.getFrame().worldToClip;
    return -matrix[3][0] / matrix[0][0];
  };
  draw(root.get());
  EXPECT_TRUE(backend.getFrame().worldToClip.equals(NbMatrix(1, 0, 0, 0, 0, 1, 0, 0, 0, 0, -1, 0, 0, 0, 0, 1), 1e-6f));
  auto* inner = new NkSeparator;
  auto* move = new NkTranslation;
  move->translation.setValue(100, 0, 0);
  inner->addChild(move);
  inner->addChild(cameraAt(1));
  root->addChild(inner);
  draw(root.get());
  EXPECT_FLOAT_EQ(middle(), 101);
  root->addChild(cameraAt(2));
  draw(root.get());
  EXPECT_FLOAT_EQ(middle(), 101);
  root->insertChild(cameraAt(3), 0);
  draw(root.get());
  EXPECT_FLOAT_EQ(middle(), 3);
  root->removeChild(0);
  draw(root.get());
  EXPECT_FLOAT_EQ(middle(), 101);
  move->translation.setValue(200, 0, 0);
  draw(root.get());
  EXPECT_FLOAT_EQ(middle(), 201);
  inner->removeChild(1);
  draw(root.get());
  EXPECT_FLOAT_EQ(middle(), 2);
}

TEST_F(DrawLists, AHeadlightOnlyWithoutLights) {
  const Ref<NkSeparator> root(new NkSeparator);
  auto* light = new NkDirectionalLight;
  root->addChild(light);
  root->addChild(new NkCube);
  draw(root.get());
  EXPECT_FALSE(backend.getFrame().headlight);
  const std::uint32_t set = backend.getDrawnInstances().at(0).lightSet;
  EXPECT_NE(set, 0U);
  const auto& texels = backend.getTable(backend.getFrameTables(), arbora::RenderBackend::LIGHT_SETS);
  EXPECT_EQ(texels.at(set * arbora::kLightSetTexels), NbVec4f(0, 0, 1, 1));
  EXPECT_EQ(texels.at(set * arbora::kLightSetTexels + 1)[3], 0);
  light->on = false;
  draw(root.get());
  EXPECT_TRUE(backend.getFrame().headlight);
  EXPECT_EQ(backend.getDrawnInstances().at(0).lightSet, 0U);
}

TEST_F(DrawLists, ClipSetsAreSharedAndGivenBack) {
  const Ref<NkSeparator> root(new NkSeparator);
  auto* plane = new NkClipPlane;
  plane->plane.setValue(NbPlane(NbVec3f(0, 1, 0), 0.5f));
  root->addChild(Part(0).node);
  root->addChild(plane);
  for (int i = 1; i < 20; ++i) root->addChild(Part(static_cast<float>(i)).node);
  EXPECT_EQ(draw(root.get()).drawCalls, 2);
  const auto& texels = backend.getTable(backend.getFrameTables(), arbora::RenderBackend::CLIP_SETS);
  EXPECT_EQ(texels.size(), 2 * arbora::kClipSetTexels);
  EXPECT_EQ(texels.at(arbora::kClipSetTexels), NbVec4f(0, 1, 0, -0.5f));
  EXPECT_EQ(texels.at(arbora::kClipSetTexels + 1), NbVec4f(0, 0, 0, 1));
  for (const Instance& instance : backend.getDrawnInstances())
    EXPECT_EQ(instance.clipSet, instance.columns[0][3] == 0 ? 0U : 1U);
  // A plane that moves for long doesn't pile up sets.
  for (int i = 0; i < 50; ++i) {
    plane->plane.setValue(NbPlane(NbVec3f(0, 1, 0), static_cast<float>(i)));
    draw(root.get());
  }
  EXPECT_LE(texels.size(), 4 * arbora::kClipSetTexels);
  const std::uint32_t set = backend.getDrawnInstances().back().clipSet;
  EXPECT_EQ(texels.at(set * arbora::kClipSetTexels), NbVec4f(0, 1, 0, -49));
}

TEST_F(DrawLists, TransparentMeshesComeLastFromBackToFront) {
  const Ref<NkSeparator> root(new NkSeparator);
  auto* camera = new NkOrthographicCamera;
  root->addChild(camera);
  const auto at = [](float x, float z, bool transparent, NkNode* shape) {
    auto* part = new NkSeparator;
    auto* move = new NkTranslation;
    move->translation.setValue(x, 0, z);
    auto* material = new NkMaterial;
    material->transparency.setValue(transparent ? 0.5f : 0.0f);
    part->addChild(move);
    part->addChild(material);
    part->addChild(shape);
    return part;
  };
  root->addChild(at(1, -1, true, new NkCube));
  root->addChild(at(2, -5, true, new NkSphere));
  root->addChild(at(3, -9, true, new NkCube));
  root->addChild(at(4, -2, false, new NkCube));
  root->addChild(at(5, -7, true, new NkCube));
  const auto statistics = draw(root.get());
  EXPECT_EQ(places(), (std::vector<float>{4, 3, 5, 2, 1}));
  EXPECT_EQ(statistics.drawCalls, 4);
  draw(root.get());
  EXPECT_EQ(backend.getCounts().uploads, 0U);
  EXPECT_EQ(places(), (std::vector<float>{4, 3, 5, 2, 1}));
  // From the other side the order is the other one.
  camera->position.setValue(0, 0, -20);
  camera->orientation.setValue(NbVec3f(0, 1, 0), 3.14159265f);
  EXPECT_EQ(draw(root.get()).visitedNodes, 0);
  EXPECT_EQ(places(), (std::vector<float>{4, 1, 2, 5, 3}));
}

TEST_F(DrawLists, WhatIsInvisibleIsNotDrawn) {
  const Ref<NkSeparator> root(new NkSeparator);
  auto* material = new NkMaterial;
  root->addChild(material);
  root->addChild(new NkCube);
  root->addChild(new NkSphere);
  draw(root.get());
  EXPECT_EQ(backend.getCounts().drawnInstances, 2U);
  material->transparency.setValue(1.0f);
  EXPECT_EQ(draw(root.get()).drawCalls, 0);
  material->transparency.setValue(0.0f);
  draw(root.get());
  EXPECT_EQ(backend.getCounts().drawnInstances, 2U);
}

TEST_F(DrawLists, ShapesDependOnInheritedCoordinates) {
  const Ref<NkSeparator> root(new NkSeparator);
  auto* coordinates = new NkCoordinate3;
  const NbVec3f points[] = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}};
  coordinates->point.setValues(0, 3, points);
  auto* inner = new NkSeparator;
  inner->addChild(new NkFaceSet);
  root->addChild(coordinates);
  root->addChild(inner);
  draw(root.get());
  const auto rightmost = [this] { return backend.getBatches().begin()->second.description.mesh->getBox().getMax()[0]; };
  EXPECT_EQ(rightmost(), 1);
  coordinates->point.set1Value(1, NbVec3f(7, 0, 0));
  draw(root.get());
  EXPECT_EQ(backend.getBatches().size(), 1U);
  EXPECT_EQ(rightmost(), 7);
}

TEST_F(DrawLists, TexturesArePartOfABatch) {
  const Ref<NkSeparator> root(new NkSeparator);
  auto* texture = new NkTexture2;
  root->addChild(new NkCube);
  root->addChild(texture);
  root->addChild(Part(1).node);
  EXPECT_EQ(draw(root.get()).drawCalls, 1);
  arbora::Image image{1, 1, 3, {255, 0, 0}};
  texture->image.setValue(image);
  EXPECT_EQ(draw(root.get()).drawCalls, 2);
  image.components = 4;
  image.pixels.push_back(128);
  texture->image.setValue(image);
  EXPECT_EQ(draw(root.get()).drawCalls, 2);
  EXPECT_TRUE(backend.getBatches().rbegin()->second.description.transparent);
}

TEST_F(DrawLists, TwoListsFollowOneScene) {
  arbora::RecordingBackend secondBackend;
  NkGLRenderAction second(NbViewportRegion(50, 50));
  second.setBackend(&secondBackend);
  const Ref<NkSeparator> root(new NkSeparator);
  const Part part(1);
  root->addChild(part.node);
  draw(root.get());
  second.apply(root.get());
  draw(part.node); // A third list, of a part of the scene.
  for (float x : {2.0f, 3.0f, 4.0f}) {
    part.translation->translation.setValue(x, 0, 0);
    draw(root.get());
    EXPECT_EQ(places(), (std::vector<float>{x}));
    draw(part.node);
    EXPECT_EQ(places(), (std::vector<float>{x}));
    if (x == 3.0f) continue; // The second may fall behind.
    second.apply(root.get());
    ASSERT_EQ(secondBackend.getDrawnInstances().size(), 1U);
    EXPECT_EQ(secondBackend.getDrawnInstances()[0].columns[0][3], x);
  }
  EXPECT_EQ(secondBackend.getNumErrors(), 0U);
}

TEST_F(DrawLists, SceneAndListGoInEitherOrder) {
  {
    const Ref<NkSeparator> root(new NkSeparator);
    root->addChild(Part(1).node);
    {
      NkGLRenderAction shortLived(NbViewportRegion(50, 50));
      shortLived.setBackend(&backend);
      shortLived.apply(root.get());
    }
    EXPECT_TRUE(backend.getBatches().empty());
    EXPECT_EQ(backend.getNumTables(), 0U);
    draw(root.get());
  }
  // The scene is gone, its list is found out at the next drawing.
  const Ref<NkGroup> other(new NkGroup);
  EXPECT_EQ(draw(other.get()).drawCalls, 0);
  EXPECT_TRUE(backend.getBatches().empty());
}

TEST_F(DrawLists, APartThatIsKeptBesideTheSceneMayComeBack) {
  const Ref<NkSeparator> root(new NkSeparator);
  const Part part(1);
  const Ref<NkSeparator> kept(part.node);
  auto* group = new NkGroup;
  group->addChild(part.node);
  root->addChild(group);
  draw(root.get());
  root->removeChild(group);
  EXPECT_EQ(draw(root.get()).drawCalls, 0);
  part.translation->translation.setValue(4, 0, 0);
  root->addChild(kept.get());
  draw(root.get());
  EXPECT_EQ(places(), (std::vector<float>{4}));
}

TEST_F(DrawLists, APathIsDrawnAlone) {
  const Ref<NkSeparator> root(new NkSeparator);
  auto* move = new NkTranslation;
  move->translation.setValue(10, 0, 0);
  root->addChild(new NkCube);
  root->addChild(move);
  const Part part(1);
  root->addChild(part.node);
  const Ref<NkFullPath> path(NkPath::create(root.get()));
  ASSERT_TRUE(path->append(2));
  // Nothing is kept, so what is drawn must be looked at when it is.
  struct Looking : arbora::RecordingBackend {
    void endFrame() override {
      RecordingBackend::endFrame();
      drawn = getDrawnInstances();
    }
    std::vector<Instance> drawn;
  } looking;
  action.setBackend(&looking);
  action.apply(path.get());
  ASSERT_EQ(looking.drawn.size(), 1U);
  EXPECT_EQ(looking.drawn[0].columns[0][3], 11);
  EXPECT_TRUE(looking.getBatches().empty());
  EXPECT_EQ(looking.getNumTables(), 0U);
  EXPECT_EQ(looking.getNumErrors(), 0U);
  action.setBackend(&backend);
}

TEST_F(DrawLists, AChangedBackEndGetsEverythingAnew) {
  const Ref<NkSeparator> root(new NkSeparator);
  root->addChild(Part(1).node);
  draw(root.get());
  arbora::RecordingBackend other;
  action.setBackend(&other);
  EXPECT_TRUE(backend.getBatches().empty());
  action.apply(root.get());
  EXPECT_EQ(other.getDrawnInstances().size(), 1U);
  action.setBackend(nullptr);
  action.apply(root.get());
  EXPECT_EQ(action.getStatistics().drawCalls, 0);
  EXPECT_EQ(other.getNumErrors(), 0U);
}

TEST_F(DrawLists, NoMeshStaysBehind) {
  const int before = arbora::Mesh::getPoolSize();
  {
    const Ref<NkSeparator> root(new NkSeparator);
    const Ref<NkCoordinate3> coordinates(new NkCoordinate3);
    const NbVec3f points[] = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}};
    coordinates->point.setValues(0, 3, points);
    root->addChild(coordinates.get());
    root->addChild(new NkFaceSet);
    draw(root.get());
    for (int i = 0; i < 5; ++i) {
      coordinates->point.set1Value(1, NbVec3f(static_cast<float>(i + 2), 0, 0));
      draw(root.get());
      EXPECT_EQ(arbora::Mesh::getPoolSize(), before + 1);
    }
  }
  action.dropLists();
  EXPECT_EQ(arbora::Mesh::getPoolSize(), before);
}

TEST_F(DrawLists, DeepScenesAreUpdatedFromTheTop) {
  // Every level changes at once, and the last one goes: none may be compiled with what the levels above had before.
  const Ref<NkSeparator> root(new NkSeparator);
  std::vector<NkTranslation*> moves;
  NkSeparator* parent = root.get();
  for (int i = 0; i < 50; ++i) {
    auto* level = new NkSeparator;
    moves.push_back(new NkTranslation);
    level->addChild(moves.back());
    level->addChild(new NkCube);
    parent->addChild(level);
    parent = level;
  }
  draw(root.get());
  for (auto it = moves.rbegin(); it != moves.rend(); ++it) (*it)->translation.setValue(1, 0, 0);
  EXPECT_EQ(draw(root.get()).compiledSegments, 50);
  std::vector<float> expected;
  for (int i = 1; i <= 50; ++i) expected.push_back(static_cast<float>(i));
  EXPECT_EQ(sortedPlaces(), expected);
}

TEST_F(DrawLists, ASceneOfThousandsOfLevelsIsDrawnAndFreed) {
  Ref<NkSeparator> root(new NkSeparator);
  NkSeparator* parent = root.get();
  for (int i = 0; i < NkAction::kMaxDepth - 2; ++i) {
    auto* level = new NkSeparator;
    parent->addChild(level);
    parent = level;
  }
  auto* cube = new NkCube;
  parent->addChild(cube);
  EXPECT_EQ(draw(root.get()).drawnInstances, 1);
  parent->removeChild(cube);
  EXPECT_EQ(draw(root.get()).compiledSegments, 1);
  root->removeAllChildren();
  EXPECT_EQ(draw(root.get()).compiledSegments, 1);
}
