#pragma once

#include <cstdint>
#include <vector>

#include "arbora/base/NbVec2f.h"
#include "arbora/scene/export.h"

namespace arbora {

struct TessellatedPolygon {
  std::vector<NbVec2f> points;
  std::vector<std::uint32_t> triangles; // three indices each, counterclockwise
};

/// Triangles of what the contours enclose by the nonzero rule. Contours may cross and overlap; crossings give new
/// points, which follow those of the contours. Empty for contours without an area.
ARBORA_API TessellatedPolygon tessellate(const std::vector<std::vector<NbVec2f>>& contours);

} // namespace arbora
