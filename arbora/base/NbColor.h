#pragma once

#include "arbora/base/NbVec3f.h"
#include "arbora/base/export.h"

#include <cstdint>

/// A colour: red, green and blue from 0 to 1.
class ARBORABASE_API NbColor : public NbVec3f {
public:
  constexpr NbColor() = default;
  constexpr NbColor(float red, float green, float blue) : NbVec3f(red, green, blue) {}
  constexpr NbColor(const NbVec3f& rgb) : NbVec3f(rgb) {}
  constexpr explicit NbColor(const float* rgb) : NbVec3f(rgb) {}

  /// Hue, saturation and value, each from 0 to 1; the hue wraps around.
  NbColor& setHSVValue(float hue, float saturation, float value);
  void getHSVValue(float& hue, float& saturation, float& value) const;

  /// 0xrrggbbaa, each part clamped to 0..255; `transparency` 0 is opaque.
  std::uint32_t getPackedValue(float transparency = 0.0F) const;
  NbColor& setPackedValue(std::uint32_t packed, float& transparency);
};
