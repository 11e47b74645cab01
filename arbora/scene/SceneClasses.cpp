#include "arbora/scene/SceneClasses.h"

#include "arbora/scene/MeshFactory.h"
#include "arbora/scene/NkBaseColor.h"
#include "arbora/scene/NkCallbackAction.h"
#include "arbora/scene/NkCamera.h"
#include "arbora/scene/NkClipPlane.h"
#include "arbora/scene/NkCone.h"
#include "arbora/scene/NkCoordinate3.h"
#include "arbora/scene/NkCube.h"
#include "arbora/scene/NkCylinder.h"
#include "arbora/scene/NkDetail.h"
#include "arbora/scene/NkDirectionalLight.h"
#include "arbora/scene/NkDragger.h"
#include "arbora/scene/NkEventCallback.h"
#include "arbora/scene/NkFaceSet.h"
#include "arbora/scene/NkFont.h"
#include "arbora/scene/NkGLRenderAction.h"
#include "arbora/scene/NkGetBoundingBoxAction.h"
#include "arbora/scene/NkGetMatrixAction.h"
#include "arbora/scene/NkHandleEventAction.h"
#include "arbora/scene/NkIndexedFaceSet.h"
#include "arbora/scene/NkInfo.h"
#include "arbora/scene/NkInteractionKit.h"
#include "arbora/scene/NkKeyboardEvent.h"
#include "arbora/scene/NkLight.h"
#include "arbora/scene/NkLocation2Event.h"
#include "arbora/scene/NkMField.h"
#include "arbora/scene/NkMaterial.h"
#include "arbora/scene/NkMatrixTransform.h"
#include "arbora/scene/NkMouseButtonEvent.h"
#include "arbora/scene/NkMouseWheelEvent.h"
#include "arbora/scene/NkNodeKitDetail.h"
#include "arbora/scene/NkNodeKitListPart.h"
#include "arbora/scene/NkNormal.h"
#include "arbora/scene/NkOrthographicCamera.h"
#include "arbora/scene/NkPath.h"
#include "arbora/scene/NkPerspectiveCamera.h"
#include "arbora/scene/NkPickStyle.h"
#include "arbora/scene/NkPlaneDragger.h"
#include "arbora/scene/NkPolygonShape.h"
#include "arbora/scene/NkRayPickAction.h"
#include "arbora/scene/NkRotation.h"
#include "arbora/scene/NkScale.h"
#include "arbora/scene/NkSearchAction.h"
#include "arbora/scene/NkSeparator.h"
#include "arbora/scene/NkShape.h"
#include "arbora/scene/NkSphere.h"
#include "arbora/scene/NkSwitch.h"
#include "arbora/scene/NkText3.h"
#include "arbora/scene/NkTexture2.h"
#include "arbora/scene/NkTextureCoordinate2.h"
#include "arbora/scene/NkTrackerEvent.h"
#include "arbora/scene/NkTransform.h"
#include "arbora/scene/NkTransformation.h"
#include "arbora/scene/NkTranslation.h"
#include "arbora/scene/NkWriteAction.h"
#include "arbora/scene/text/GlyphCache.h"

namespace arbora {
namespace {

struct SceneClass {
  void (*init)();
  void (*exit)();
};

template <class T>
constexpr SceneClass row() {
  return {&T::initClass, &T::exitClass};
}

// Each class stands behind its parent. The kit classes register with `NkNodeKit::init` and `NkInteraction::init`.
constexpr SceneClass kClasses[] = {
    row<NkTypedObject>(),
    row<NkField>(),
    row<NkSFBool>(),
    row<NkSFInt32>(),
    row<NkSFFloat>(),
    row<NkSFString>(),
    row<NkSFFilePathString>(),
    row<NkSFName>(),
    row<NkSFEnum>(),
    row<NkSFBitMask>(),
    row<NkSFVec2i32>(),
    row<NkSFVec2f>(),
    row<NkSFVec3f>(),
    row<NkSFColor>(),
    row<NkSFRotation>(),
    row<NkSFMatrix>(),
    row<NkSFPlane>(),
    row<NkSFImage>(),
    row<NkSFNode>(),
    row<NkMField>(),
    row<NkMFInt32>(),
    row<NkMFFloat>(),
    row<NkMFString>(),
    row<NkMFVec2f>(),
    row<NkMFVec3f>(),
    row<NkMFColor>(),
    row<NkMFNode>(),
    row<NkBase>(),
    row<NkPath>(),
    row<NkFieldContainer>(),
    row<NkNode>(),
    row<NkGroup>(),
    row<NkSeparator>(),
    row<NkSwitch>(),
    row<NkTransformation>(),
    row<NkTranslation>(),
    row<NkScale>(),
    row<NkRotation>(),
    row<NkTransform>(),
    row<NkMatrixTransform>(),
    row<NkMaterial>(),
    row<NkBaseColor>(),
    row<NkPickStyle>(),
    row<NkFont>(),
    row<NkClipPlane>(),
    row<NkCoordinate3>(),
    row<NkNormal>(),
    row<NkTexture2>(),
    row<NkTextureCoordinate2>(),
    row<NkLight>(),
    row<NkDirectionalLight>(),
    row<NkCamera>(),
    row<NkPerspectiveCamera>(),
    row<NkOrthographicCamera>(),
    row<NkInfo>(),
    row<NkEventCallback>(),
    row<NkShape>(),
    row<NkCube>(),
    row<NkSphere>(),
    row<NkCone>(),
    row<NkCylinder>(),
    row<NkPolygonShape>(),
    row<NkFaceSet>(),
    row<NkIndexedFaceSet>(),
    row<NkText3>(),
    row<NkAction>(),
    row<NkCallbackAction>(),
    row<NkGLRenderAction>(),
    row<NkGetBoundingBoxAction>(),
    row<NkGetMatrixAction>(),
    row<NkHandleEventAction>(),
    row<NkRayPickAction>(),
    row<NkSearchAction>(),
    row<NkWriteAction>(),
    row<NkEvent>(),
    row<NkButtonEvent>(),
    row<NkMouseButtonEvent>(),
    row<NkMouseWheelEvent>(),
    row<NkKeyboardEvent>(),
    row<NkLocation2Event>(),
    row<NkTrackerEvent>(),
    row<NkDetail>(),
};

} // namespace

void initSceneClasses() {
  for (const SceneClass& sceneClass : kClasses) sceneClass.init();
}

void exitSceneClasses() {
  for (auto it = std::rbegin(kClasses); it != std::rend(kClasses); ++it) it->exit();
  clearGlyphCache();
  clearUnitMeshes();
}

} // namespace arbora
