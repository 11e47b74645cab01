#include "arbora/base/NbLine.h"

NbLine::NbLine(const NbVec3f& p0, const NbVec3f& p1) { setValue(p0, p1); }

void NbLine::setValue(const NbVec3f& p0, const NbVec3f& p1) { setPosDir(p0, p1 - p0); }

void NbLine::setPosDir(const NbVec3f& position, const NbVec3f& direction) {
  m_position = position;
  m_direction = direction;
  m_direction.normalize();
}

NbVec3f NbLine::getClosestPoint(const NbVec3f& point) const {
  return m_position + m_direction * (point - m_position).dot(m_direction);
}

bool NbLine::getClosestPoints(const NbLine& line, NbVec3f& onThis, NbVec3f& onOther) const {
  // Below this square of the sine of their angle, about a second of arc, the directions differ by rounding only.
  constexpr float kParallel = 1e-11F;
  const NbVec3f across = m_direction.cross(line.m_direction);
  const float sqrSine = across.sqrLength();
  if (!(sqrSine > kParallel)) {
    onThis = m_position;
    onOther = line.getClosestPoint(m_position);
    return false;
  }
  const NbVec3f between = line.m_position - m_position;
  onThis = m_position + m_direction * (between.cross(line.m_direction).dot(across) / sqrSine);
  onOther = line.m_position + line.m_direction * (between.cross(m_direction).dot(across) / sqrSine);
  return true;
}
