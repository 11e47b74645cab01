#pragma once

#include "arbora/base/NbVec2f.h"
#include "arbora/base/NbVec2i32.h"
#include "arbora/base/export.h"

/// A window's size and the rectangle of it that is drawn into, in pixels from the lower left corner.
class ARBORABASE_API NbViewportRegion {
public:
  /// A window of 100 by 100, drawn in whole.
  NbViewportRegion() = default;
  NbViewportRegion(int width, int height);
  explicit NbViewportRegion(const NbVec2i32& windowSize);

  /// The viewport keeps its share of the window. Sizes below 1 become 1.
  void setWindowSize(int width, int height);
  void setWindowSize(const NbVec2i32& size) { setWindowSize(size[0], size[1]); }
  const NbVec2i32& getWindowSize() const { return m_windowSize; }

  void setViewportPixels(int left, int bottom, int width, int height);
  void setViewportPixels(const NbVec2i32& origin, const NbVec2i32& size) {
    setViewportPixels(origin[0], origin[1], size[0], size[1]);
  }
  const NbVec2i32& getViewportOriginPixels() const { return m_origin; }
  const NbVec2i32& getViewportSizePixels() const { return m_size; }
  /// Width by height.
  float getViewportAspectRatio() const;

  friend bool operator==(const NbViewportRegion& a, const NbViewportRegion& b) {
    return a.m_windowSize == b.m_windowSize && a.m_origin == b.m_origin && a.m_size == b.m_size;
  }
  friend bool operator!=(const NbViewportRegion& a, const NbViewportRegion& b) { return !(a == b); }

private:
  NbVec2i32 m_windowSize{100, 100};
  NbVec2i32 m_origin{0, 0};
  NbVec2i32 m_size{100, 100};
};
