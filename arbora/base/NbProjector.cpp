#include "arbora/base/NbProjector.h"

NbProjector::~NbProjector() = default;

void NbProjector::setWorkingSpace(const NbMatrix& workingToWorld) {
  NbMatrix inverse;
  const bool invertible = workingToWorld.invert(inverse);
  m_workingToWorld = invertible ? workingToWorld : NbMatrix();
  m_worldToWorking = inverse;
}

NbVec3f NbProjector::project(const NbVec2f& normalized) const {
  NbVec3f result;
  project(normalized, result);
  return result;
}

NbVec3f NbProjector::intersect(const NbLine& rayInWorld) const {
  NbVec3f result;
  intersect(rayInWorld, result);
  return result;
}

NbLine NbProjector::getWorkingLine(const NbVec2f& normalized) const {
  NbLine line;
  m_viewVolume.projectPointToLine(normalized, line);
  return getWorkingLine(line);
}

NbLine NbProjector::getWorkingLine(const NbLine& lineInWorld) const {
  NbLine line;
  m_worldToWorking.multLineMatrix(lineInWorld, line);
  return line;
}
