#pragma once

#include <algorithm>

#include "arbora/base/NbVec3f.h"

namespace arbora {

/// Where the line `start + t * direction` runs inside a box: cuts [tEnter, tLeave] down to it. False if nothing is
/// left. `inverse` holds the reciprocals of the direction; what stands in it for a component of 0 doesn't matter.
inline bool clipRayToBox(const NbVec3f& start, const NbVec3f& direction, const NbVec3f& inverse, const NbVec3f& boxMin,
                         const NbVec3f& boxMax, float& tEnter, float& tLeave) {
  // Makes up for the rounding of the two products, which must not part a ray from a surface in the box's face.
  constexpr float kWidening = 1.0000004F;
  for (int axis = 0; axis < 3; ++axis) {
    if (direction[axis] == 0) {
      if (start[axis] < boxMin[axis] || start[axis] > boxMax[axis]) return false;
      continue;
    }
    const float toMin = (boxMin[axis] - start[axis]) * inverse[axis];
    const float toMax = (boxMax[axis] - start[axis]) * inverse[axis];
    tEnter = std::max(tEnter, std::min(toMin, toMax));
    tLeave = std::min(tLeave, std::max(toMin, toMax) * kWidening);
  }
  return tEnter <= tLeave;
}

inline NbVec3f reciprocal(const NbVec3f& v) {
  return NbVec3f(v[0] != 0 ? 1.0F / v[0] : 0.0F, v[1] != 0 ? 1.0F / v[1] : 0.0F, v[2] != 0 ? 1.0F / v[2] : 0.0F);
}

} // namespace arbora
