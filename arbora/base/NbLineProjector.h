#pragma once

#include "arbora/base/NbProjector.h"

/// Projects onto a line: the result is the line's point closest to the line of sight. A line of sight parallel to it
/// counts as a miss, with the point beside the ray's own position as the result.
class ARBORABASE_API NbLineProjector : public NbProjector {
public:
  /// Onto the x axis.
  NbLineProjector() = default;

  void setLine(const NbLine& line) { m_line = line; }
  const NbLine& getLine() const { return m_line; }

  using NbProjector::intersect;
  using NbProjector::project;

  /// The way from the projection of the first screen position to that of the second.
  NbVec3f getVector(const NbVec2f& from, const NbVec2f& to) const;

  bool project(const NbVec2f& normalized, NbVec3f& result) const override;
  bool intersect(const NbLine& rayInWorld, NbVec3f& result) const override;
  NbLineProjector* copy() const override;

private:
  NbLine m_line;

  bool closestPoint(const NbLine& workingLine, NbVec3f& result) const;
};
