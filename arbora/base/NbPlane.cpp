#include "arbora/base/NbPlane.h"

#include "arbora/base/NbLine.h"
#include "arbora/base/NbMatrix.h"
#include "arbora/base/UnitLength.h"

#include <cmath>

NbPlane::NbPlane(const NbVec3f& normal, float distance) : m_normal(normal), m_distance(distance) {
  arbora::makeUnit<3>(m_normal);
}

NbPlane::NbPlane(const NbVec3f& normal, const NbVec3f& point) : m_normal(normal) {
  arbora::makeUnit<3>(m_normal);
  m_distance = m_normal.dot(point);
}

NbPlane::NbPlane(const NbVec3f& p0, const NbVec3f& p1, const NbVec3f& p2) : NbPlane((p1 - p0).cross(p2 - p0), p0) {}

bool NbPlane::intersect(const NbLine& line, NbVec3f& point) const {
  // Below this sine of their angle, line and plane are parallel but for rounding.
  constexpr float kParallel = 1e-6F;
  const float sine = m_normal.dot(line.getDirection());
  if (!(std::fabs(sine) > kParallel)) {
    return false;
  }
  point = line.getPosition() - line.getDirection() * (getDistance(line.getPosition()) / sine);
  return true;
}

float NbPlane::getDistance(const NbVec3f& point) const { return m_normal.dot(point) - m_distance; }

NbVec3f NbPlane::getClosestPoint(const NbVec3f& point) const { return point - m_normal * getDistance(point); }

void NbPlane::transform(const NbMatrix& matrix) {
  NbMatrix inverse;
  if (!matrix.invert(inverse)) {
    return;
  }
  // A point of the new plane lies on the old one when taken back: the coefficients go through the inverse as a column.
  const NbVec4f plane(m_normal[0], m_normal[1], m_normal[2], -m_distance);
  NbVec4f moved;
  for (int i = 0; i < 4; ++i) {
    moved[i] = NbVec4f(inverse[i]).dot(plane);
  }
  NbVec3f normal(moved.getValue());
  const float scale = normal.normalize();
  if (scale > 0) {
    m_normal = normal;
    m_distance = -moved[3] / scale;
  }
}
