// Properties, transforms, lights and cameras: what they leave in the state.
#include "SceneTest.h"

#include <cmath>
#include <cstdio>
#include <limits>
#include <numbers>
#include <optional>

#include "arbora/base/NbFileHelper.h"
#include "arbora/scene/NkBaseColor.h"
#include "arbora/scene/NkCallbackAction.h"
#include "arbora/scene/NkClipPlane.h"
#include "arbora/scene/NkCoordinate3.h"
#include "arbora/scene/NkCube.h"
#include "arbora/scene/NkDirectionalLight.h"
#include "arbora/scene/NkFont.h"
#include "arbora/scene/NkGetBoundingBoxAction.h"
#include "arbora/scene/NkGetMatrixAction.h"
#include "arbora/scene/NkInfo.h"
#include "arbora/scene/NkMaterial.h"
#include "arbora/scene/NkMatrixTransform.h"
#include "arbora/scene/NkNormal.h"
#include "arbora/scene/NkOrthographicCamera.h"
#include "arbora/scene/NkPerspectiveCamera.h"
#include "arbora/scene/NkPickStyle.h"
#include "arbora/scene/NkRotation.h"
#include "arbora/scene/NkScale.h"
#include "arbora/scene/NkTexture2.h"
#include "arbora/scene/NkTextureCoordinate2.h"
#include "arbora/scene/NkTransform.h"
#include "arbora/scene/NkTranslation.h"

using arbora::Ref;

namespace {

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

/// The state behind all nodes of a scene that a cube ends. A view volume is copied: the action takes it along.
struct StateBehind {
  explicit StateBehind(NkNode* root, const NbViewportRegion& viewport = NbViewportRegion(200, 100)) {
    NkCallbackAction action;
    action.setViewportRegion(viewport);
    action.addPreCallback(
        NkCube::getClassTypeId(),
        [](void* data, NkCallbackAction* at, const NkNode*) {
          auto* self = static_cast<StateBehind*>(data);
          self->state = *at->getState();
          if (self->state->viewVolume) self->volume = *self->state->viewVolume;
          return NkCallbackAction::CONTINUE;
        },
        this);
    action.apply(root);
  }
  std::optional<NkState> state;
  NbViewVolume volume;
};

/// A group of nodes with a cube at its end.
template <class... Nodes>
Ref<NkGroup> sceneOf(Nodes*... nodes) {
  Ref<NkGroup> group(new NkGroup);
  (group->addChild(nodes), ...);
  group->addChild(new NkCube);
  return group;
}

template <class... Nodes>
NkState stateBehind(Nodes*... nodes) {
  return *StateBehind(sceneOf(nodes...).get()).state;
}

NbVec3f moved(const NbMatrix& matrix, const NbVec3f& point) {
  NbVec3f result;
  matrix.multVecMatrix(point, result);
  return result;
}

} // namespace

// ---- Properties

using Properties = SceneTest;

TEST_F(Properties, AMaterialSetsAllColoursIntoTheState) {
  auto* material = new NkMaterial;
  EXPECT_TRUE(material->hasDefaultValues());
  EXPECT_EQ(stateBehind(new NkMaterial).material, arbora::Material());
  material->ambientColor.setValue(NbColor(0.1F, 0, 0));
  material->diffuseColor.setValue(NbColor(0.2F, 0, 0));
  material->specularColor.setValue(NbColor(0.3F, 0, 0));
  material->emissiveColor.setValue(NbColor(0.4F, 0, 0));
  material->shininess.setValue(0.5F);
  material->transparency.setValue(0.6F);
  const arbora::Material set = stateBehind(material).material;
  EXPECT_EQ(set.ambient, NbColor(0.1F, 0, 0));
  EXPECT_EQ(set.diffuse, NbColor(0.2F, 0, 0));
  EXPECT_EQ(set.specular, NbColor(0.3F, 0, 0));
  EXPECT_EQ(set.emissive, NbColor(0.4F, 0, 0));
  EXPECT_EQ(set.shininess, 0.5F);
  EXPECT_EQ(set.transparency, 0.6F);
}

TEST_F(Properties, AMaterialTakesTheFirstOfSeveralColoursAndHoldsThemInRange) {
  const Ref<NkSeparator> scene = read("Material { diffuseColor [ 2 -1 0.5, 0 0 1 ] transparency NAN } Cube { }");
  ASSERT_TRUE(scene);
  const NkState state = *StateBehind(scene.get()).state;
  EXPECT_EQ(state.material.diffuse, NbColor(1, 0, 0.5F));
  EXPECT_EQ(state.material.transparency, 0);
}

TEST_F(Properties, AnEmptyColourListLeavesTheColourBefore) {
  auto* before = new NkMaterial;
  before->diffuseColor.setValue(NbColor(1, 0, 0));
  auto* empty = new NkMaterial;
  empty->diffuseColor.setNum(0);
  EXPECT_EQ(stateBehind(before, empty).material.diffuse, NbColor(1, 0, 0));
}

TEST_F(Properties, ABaseColorChangesTheDiffuseColourAlone) {
  auto* material = new NkMaterial;
  material->emissiveColor.setValue(NbColor(0, 1, 0));
  auto* base = new NkBaseColor;
  base->rgb.setValue(NbColor(0, 0, 1));
  const NkState state = stateBehind(material, base);
  EXPECT_EQ(state.material.diffuse, NbColor(0, 0, 1));
  EXPECT_EQ(state.material.emissive, NbColor(0, 1, 0));
}

TEST_F(Properties, AFontSetsFaceAndSize) {
  auto* font = new NkFont;
  EXPECT_EQ(font->size.getValue(), 10);
  EXPECT_EQ(font->name.getValue(), NbName());
  font->name = NbName("Tahoma");
  font->size = 3;
  EXPECT_EQ(stateBehind(font).font, (arbora::FontStyle{"Tahoma", 3}));
  for (const float bad : {-1.0F, 0.0F, kNaN, kInfinity}) {
    auto* odd = new NkFont;
    odd->size = bad;
    EXPECT_EQ(stateBehind(odd).font.size, 0);
  }
}

TEST_F(Properties, APickStyleSetsTheStyle) {
  EXPECT_EQ(stateBehind(new NkPickStyle).pickStyle, 0);
  const Ref<NkSeparator> scene = read("PickStyle { style UNPICKABLE } Cube { }");
  ASSERT_TRUE(scene);
  EXPECT_EQ(StateBehind(scene.get()).state->pickStyle, 2);
}

TEST_F(Properties, CoordinatesNormalsAndTextureNodesStandInTheState) {
  auto* coordinates = new NkCoordinate3;
  auto* normals = new NkNormal;
  auto* textureCoordinates = new NkTextureCoordinate2;
  auto* texture = new NkTexture2;
  EXPECT_EQ(coordinates->point.getNum(), 1);
  EXPECT_EQ(normals->vector.getNum(), 0);
  EXPECT_EQ(textureCoordinates->point.getNum(), 0);
  EXPECT_TRUE(coordinates->hasDefaultValues() && normals->hasDefaultValues() && textureCoordinates->hasDefaultValues());
  const Ref<NkGroup> scene = sceneOf(coordinates, normals, textureCoordinates, texture);
  const NkState state = *StateBehind(scene.get()).state;
  EXPECT_EQ(state.coordinates, coordinates);
  EXPECT_EQ(state.normals, normals);
  EXPECT_EQ(state.textureCoordinates, textureCoordinates);
  EXPECT_EQ(state.texture, texture);
}

TEST_F(Properties, AnInfoHoldsAText) {
  const Ref<NkSeparator> scene = read("Info { string \"made by hand\" }");
  ASSERT_TRUE(scene);
  EXPECT_EQ(static_cast<NkInfo*>(scene->getChild(0))->string.getValue(), "made by hand");
  EXPECT_FALSE(scene->getChild(0)->affectsState());
}

// ---- Clip planes and lights

TEST_F(Properties, AClipPlaneGoesToWorldSpace) {
  auto* move = new NkTranslation;
  move->translation.setValue(3, 0, 0);
  const NkState state = stateBehind(move, new NkClipPlane);
  ASSERT_EQ(state.clip.count, 1);
  EXPECT_TRUE(state.clip.planes[0].isInHalfSpace(NbVec3f(3.1F, 0, 0)));
  EXPECT_FALSE(state.clip.planes[0].isInHalfSpace(NbVec3f(2.9F, 0, 0)));
}

TEST_F(Properties, AClipPlaneThatIsOffDoesNothing) {
  auto* plane = new NkClipPlane;
  plane->on = false;
  EXPECT_EQ(stateBehind(plane).clip.count, 0);
}

TEST_F(Properties, TheNinthClipPlanePostsOneMessage) {
  const Ref<NkGroup> scene(new NkGroup);
  for (int i = 0; i < 9; ++i) scene->addChild(new NkClipPlane);
  scene->addChild(new NkCube);
  expectMessage("only 8 clip planes");
  EXPECT_EQ(StateBehind(scene.get()).state->clip.count, 8);
  EXPECT_EQ(StateBehind(scene.get()).state->clip.count, 8);
}

TEST_F(Properties, ALightShinesInWorldSpace) {
  auto* turn = new NkRotation;
  turn->rotation.setValue(NbVec3f(0, 1, 0), std::numbers::pi_v<float> / 2);
  auto* light = new NkDirectionalLight;
  light->intensity = 0.5F;
  light->color.setValue(1, 0.5F, 0);
  const NkState state = stateBehind(turn, light);
  ASSERT_EQ(state.lights.count, 1);
  EXPECT_TRUE(state.lights.lights[0].direction.equals(NbVec3f(-1, 0, 0), 1e-6F));
  EXPECT_EQ(state.lights.lights[0].color, NbColor(0.5F, 0.25F, 0));
}

TEST_F(Properties, ALightThatIsOffOrHasNoDirectionDoesNothing) {
  auto* off = new NkDirectionalLight;
  off->on = false;
  auto* nowhere = new NkDirectionalLight;
  nowhere->direction.setValue(0, 0, 0);
  auto* odd = new NkDirectionalLight;
  odd->direction.setValue(kNaN, 0, 0);
  EXPECT_EQ(stateBehind(off, nowhere, odd).lights.count, 0);
}

TEST_F(Properties, TheNinthLightPostsOneMessage) {
  const Ref<NkGroup> scene(new NkGroup);
  for (int i = 0; i < 9; ++i) scene->addChild(new NkDirectionalLight);
  scene->addChild(new NkCube);
  expectMessage("only 8 lights");
  EXPECT_EQ(StateBehind(scene.get()).state->lights.count, 8);
  EXPECT_EQ(StateBehind(scene.get()).state->lights.count, 8);
}

// ---- Transforms

using Transforms = SceneTest;

TEST_F(Transforms, ANewOneChangesNothing) {
  EXPECT_TRUE(stateBehind(new NkTranslation, new NkScale, new NkRotation, new NkTransform, new NkMatrixTransform)
                  .model.isIdentity());
}

TEST_F(Transforms, TheLastOneActsFirst) {
  auto* move = new NkTranslation;
  move->translation.setValue(1, 2, 3);
  auto* scale = new NkScale;
  scale->scaleFactor.setValue(2, 3, 4);
  auto* turn = new NkRotation;
  turn->rotation.setValue(NbVec3f(0, 0, 1), std::numbers::pi_v<float> / 2);
  // x turns to y, is scaled by 3, then moved.
  EXPECT_TRUE(moved(stateBehind(move, scale, turn).model, NbVec3f(1, 0, 0)).equals(NbVec3f(1, 5, 3), 1e-5F));
}

TEST_F(Transforms, ATranslationBehindAScaleIsScaled) {
  auto* scale = new NkScale;
  scale->scaleFactor.setValue(2, 2, 2);
  auto* move = new NkTranslation;
  move->translation.setValue(1, 2, 3);
  EXPECT_EQ(moved(stateBehind(scale, move).model, NbVec3f(0, 0, 0)), NbVec3f(2, 4, 6));
}

TEST_F(Transforms, ATransformTurnsAboutItsCentre) {
  auto* transform = new NkTransform;
  transform->center.setValue(1, 0, 0);
  transform->rotation.setValue(NbVec3f(0, 0, 1), std::numbers::pi_v<float>);
  const NbMatrix model = stateBehind(transform).model;
  EXPECT_TRUE(moved(model, NbVec3f(1, 0, 0)).equals(NbVec3f(1, 0, 0), 1e-6F));
  EXPECT_TRUE(moved(model, NbVec3f(0, 0, 0)).equals(NbVec3f(2, 0, 0), 1e-6F));
}

TEST_F(Transforms, SetMatrixTakesTheMatrixApart) {
  NbMatrix matrix;
  matrix.setTransform(NbVec3f(1, 2, 3), NbRotation(NbVec3f(1, 1, 0), 0.7F), NbVec3f(2, 3, 4));
  const Ref<NkTransform> transform(new NkTransform);
  transform->setMatrix(matrix);
  EXPECT_TRUE(transform->translation.getValue().equals(NbVec3f(1, 2, 3), 1e-5F));
  EXPECT_TRUE(transform->getTransformMatrix().equals(matrix, 1e-4F));
  EXPECT_FALSE(transform->translation.isDefault());
}

TEST_F(Transforms, SetMatrixKeepsTheCentreAndAnySkewOrMirror) {
  NbMatrix matrix;
  matrix.setTransform(NbVec3f(1, -2, 3), NbRotation(NbVec3f(0, 1, 1), -2.1F), NbVec3f(2, 0.5F, 3),
                      NbRotation(NbVec3f(1, 2, 3), 0.9F));
  NbMatrix mirror;
  mirror.setScale(NbVec3f(-1, 1, 1));
  for (const NbMatrix& wanted : {matrix, mirror * matrix}) {
    const Ref<NkTransform> transform(new NkTransform);
    transform->center.setValue(5, 6, 7);
    transform->setMatrix(wanted);
    EXPECT_EQ(transform->center.getValue(), NbVec3f(5, 6, 7));
    EXPECT_TRUE(transform->getTransformMatrix().equals(wanted, 1e-4F));
  }
}

TEST_F(Transforms, SetMatrixUndoesAScale) {
  NbMatrix scale;
  scale.setScale(NbVec3f(4, 2, 1));
  const Ref<NkTransform> undo(new NkTransform);
  undo->setMatrix(scale.inverse());
  EXPECT_TRUE(undo->scaleFactor.getValue().equals(NbVec3f(0.25F, 0.5F, 1), 1e-6F));
  EXPECT_TRUE((undo->getTransformMatrix() * scale).equals(NbMatrix(), 1e-5F));
}

TEST_F(Transforms, AMatrixTransformIsAffine) {
  NbMatrix matrix;
  matrix.setTranslate(NbVec3f(1, 2, 3));
  matrix[0][3] = 5;
  matrix[3][3] = 2;
  auto* transform = new NkMatrixTransform;
  transform->matrix = matrix;
  const NbMatrix model = stateBehind(transform).model;
  EXPECT_TRUE(model.isAffine());
  EXPECT_EQ(moved(model, NbVec3f(1, 1, 1)), NbVec3f(2, 3, 4));
}

TEST_F(Transforms, ValuesThatAreNotFiniteHaveNoEffect) {
  auto* move = new NkTranslation;
  move->translation.setValue(1, kNaN, 0);
  auto* scale = new NkScale;
  scale->scaleFactor.setValue(kInfinity, 1, 1);
  auto* transform = new NkTransform;
  transform->center.setValue(0, 0, -kInfinity);
  EXPECT_TRUE(stateBehind(move, scale, transform).model.isIdentity());
}

TEST_F(Transforms, NegativeAndZeroScalesMirrorAndFlattenTheBox) {
  auto* scale = new NkScale;
  scale->scaleFactor.setValue(-2, 0, 1);
  const Ref<NkGroup> scene = sceneOf(scale);
  NkGetBoundingBoxAction action;
  action.apply(scene.get());
  EXPECT_EQ(action.getBoundingBox(), NbBox3f(-2, 0, -1, 2, 0, 1));
}

// ---- Cameras

using Cameras = SceneTest;

TEST_F(Cameras, DefaultsOfBoth) {
  const Ref<NkPerspectiveCamera> perspective(new NkPerspectiveCamera);
  const Ref<NkOrthographicCamera> orthographic(new NkOrthographicCamera);
  EXPECT_EQ(perspective->position.getValue(), NbVec3f(0, 0, 1));
  EXPECT_FLOAT_EQ(perspective->heightAngle.getValue(), std::numbers::pi_v<float> / 4);
  EXPECT_EQ(orthographic->height.getValue(), 2);
  EXPECT_EQ(orthographic->nearDistance.getValue(), 1);
  EXPECT_EQ(orthographic->farDistance.getValue(), 10);
  EXPECT_EQ(orthographic->focalDistance.getValue(), 5);
  EXPECT_EQ(orthographic->aspectRatio.getValue(), 1);
}

TEST_F(Cameras, ACameraSetsTheViewVolumeOfTheViewport) {
  auto* camera = new NkOrthographicCamera;
  const Ref<NkGroup> scene = sceneOf(camera);
  const StateBehind behind(scene.get(), NbViewportRegion(200, 100));
  ASSERT_TRUE(NkViewVolumeElement::isSet(&*behind.state));
  EXPECT_FLOAT_EQ(behind.volume.getWidth(), 4);
  EXPECT_FLOAT_EQ(behind.volume.getHeight(), 2);
  EXPECT_EQ(behind.volume.getProjectionPoint(), NbVec3f(0, 0, 1));
  // Upright viewports keep the width and gain above and below.
  const StateBehind upright(scene.get(), NbViewportRegion(100, 200));
  EXPECT_FLOAT_EQ(upright.volume.getWidth(), 2);
  EXPECT_FLOAT_EQ(upright.volume.getHeight(), 4);
}

TEST_F(Cameras, WithoutACameraNoViewVolumeIsSet) {
  const NkState state = stateBehind(new NkInfo);
  EXPECT_FALSE(NkViewVolumeElement::isSet(&state));
}

TEST_F(Cameras, AParentSpaceMovesTurnsAndScalesTheCamera) {
  auto* transform = new NkTransform;
  transform->translation.setValue(10, 0, 0);
  transform->rotation.setValue(NbVec3f(0, 1, 0), std::numbers::pi_v<float> / 2);
  transform->scaleFactor.setValue(2, 2, 2);
  const NbViewVolume volume = StateBehind(sceneOf(transform, new NkOrthographicCamera).get()).volume;
  EXPECT_TRUE(volume.getProjectionPoint().equals(NbVec3f(12, 0, 0), 1e-5F));
  EXPECT_TRUE(volume.getProjectionDirection().equals(NbVec3f(-1, 0, 0), 1e-5F));
  EXPECT_NEAR(volume.getNearDist(), 2, 1e-5);
  EXPECT_NEAR(volume.getHeight(), 4, 1e-5);
}

TEST_F(Cameras, ViewAllFramesABox) {
  NbBox3f box(-3, -1, 4, 5, 2, 6);
  for (const bool perspective : {true, false}) {
    for (const NbViewportRegion& viewport : {NbViewportRegion(300, 100), NbViewportRegion(100, 300)}) {
      const Ref<NkCamera> camera(perspective ? static_cast<NkCamera*>(new NkPerspectiveCamera)
                                             : static_cast<NkCamera*>(new NkOrthographicCamera));
      camera->orientation.setValue(NbVec3f(0, 1, 0), 0.5F);
      const Ref<NkSeparator> scene = read("Translation { translation 1 0.5 5 } Cube { width 8 height 3 depth 2 }");
      ASSERT_TRUE(scene);
      camera->viewAll(scene.get(), viewport);
      const NbViewVolume volume = camera->getViewVolume(viewport.getViewportAspectRatio());
      for (int i = 0; i < 8; ++i) {
        const NbVec3f corner((i & 1) != 0 ? box.getMax()[0] : box.getMin()[0],
                             (i & 2) != 0 ? box.getMax()[1] : box.getMin()[1],
                             (i & 4) != 0 ? box.getMax()[2] : box.getMin()[2]);
        EXPECT_TRUE(volume.intersect(corner)) << perspective << " " << i;
      }
      NbVec3f middle;
      volume.projectToScreen(box.getCenter(), middle);
      EXPECT_TRUE(NbVec2f(middle[0], middle[1]).equals(NbVec2f(0.5F, 0.5F), 1e-4F));
      // No more than needed: a box of twice the size doesn't fit.
      EXPECT_FALSE(volume.intersect(box.getCenter() + 2 * (box.getMax() - box.getCenter())));
    }
  }
}

TEST_F(Cameras, ViewAllWorksFromInsideATransformedScene) {
  const Ref<NkSeparator> scene =
      read("Translation { translation 100 0 0 } Rotation { rotation 0 1 0 1 } PerspectiveCamera { } Cube { }");
  ASSERT_TRUE(scene);
  auto* camera = static_cast<NkCamera*>(scene->getChild(2));
  camera->viewAll(scene.get(), NbViewportRegion(100, 100));
  const NbViewVolume volume = StateBehind(scene.get(), NbViewportRegion(100, 100)).volume;
  NbVec3f screen;
  volume.projectToScreen(NbVec3f(100, 0, 0), screen);
  EXPECT_TRUE(NbVec2f(screen[0], screen[1]).equals(NbVec2f(0.5F, 0.5F), 1e-3F));
  EXPECT_TRUE(volume.intersect(NbVec3f(100, 0, 0)));
}

TEST_F(Cameras, ViewAllOfNothingChangesNothing) {
  const Ref<NkPerspectiveCamera> camera(new NkPerspectiveCamera);
  const Ref<NkGroup> nothing(new NkGroup);
  camera->viewAll(nothing.get(), NbViewportRegion());
  camera->viewAll(nullptr, NbViewportRegion());
  EXPECT_TRUE(camera->hasDefaultValues());
}

TEST_F(Cameras, ViewAllFramesAPoint) {
  const Ref<NkSeparator> scene = read("Translation { translation 1 2 3 } Sphere { radius 0 }");
  ASSERT_TRUE(scene);
  const Ref<NkPerspectiveCamera> camera(new NkPerspectiveCamera);
  camera->viewAll(scene.get(), NbViewportRegion());
  EXPECT_TRUE(camera->getViewVolume().intersect(NbVec3f(1, 2, 3)));
}

TEST_F(Cameras, SlackMovesTheNearAndFarPlanesAway) {
  const Ref<NkSeparator> scene = read("Sphere { }");
  ASSERT_TRUE(scene);
  const Ref<NkOrthographicCamera> camera(new NkOrthographicCamera);
  camera->viewAll(scene.get(), NbViewportRegion());
  const float depth = camera->farDistance.getValue() - camera->nearDistance.getValue();
  camera->viewAll(scene.get(), NbViewportRegion(), 1.5F);
  EXPECT_NEAR(camera->farDistance.getValue() - camera->nearDistance.getValue(), 1.5F * depth, 1e-4);
  // However much slack there is, the near plane stays ahead of the camera.
  camera->viewAll(scene.get(), NbViewportRegion(), 100);
  EXPECT_GT(camera->nearDistance.getValue(), 0);
}

TEST_F(Cameras, PointAtLooksAtAPoint) {
  const Ref<NkPerspectiveCamera> camera(new NkPerspectiveCamera);
  camera->position.setValue(1, 2, 3);
  for (const NbVec3f& target : {NbVec3f(5, 2, 3), NbVec3f(1, 9, 3), NbVec3f(1, -9, 3), NbVec3f(-1, 0, 7)}) {
    camera->pointAt(target);
    NbVec3f wanted = target - camera->position.getValue();
    wanted.normalize();
    EXPECT_TRUE(camera->getViewVolume().getProjectionDirection().equals(wanted, 1e-5F));
  }
  camera->pointAt(NbVec3f(5, 2, 3));
  EXPECT_TRUE(camera->getViewVolume().getViewUp().equals(NbVec3f(0, 1, 0), 1e-5F));
  const NbRotation before = camera->orientation.getValue();
  camera->pointAt(camera->position.getValue());
  EXPECT_EQ(camera->orientation.getValue(), before);
}

TEST_F(Cameras, BadValuesGiveAUsableViewVolume) {
  for (const float bad : {0.0F, -1.0F, 1e30F, kNaN, kInfinity}) {
    const Ref<NkPerspectiveCamera> perspective(new NkPerspectiveCamera);
    perspective->heightAngle = bad;
    perspective->nearDistance = bad;
    perspective->aspectRatio = bad;
    const Ref<NkOrthographicCamera> orthographic(new NkOrthographicCamera);
    orthographic->height = bad;
    orthographic->farDistance = bad;
    orthographic->aspectRatio = bad;
    for (const NkCamera* camera :
         {static_cast<NkCamera*>(perspective.get()), static_cast<NkCamera*>(orthographic.get())}) {
      const NbMatrix matrix = camera->getViewVolume().getMatrix();
      for (int i = 0; i < 16; ++i) EXPECT_TRUE(std::isfinite(matrix.getValue()[i])) << bad;
    }
  }
}

// ---- Textures

using Textures = SceneTest;

namespace {

// A PNG of 2 by 2 RGB pixels: above red, green; below blue, white.
constexpr unsigned char kPng[] = {
    0x89, 0x50, 0x4e, 0x47, 0x0d, 0x0a, 0x1a, 0x0a, 0x00, 0x00, 0x00, 0x0d, 0x49, 0x48, 0x44, 0x52, 0x00, 0x00, 0x00,
    0x02, 0x00, 0x00, 0x00, 0x02, 0x08, 0x02, 0x00, 0x00, 0x00, 0xfd, 0xd4, 0x9a, 0x73, 0x00, 0x00, 0x00, 0x12, 0x49,
    0x44, 0x41, 0x54, 0x78, 0xda, 0x63, 0xf8, 0xcf, 0xc0, 0xc0, 0x00, 0xc2, 0x0c, 0xff, 0x81, 0x00, 0x00, 0x1f, 0xee,
    0x05, 0xfb, 0xf1, 0xab, 0xba, 0x77, 0x00, 0x00, 0x00, 0x00, 0x49, 0x45, 0x4e, 0x44, 0xae, 0x42, 0x60, 0x82};

} // namespace

TEST_F(Textures, AnImageInTheFieldIsShown) {
  const Ref<NkTexture2> texture(new NkTexture2);
  EXPECT_EQ(texture->getImage().width, 0);
  texture->image.setValue({2, 1, 3, {1, 2, 3, 4, 5, 6}});
  EXPECT_EQ(texture->getImage().pixels.size(), 6U);
  texture->image.setValue({2, 2, 3, {1, 2, 3, 4, 5, 6}});
  EXPECT_EQ(texture->getImage().width, 0) << "pixels are missing";
}

TEST_F(Textures, APngIsFoundInTheFoldersOfTheReader) {
  const std::string path = outputDir() + "/texture.png";
  std::FILE* file = NbFileHelper::open(NbString(path), "wb");
  ASSERT_NE(file, nullptr);
  std::fwrite(kPng, 1, sizeof kPng, file);
  std::fclose(file);

  const Ref<NkTexture2> texture(new NkTexture2);
  NkInput::addDirectoryLast(NbString(outputDir()));
  texture->filename = "texture.png";
  const arbora::Image image = texture->getImage();
  NkInput::removeDirectory(NbString(outputDir()));
  ASSERT_EQ(image.width, 2);
  ASSERT_EQ(image.height, 2);
  ASSERT_EQ(image.components, 3);
  // The lower row comes first.
  EXPECT_EQ(image.pixels, (std::vector<unsigned char>{0, 0, 255, 255, 255, 255, 255, 0, 0, 0, 255, 0}));
}

TEST_F(Textures, AMissingFileGivesOneMessage) {
  const Ref<NkTexture2> texture(new NkTexture2);
  texture->filename = "no-such-image.png";
  expectMessage("no-such-image.png");
  EXPECT_EQ(texture->getImage().width, 0);
  EXPECT_EQ(texture->getImage().width, 0);
  texture->wrapS = NkTexture2::CLAMP;
  EXPECT_EQ(texture->getImage().width, 0);
}

TEST_F(Textures, AFileThatIsNoImageGivesOneMessage) {
  const std::string path = outputDir() + "/broken.png";
  std::FILE* file = NbFileHelper::open(NbString(path), "wb");
  ASSERT_NE(file, nullptr);
  std::fwrite(kPng, 1, sizeof kPng / 2, file);
  std::fclose(file);
  const Ref<NkTexture2> texture(new NkTexture2);
  texture->filename = NbString(path);
  expectMessage("broken.png");
  EXPECT_EQ(texture->getImage().width, 0);
}
