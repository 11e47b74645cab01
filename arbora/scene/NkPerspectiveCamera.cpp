#include "arbora/scene/NkPerspectiveCamera.h"

#include <algorithm>
#include <cmath>
#include <numbers>

NK_NODE_SOURCE(NkPerspectiveCamera, NkCamera, "PerspectiveCamera");

NkPerspectiveCamera::NkPerspectiveCamera() {
  NK_NODE_CONSTRUCTOR(NkPerspectiveCamera);
  NK_NODE_ADD_FIELD(heightAngle, (std::numbers::pi_v<float> / 4));
}

NkPerspectiveCamera::~NkPerspectiveCamera() = default;

namespace {

constexpr float kSmallestAngle = 0.001F;

float usableAngle(float angle) {
  return angle > 0 ? std::clamp(angle, kSmallestAngle, std::numbers::pi_v<float> - kSmallestAngle) : kSmallestAngle;
}

} // namespace

float NkPerspectiveCamera::frameSphere(float radius) {
  return radius / std::sin(usableAngle(heightAngle.getValue()) / 2);
}

NbViewVolume NkPerspectiveCamera::getUnplacedViewVolume(float aspect, float scale) const {
  float angle = usableAngle(heightAngle.getValue());
  if (aspect < 1) angle = 2 * std::atan(std::tan(angle / 2) / aspect);
  NbViewVolume volume;
  volume.perspective(angle, aspect, usableLength(nearDistance.getValue()) * scale,
                     usableLength(farDistance.getValue()) * scale);
  return volume;
}
