#include "arbora/scene/NkOrthographicCamera.h"

NK_NODE_SOURCE(NkOrthographicCamera, NkCamera, "OrthographicCamera");

NkOrthographicCamera::NkOrthographicCamera() {
  NK_NODE_CONSTRUCTOR(NkOrthographicCamera);
  NK_NODE_ADD_FIELD(height, (2));
}

NkOrthographicCamera::~NkOrthographicCamera() = default;

float NkOrthographicCamera::frameSphere(float radius) {
  height = 2 * radius;
  // Far enough for the near plane to have room ahead of the sphere.
  return 2 * radius;
}

NbViewVolume NkOrthographicCamera::getUnplacedViewVolume(float aspect, float scale) const {
  const float up = usableLength(height.getValue()) / 2 * scale / (aspect < 1 ? aspect : 1.0F);
  NbViewVolume volume;
  volume.ortho(-up * aspect, up * aspect, -up, up, usableLength(nearDistance.getValue()) * scale,
               usableLength(farDistance.getValue()) * scale);
  return volume;
}
