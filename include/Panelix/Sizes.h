#pragma once

#include <algorithm>
#include <array>
#include <climits>
#include <memory>

#include "arbora/base/NbVec2i32.h"

class NkFieldSensor;

namespace panelix {

/// A max without bound, in pixels.
inline constexpr int kUnbounded = INT_MAX;

/// What a component asks for: its natural size and the limits of its size, in pixels.
struct SizeTriple {
  NbVec2i32 size{0, 0};
  NbVec2i32 min{0, 0};
  NbVec2i32 max{0, 0};

  /// Width and height of the size, of the min and of the max, in this order.
  int& at(int index) { return (index < 2 ? size : index < 4 ? min : max)[index % 2]; }
};

/// One for each of the six.
using SizeSensors = std::array<std::unique_ptr<NkFieldSensor>, 6>;

/// Adds to a size. What is unbounded stays so, and nothing exceeds it.
inline int addSaturating(int size, long long amount) {
  if (size == kUnbounded) return kUnbounded;
  return static_cast<int>(std::clamp<long long>(size + amount, INT_MIN, kUnbounded));
}

/// A place in whole pixels.
inline int truncated(double pixels) { return static_cast<int>(std::clamp<double>(pixels, INT_MIN, INT_MAX)); }

/// Adds to both axes: saturating where a size grows by a border, with `factor` 1; with -1 the border comes off.
inline void addBorder(NbVec2i32& size, const NbVec2i32& border, int factor) {
  for (int axis = 0; axis < 2; ++axis)
    size[axis] = addSaturating(size[axis], static_cast<long long>(factor) * border[axis]);
}

/// Holds a size within the limits; where these are out of order, max wins.
inline int clampMaxWins(int size, int min, int max) {
  if (size < min) size = min;
  return size > max ? max : size;
}

/// The same, min wins.
inline int clampMinWins(int size, int min, int max) {
  if (size < min) return min;
  return size > max ? max : size;
}

/// Gives what isn't set, 0, from what `getDefault(size, min, max)` tells, which is only asked if anything is missing;
/// `addBorder` makes each of the three a size of the whole. Then holds the size within its limits.
template <class GetDefault, class AddBorder>
void fillAndClamp(SizeTriple& triple, GetDefault&& getDefault, AddBorder&& addBorder) {
  const auto isSet = [](const NbVec2i32& value) { return value[0] != 0 && value[1] != 0; };
  if (!isSet(triple.size) || !isSet(triple.min) || !isSet(triple.max)) {
    SizeTriple standard;
    getDefault(standard.size, standard.min, standard.max);
    for (NbVec2i32* value : {&standard.size, &standard.min, &standard.max}) addBorder(*value);
    const auto fill = [](NbVec2i32& value, const NbVec2i32& from) {
      for (int axis = 0; axis < 2; ++axis) {
        if (value[axis] == 0) value[axis] = from[axis];
      }
    };
    fill(triple.min, standard.min);
    fill(triple.max, standard.max);
    fill(triple.size, standard.size);
  }
  for (int axis = 0; axis < 2; ++axis)
    triple.size[axis] = clampMaxWins(triple.size[axis], triple.min[axis], triple.max[axis]);
}

} // namespace panelix
