#pragma once

#include "arbora/base/NbColor.h"

namespace arbora {

/// Held within 0 and 1; what isn't a number counts as 0.
inline float usableShare(float value) { return value > 0 ? (value < 1 ? value : 1.0F) : 0.0F; }
inline NbColor usableColor(const NbColor& color) {
  return NbColor(usableShare(color[0]), usableShare(color[1]), usableShare(color[2]));
}

} // namespace arbora
