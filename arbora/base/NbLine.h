#pragma once

#include "arbora/base/NbVec3f.h"
#include "arbora/base/export.h"

/// An infinite line: a point and a direction of length 1. Two equal points give the direction (0, 0, 0): then the line
/// is that one point.
class ARBORABASE_API NbLine {
public:
  /// The x axis.
  NbLine() = default;
  /// The line from `p0` to `p1`.
  NbLine(const NbVec3f& p0, const NbVec3f& p1);

  void setValue(const NbVec3f& p0, const NbVec3f& p1);
  void setPosDir(const NbVec3f& position, const NbVec3f& direction);

  const NbVec3f& getPosition() const { return m_position; }
  const NbVec3f& getDirection() const { return m_direction; }

  NbVec3f getClosestPoint(const NbVec3f& point) const;
  /// The points of this line and of `line` where they come closest. False if they are parallel; the points are then
  /// this line's position and its neighbour on the other.
  bool getClosestPoints(const NbLine& line, NbVec3f& onThis, NbVec3f& onOther) const;

private:
  NbVec3f m_position;
  NbVec3f m_direction{1, 0, 0};
};
