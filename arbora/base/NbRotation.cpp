#include "arbora/base/NbRotation.h"

#include "arbora/base/NbMatrix.h"
#include "arbora/base/UnitLength.h"

#include <algorithm>
#include <cmath>

NbRotation::NbRotation(const NbVec3f& axis, float radians) { setValue(axis, radians); }

NbRotation::NbRotation(const NbVec3f& from, const NbVec3f& to) { setValue(from, to); }

NbRotation::NbRotation(float x, float y, float z, float w) { setValue(x, y, z, w); }

NbRotation::NbRotation(const NbMatrix& matrix) { setValue(matrix); }

NbRotation& NbRotation::setValue(const NbVec3f& axis, float radians) {
  NbVec3f unit = axis;
  if (unit.normalize() == 0) {
    return *this = NbRotation();
  }
  unit *= std::sin(radians / 2);
  return setValue(unit[0], unit[1], unit[2], std::cos(radians / 2));
}

NbRotation& NbRotation::setValue(const NbVec3f& from, const NbVec3f& to) {
  NbVec3f a = from;
  NbVec3f b = to;
  if (a.normalize() == 0 || b.normalize() == 0) {
    return *this = NbRotation();
  }
  // The quaternion of the double angle, plus the identity, has the direction of the half angle.
  const float cosine = a.dot(b);
  constexpr float kOpposite = -1 + 1e-6F;
  if (cosine < kOpposite) {
    // Half a turn about any axis across.
    const NbVec3f other = std::fabs(a[0]) < 0.6F ? NbVec3f(1, 0, 0) : NbVec3f(0, 1, 0);
    const NbVec3f axis = a.cross(other);
    return setValue(axis[0], axis[1], axis[2], 0);
  }
  const NbVec3f axis = a.cross(b);
  return setValue(axis[0], axis[1], axis[2], 1 + cosine);
}

NbRotation& NbRotation::setValue(float x, float y, float z, float w) {
  m_q.setValue(x, y, z, w);
  arbora::makeUnit<4>(m_q);
  if (!(m_q.sqrLength() > 0)) {
    m_q.setValue(0, 0, 0, 1);
  }
  return *this;
}

NbRotation& NbRotation::setValue(const NbMatrix& m) {
  // The greatest of the four values is found from the diagonal, the others by dividing through it.
  const float trace = m[0][0] + m[1][1] + m[2][2];
  if (trace > 0) {
    return setValue(m[1][2] - m[2][1], m[2][0] - m[0][2], m[0][1] - m[1][0], 1 + trace);
  }
  int i = 0;
  if (m[1][1] > m[0][0]) {
    i = 1;
  }
  if (m[2][2] > m[i][i]) {
    i = 2;
  }
  const int j = (i + 1) % 3;
  const int k = (i + 2) % 3;
  float q[3];
  q[i] = 1 + m[i][i] - m[j][j] - m[k][k];
  q[j] = m[i][j] + m[j][i];
  q[k] = m[i][k] + m[k][i];
  return setValue(q[0], q[1], q[2], m[j][k] - m[k][j]);
}

void NbRotation::getValue(NbVec3f& axis, float& radians) const {
  axis.setValue(m_q.getValue());
  if (m_q[3] < 0) {
    axis.negate();
  }
  const float sine = axis.normalize();
  if (sine == 0) {
    axis.setValue(0, 0, 1);
  }
  radians = 2 * std::atan2(sine, std::fabs(m_q[3]));
}

void NbRotation::getValue(NbMatrix& matrix) const { matrix.setRotate(*this); }

void NbRotation::multVec(const NbVec3f& source, NbVec3f& result) const { result = multVec(source); }

NbVec3f NbRotation::multVec(const NbVec3f& source) const {
  const NbVec3f axis(m_q.getValue());
  const NbVec3f turned = axis.cross(source) * 2.0F;
  return source + turned * m_q[3] + axis.cross(turned);
}

NbRotation& NbRotation::operator*=(const NbRotation& rotation) {
  const NbVec4f& a = rotation.m_q;
  const NbVec4f& b = m_q;
  return setValue(
      a[3] * b[0] + a[0] * b[3] + a[1] * b[2] - a[2] * b[1], a[3] * b[1] - a[0] * b[2] + a[1] * b[3] + a[2] * b[0],
      a[3] * b[2] + a[0] * b[1] - a[1] * b[0] + a[2] * b[3], a[3] * b[3] - a[0] * b[0] - a[1] * b[1] - a[2] * b[2]);
}

NbRotation NbRotation::inverse() const {
  NbRotation result;
  result.m_q.setValue(-m_q[0], -m_q[1], -m_q[2], m_q[3]);
  return result;
}

bool NbRotation::equals(const NbRotation& rotation, float tolerance) const {
  return m_q.equals(rotation.m_q, tolerance) || m_q.equals(-rotation.m_q, tolerance);
}

NbRotation NbRotation::slerp(const NbRotation& from, const NbRotation& to, float t) {
  float cosine = from.m_q.dot(to.m_q);
  const float sign = cosine < 0 ? -1.0F : 1.0F;
  cosine = std::min(cosine * sign, 1.0F);
  float fromShare = 1 - t;
  float toShare = t;
  // Near each other the sines vanish, and the straight way is the round one.
  constexpr float kClose = 0.9995F;
  if (cosine < kClose) {
    const float angle = std::acos(cosine);
    fromShare = std::sin(fromShare * angle) / std::sin(angle);
    toShare = std::sin(toShare * angle) / std::sin(angle);
  }
  const NbVec4f q = from.m_q * fromShare + to.m_q * (toShare * sign);
  return NbRotation(q[0], q[1], q[2], q[3]);
}
