#include "arbora/base/NbColor.h"

#include <algorithm>
#include <cmath>

namespace {

std::uint32_t byteOf(float part) {
  // Written so that NaN gives 0.
  const float clamped = part > 0 ? std::min(part, 1.0F) : 0.0F;
  return static_cast<std::uint32_t>(std::lround(clamped * 255.0F));
}

float partOf(std::uint32_t packed, unsigned shift) { return static_cast<float>((packed >> shift) & 0xFFU) / 255.0F; }

} // namespace

NbColor& NbColor::setHSVValue(float hue, float saturation, float value) {
  const float sector = (hue - std::floor(hue)) * 6.0F;
  const auto channel = [&](float offset) {
    const float k = std::fmod(offset + sector, 6.0F);
    return value - value * saturation * std::clamp(std::min(k, 4.0F - k), 0.0F, 1.0F);
  };
  setValue(channel(5), channel(3), channel(1));
  return *this;
}

void NbColor::getHSVValue(float& hue, float& saturation, float& value) const {
  const NbColor& rgb = *this;
  value = std::max({rgb[0], rgb[1], rgb[2]});
  const float range = value - std::min({rgb[0], rgb[1], rgb[2]});
  saturation = value > 0 ? range / value : 0;
  hue = 0;
  if (range > 0) {
    if (value == rgb[0]) {
      hue = (rgb[1] - rgb[2]) / range;
    } else if (value == rgb[1]) {
      hue = 2 + (rgb[2] - rgb[0]) / range;
    } else {
      hue = 4 + (rgb[0] - rgb[1]) / range;
    }
    hue /= 6;
    hue -= std::floor(hue);
  }
}

std::uint32_t NbColor::getPackedValue(float transparency) const {
  const NbColor& rgb = *this;
  return byteOf(rgb[0]) << 24U | byteOf(rgb[1]) << 16U | byteOf(rgb[2]) << 8U | byteOf(1.0F - transparency);
}

NbColor& NbColor::setPackedValue(std::uint32_t packed, float& transparency) {
  setValue(partOf(packed, 24), partOf(packed, 16), partOf(packed, 8));
  transparency = 1.0F - partOf(packed, 0);
  return *this;
}
