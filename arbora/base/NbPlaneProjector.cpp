#include "arbora/base/NbPlaneProjector.h"

bool NbPlaneProjector::meetingPoint(const NbLine& workingLine, NbVec3f& result) const {
  if (m_plane.intersect(workingLine, result)) {
    return true;
  }
  result = m_plane.getClosestPoint(workingLine.getPosition());
  return false;
}

NbVec3f NbPlaneProjector::getVector(const NbVec2f& from, const NbVec2f& to) const {
  return project(to) - project(from);
}

bool NbPlaneProjector::project(const NbVec2f& normalized, NbVec3f& result) const {
  return meetingPoint(getWorkingLine(normalized), result);
}

bool NbPlaneProjector::intersect(const NbLine& rayInWorld, NbVec3f& result) const {
  return meetingPoint(getWorkingLine(rayInWorld), result);
}

NbPlaneProjector* NbPlaneProjector::copy() const { return new NbPlaneProjector(*this); }
