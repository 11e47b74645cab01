#include "arbora/base/NbLineProjector.h"

bool NbLineProjector::closestPoint(const NbLine& workingLine, NbVec3f& result) const {
  NbVec3f onSight;
  if (m_line.getClosestPoints(workingLine, result, onSight)) {
    return true;
  }
  result = m_line.getClosestPoint(workingLine.getPosition());
  return false;
}

NbVec3f NbLineProjector::getVector(const NbVec2f& from, const NbVec2f& to) const { return project(to) - project(from); }

bool NbLineProjector::project(const NbVec2f& normalized, NbVec3f& result) const {
  return closestPoint(getWorkingLine(normalized), result);
}

bool NbLineProjector::intersect(const NbLine& rayInWorld, NbVec3f& result) const {
  return closestPoint(getWorkingLine(rayInWorld), result);
}

NbLineProjector* NbLineProjector::copy() const { return new NbLineProjector(*this); }
