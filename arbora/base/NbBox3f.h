#pragma once

#include "arbora/base/NbVec3f.h"
#include "arbora/base/export.h"

#include <cfloat>

class NbMatrix;

/// An axis-aligned box. It keeps its six values exactly as given, also where a maximum is below its minimum; such a box
/// is empty.
class ARBORABASE_API NbBox3f {
public:
  /// The empty box.
  constexpr NbBox3f() = default;
  constexpr NbBox3f(float xmin, float ymin, float zmin, float xmax, float ymax, float zmax)
      : m_min(xmin, ymin, zmin), m_max(xmax, ymax, zmax) {}
  constexpr NbBox3f(const NbVec3f& min, const NbVec3f& max) : m_min(min), m_max(max) {}

  constexpr const NbVec3f& getMin() const { return m_min; }
  constexpr const NbVec3f& getMax() const { return m_max; }
  constexpr void getBounds(NbVec3f& min, NbVec3f& max) const {
    min = m_min;
    max = m_max;
  }
  constexpr void setBounds(const NbVec3f& min, const NbVec3f& max) {
    m_min = min;
    m_max = max;
  }
  constexpr void setBounds(float xmin, float ymin, float zmin, float xmax, float ymax, float zmax) {
    *this = NbBox3f(xmin, ymin, zmin, xmax, ymax, zmax);
  }

  constexpr bool isEmpty() const { return m_max[0] < m_min[0] || m_max[1] < m_min[1] || m_max[2] < m_min[2]; }
  constexpr void makeEmpty() { *this = NbBox3f(); }
  /// True if all three sizes are above 0.
  constexpr bool hasVolume() const { return m_max[0] > m_min[0] && m_max[1] > m_min[1] && m_max[2] > m_min[2]; }

  /// The sizes, all 0 for an empty box.
  void getSize(float& x, float& y, float& z) const;
  NbVec3f getSize() const;
  /// The middle; the origin for an empty box.
  NbVec3f getCenter() const;

  void extendBy(const NbVec3f& point);
  /// An empty box adds nothing.
  void extendBy(const NbBox3f& box);
  /// True if they have a point in common, be it on the surface.
  bool intersect(const NbVec3f& point) const;
  bool intersect(const NbBox3f& box) const;
  /// Becomes the smallest box around the transformed corners. An empty box stays as it is.
  void transform(const NbMatrix& matrix);

  friend constexpr bool operator==(const NbBox3f& a, const NbBox3f& b) {
    return a.m_min == b.m_min && a.m_max == b.m_max;
  }
  friend constexpr bool operator!=(const NbBox3f& a, const NbBox3f& b) { return !(a == b); }

private:
  NbVec3f m_min{FLT_MAX, FLT_MAX, FLT_MAX};
  NbVec3f m_max{-FLT_MAX, -FLT_MAX, -FLT_MAX};
};
