#include "arbora/base/NbViewportRegion.h"

#include <algorithm>
#include <cmath>

namespace {

int scaled(int value, int from, int to) {
  return static_cast<int>(std::lround(static_cast<double>(value) * to / from));
}

} // namespace

NbViewportRegion::NbViewportRegion(int width, int height)
    : m_windowSize(std::max(width, 1), std::max(height, 1)), m_size(m_windowSize) {}

NbViewportRegion::NbViewportRegion(const NbVec2i32& windowSize) : NbViewportRegion(windowSize[0], windowSize[1]) {}

void NbViewportRegion::setWindowSize(int width, int height) {
  const NbVec2i32 before = m_windowSize;
  m_windowSize.setValue(std::max(width, 1), std::max(height, 1));
  for (int i = 0; i < 2; ++i) {
    m_origin[i] = scaled(m_origin[i], before[i], m_windowSize[i]);
    m_size[i] = std::max(scaled(m_size[i], before[i], m_windowSize[i]), 1);
  }
}

void NbViewportRegion::setViewportPixels(int left, int bottom, int width, int height) {
  m_origin.setValue(left, bottom);
  m_size.setValue(std::max(width, 1), std::max(height, 1));
}

float NbViewportRegion::getViewportAspectRatio() const {
  return static_cast<float>(m_size[0]) / static_cast<float>(m_size[1]);
}
