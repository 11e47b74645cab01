#pragma once

#include <cmath>

namespace arbora {

/// Scales a vector to length 1. One that has this length but for the rounding of its components stays as it is, so that
/// what is made of the parts of another object, as when it comes from a file, equals that object. A zero vector stays.
template <int N, class Vec>
void makeUnit(Vec& vector) {
  constexpr double kRounding = 1.5e-7; // Of the squared length, above what four rounded components can make of 1.
  double sqrLength = 0;
  for (int i = 0; i < N; ++i) {
    sqrLength += static_cast<double>(vector[i]) * static_cast<double>(vector[i]);
  }
  if (!(std::fabs(sqrLength - 1) <= kRounding)) {
    vector.normalize();
  }
}

} // namespace arbora
