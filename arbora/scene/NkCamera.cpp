#include "arbora/scene/NkCamera.h"

#include <algorithm>
#include <cmath>

#include "arbora/base/NbBox3f.h"
#include "arbora/base/NbViewportRegion.h"
#include "arbora/scene/NkGLRenderAction.h"
#include "arbora/scene/NkGetBoundingBoxAction.h"
#include "arbora/scene/NkGetMatrixAction.h"
#include "arbora/scene/NkSearchAction.h"

NK_NODE_ABSTRACT_SOURCE(NkCamera, NkNode, "Camera");

NkCamera::NkCamera() {
  NK_NODE_CONSTRUCTOR(NkCamera);
  NK_NODE_ADD_FIELD(position, (NbVec3f(0, 0, 1)));
  NK_NODE_ADD_FIELD(orientation, (NbRotation()));
  NK_NODE_ADD_FIELD(aspectRatio, (1));
  NK_NODE_ADD_FIELD(nearDistance, (1));
  NK_NODE_ADD_FIELD(farDistance, (10));
  NK_NODE_ADD_FIELD(focalDistance, (5));
}

NkCamera::~NkCamera() = default;

void NkCamera::viewAll(NkNode* root, const NbViewportRegion& viewport, float slack) {
  if (!root) return;
  const arbora::KeepAlive alive(this);
  const arbora::KeepAlive keep(root);
  NkGetBoundingBoxAction measure(viewport);
  measure.apply(root);
  NbBox3f box = measure.getBoundingBox();
  if (box.isEmpty()) return;

  // Into the space in which the camera's fields count.
  NkSearchAction search;
  search.setNode(this);
  search.setSearchingAll(true);
  search.apply(root);
  if (NkPath* path = search.getPath()) {
    NkGetMatrixAction place(viewport);
    place.apply(path);
    box.transform(place.getInverse());
  }

  constexpr float kNearestShare = 0.001F; // Of the far distance: what depth buffers can tell apart.
  const NbVec3f size = box.getSize();
  const float radius = size.length() > 0 ? size.length() / 2 : 1.0F;
  const float distance = frameSphere(radius);
  const float reach = radius * (slack > 0 && std::isfinite(slack) ? slack : 1.0F);
  position = box.getCenter() - distance * orientation.getValue().multVec(NbVec3f(0, 0, -1));
  farDistance = distance + reach;
  nearDistance = std::max(distance - reach, (distance + reach) * kNearestShare);
  focalDistance = distance;
}

void NkCamera::pointAt(const NbVec3f& target, const NbVec3f& up) {
  NbVec3f back = position.getValue() - target;
  if (!(back.normalize() > 0)) return;
  NbVec3f right = up.cross(back);
  // Seen along the wanted upward direction, any other will do.
  if (!(right.normalize() > 0)) right = NbVec3f(std::fabs(back[0]) < 0.5F ? 1.0F : 0.0F, 0, 1).cross(back);
  right.normalize();
  const NbVec3f above = back.cross(right);
  orientation = NbRotation(NbMatrix(right[0], right[1], right[2], 0, above[0], above[1], above[2], 0, back[0], back[1],
                                    back[2], 0, 0, 0, 0, 1));
}

namespace {

// What is greater would overflow in the products of a projection.
constexpr float kGreatestLength = 1e12F;
constexpr float kGreatestAspect = 1e4F;

bool isUsableAspect(float aspect) { return aspect >= 1 / kGreatestAspect && aspect <= kGreatestAspect; }

} // namespace

float NkCamera::usableLength(float length) {
  return std::isnan(length) ? 0.0F : std::clamp(length, -kGreatestLength, kGreatestLength);
}

float NkCamera::usedAspect(float aspect) const {
  if (isUsableAspect(aspect)) return aspect;
  return isUsableAspect(aspectRatio.getValue()) ? aspectRatio.getValue() : 1.0F;
}

NbViewVolume NkCamera::getViewVolume(float aspect) const {
  NbViewVolume volume = getUnplacedViewVolume(usedAspect(aspect), 1);
  volume.rotateCamera(orientation.getValue());
  volume.translateCamera(position.getValue());
  return volume;
}

NbViewVolume NkCamera::getViewVolumeUnder(const NbMatrix& model, float aspect) const {
  if (model.isIdentity()) return getViewVolume(aspect);
  NbVec3f translation;
  NbVec3f scale;
  NbRotation rotation;
  NbRotation scaleOrientation;
  model.getTransform(translation, rotation, scale, scaleOrientation);
  const float meanScale = std::cbrt(std::fabs(model.det3()));
  NbViewVolume volume =
      getUnplacedViewVolume(usedAspect(aspect), meanScale > 0 && std::isfinite(meanScale) ? meanScale : 1.0F);
  volume.rotateCamera(orientation.getValue() * rotation);
  NbVec3f place;
  model.multVecMatrix(position.getValue(), place);
  volume.translateCamera(place);
  return volume;
}

void NkCamera::doAction(NkAction* action) {
  action->getState()->markUsed(NkState::CAMERA);
  action->setViewVolume(
      getViewVolumeUnder(action->getState()->model, action->getViewportRegion().getViewportAspectRatio()));
}

void NkCamera::GLRender(NkGLRenderAction* action) { action->useCamera(this); }

// Draw lists read the camera anew for every frame: a change of it leaves them as they are.
bool NkCamera::dropCaches(NkNotification& notification) {
  notification.drawn = true;
  return NkNode::dropCaches(notification);
}
