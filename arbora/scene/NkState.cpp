#include "arbora/scene/NkState.h"

#include <algorithm>

namespace arbora {

bool ClipSet::contains(const NbVec3f& worldPoint) const {
  return std::all_of(planes.begin(), planes.begin() + count,
                     [&](const NbPlane& plane) { return plane.isInHalfSpace(worldPoint); });
}

bool operator==(const ClipSet& a, const ClipSet& b) {
  return a.count == b.count && std::equal(a.planes.begin(), a.planes.begin() + a.count, b.planes.begin());
}

bool operator==(const LightSet& a, const LightSet& b) {
  return a.count == b.count && std::equal(a.lights.begin(), a.lights.begin() + a.count, b.lights.begin());
}

} // namespace arbora

const NbViewVolume& NkViewVolumeElement::get(const NkState* state) {
  static const NbViewVolume s_none;
  return isSet(state) ? *state->viewVolume : s_none;
}
