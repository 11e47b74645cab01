#pragma once

#include "arbora/base/NbVec3f.h"
#include "arbora/base/export.h"

class NbLine;
class NbMatrix;

/// A plane: the points p with normal·p = distance. The half space in front of it has normal·p >= distance.
class ARBORABASE_API NbPlane {
public:
  /// The plane z = 0, looking along +z.
  NbPlane() = default;
  /// The normal is scaled to length 1; the distance from the origin is in units of space.
  NbPlane(const NbVec3f& normal, float distance);
  NbPlane(const NbVec3f& normal, const NbVec3f& point);
  /// Through three points; they turn counterclockwise seen from the side of the normal. On one line, the normal is 0.
  NbPlane(const NbVec3f& p0, const NbVec3f& p1, const NbVec3f& p2);

  const NbVec3f& getNormal() const { return m_normal; }
  float getDistanceFromOrigin() const { return m_distance; }

  /// Where the line meets the plane. False, and `point` as before, if it's parallel.
  bool intersect(const NbLine& line, NbVec3f& point) const;
  bool isInHalfSpace(const NbVec3f& point) const { return getDistance(point) >= 0; }
  /// Signed: positive on the side of the normal.
  float getDistance(const NbVec3f& point) const;
  NbVec3f getClosestPoint(const NbVec3f& point) const;

  /// The plane of the transformed points. Under a matrix that can't be inverted it stays as it is.
  void transform(const NbMatrix& matrix);

  friend bool operator==(const NbPlane& a, const NbPlane& b) {
    return a.m_normal == b.m_normal && a.m_distance == b.m_distance;
  }
  friend bool operator!=(const NbPlane& a, const NbPlane& b) { return !(a == b); }

private:
  NbVec3f m_normal{0, 0, 1};
  float m_distance = 0;
};
