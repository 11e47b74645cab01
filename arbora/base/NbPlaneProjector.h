#pragma once

#include "arbora/base/NbPlane.h"
#include "arbora/base/NbProjector.h"

/// Projects onto a plane: the result is where the line of sight meets it. A line of sight parallel to it counts as a
/// miss, with the foot of the ray's own position as the result.
class ARBORABASE_API NbPlaneProjector : public NbProjector {
public:
  /// Onto the plane z = 0.
  NbPlaneProjector() = default;

  void setPlane(const NbPlane& plane) { m_plane = plane; }
  const NbPlane& getPlane() const { return m_plane; }

  using NbProjector::intersect;
  using NbProjector::project;

  /// The way from the projection of the first screen position to that of the second.
  NbVec3f getVector(const NbVec2f& from, const NbVec2f& to) const;

  bool project(const NbVec2f& normalized, NbVec3f& result) const override;
  bool intersect(const NbLine& rayInWorld, NbVec3f& result) const override;
  NbPlaneProjector* copy() const override;

private:
  NbPlane m_plane;

  bool meetingPoint(const NbLine& workingLine, NbVec3f& result) const;
};
