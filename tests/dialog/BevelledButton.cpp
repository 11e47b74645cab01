#include "BevelledButton.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "arbora/scene/NkGroup.h"
#include "arbora/scene/NkMaterial.h"
#include "arbora/scene/NkPickedPoint.h"
#include "arbora/scene/NkRayPickAction.h"

namespace {

/// The material that a picked shape has from the siblings ahead of it.
NbColor colorAt(const NkPickedPoint& point) {
  const NkFullPath* path = point.getPath()->full();
  const auto* parent = static_cast<const NkGroup*>(path->getNode(path->getLength() - 2));
  for (int i = path->getIndex(path->getLength() - 1); i >= 0; --i) {
    if (parent->getChild(i)->isOfType(NkMaterial::getClassTypeId()))
      return static_cast<const NkMaterial*>(parent->getChild(i))->diffuseColor[0];
  }
  return {};
}

} // namespace

void expectBevelledButton(NkNode* part, const std::array<NbColor, 5>& colors) {
  constexpr int kCells = 14;
  for (int y = 0; y < kCells; ++y) {
    for (int x = 0; x < kCells; ++x) {
      NkRayPickAction pick(NbViewportRegion(100, 100));
      const auto place = [](int cell) { return (static_cast<float>(cell) + 0.5F) / kCells - 0.5F; };
      pick.setRay(NbVec3f(place(x), place(y), 10), NbVec3f(0, 0, -1));
      pick.apply(part);
      const NkPickedPoint* point = pick.getPickedPoint();
      ASSERT_NE(point, nullptr) << x << ", " << y;
      EXPECT_NEAR(point->getPoint()[2], 0.1F, 1e-5F);
      const int ring = std::min({x, y, kCells - 1 - x, kCells - 1 - y});
      const bool isLower = y == ring || x == kCells - 1 - ring;
      const int color = ring > 1 ? 4 : 2 * ring + (isLower ? 1 : 0);
      EXPECT_EQ(colorAt(*point), colors[static_cast<std::size_t>(color)]) << x << ", " << y;
    }
  }
}
