#pragma once

#include <algorithm>

#include "Panelix/Sizes.h"
#include "arbora/scene/NkFieldSensor.h"
#include "arbora/scene/NkSField.h"

// The size fields, which the components and the top-level dialog have alike.

namespace panelix {

template <class Node>
SizeTriple sizeFieldsOf(const Node& node) {
  return {NbVec2i32(node.width.getValue(), node.height.getValue()),
          NbVec2i32(node.minWidth.getValue(), node.minHeight.getValue()),
          NbVec2i32(node.maxWidth.getValue(), node.maxHeight.getValue())};
}

/// Calls `use` with each field and its index in a triple.
template <class Node, class Use>
void forEachSizeField(Node& node, Use&& use) {
  use(node.width, 0);
  use(node.height, 1);
  use(node.minWidth, 2);
  use(node.minHeight, 3);
  use(node.maxWidth, 4);
  use(node.maxHeight, 5);
}

template <class Node>
void setSizeFields(Node& node, SizeTriple triple) {
  forEachSizeField(node, [&](NkSFInt32& field, int index) { field = triple.at(index); });
}

/// Keeps the sizes that a layout has found out of files. `given` is what was set ahead of it; what is fixed has limits
/// by that alone.
template <class Node>
void hideNegotiatedSizes(Node& node, const SizeTriple& given, bool isWidthFixed, bool isHeightFixed) {
  if (given.size[0] == 0) node.width.setDefault(true);
  if (given.size[1] == 0) node.height.setDefault(true);
  if (given.min[0] == 0 || isWidthFixed) node.minWidth.setDefault(true);
  if (given.min[1] == 0 || isHeightFixed) node.minHeight.setDefault(true);
  if (given.max[0] == 0 || isWidthFixed || node.maxWidth.getValue() == kUnbounded) node.maxWidth.setDefault(true);
  if (given.max[1] == 0 || isHeightFixed || node.maxHeight.getValue() == kUnbounded) node.maxHeight.setDefault(true);
}

/// Index of the field that a sensor is on; -1 if it is none of these sensors.
inline int sizeFieldOf(const SizeSensors& sensors, const NkSensor* sensor) {
  const auto own = std::find_if(sensors.begin(), sensors.end(), [&](const auto& each) { return each.get() == sensor; });
  return own == sensors.end() ? -1 : static_cast<int>(own - sensors.begin());
}

} // namespace panelix
