#include "arbora/base/NbViewVolume.h"

#include "arbora/base/NbBox3f.h"

#include <algorithm>
#include <cfloat>
#include <cmath>

namespace {

// The smallest share by which two limits must stand apart, and by which the near plane stands off the eye.
constexpr float kApart = 1e-5F;

// Moves the upper limit so that the two differ.
void setApart(float low, float& high) {
  const float least = std::max(std::fabs(low), FLT_MIN / kApart) * kApart;
  if (!(std::fabs(high - low) >= least)) {
    high = low + least;
  }
}

float clampedToFloat(double value) {
  constexpr double kGreatest = FLT_MAX;
  return static_cast<float>(std::clamp(value, -kGreatest, kGreatest));
}

} // namespace

void NbViewVolume::ortho(float left, float right, float bottom, float top, float nearDist, float farDist) {
  *this = NbViewVolume();
  m_left = left;
  m_right = right;
  m_bottom = bottom;
  m_top = top;
  m_near = nearDist;
  m_far = farDist;
  setApart(m_left, m_right);
  setApart(m_bottom, m_top);
  setApart(m_near, m_far);
}

void NbViewVolume::perspective(float fovy, float aspect, float nearDist, float farDist) {
  constexpr float kLeastAngle = 1e-4F;
  constexpr float kGreatestAngle = 3.1414F;
  const float angle = fovy > kLeastAngle ? std::min(fovy, kGreatestAngle) : kLeastAngle;
  const float distance = std::max(nearDist, std::max(std::fabs(farDist), FLT_MIN / kApart) * kApart);
  const float top = distance * std::tan(angle / 2);
  const float right = aspect > 0 ? top * aspect : top;
  frustum(-right, right, -top, top, distance, farDist);
}

void NbViewVolume::frustum(float left, float right, float bottom, float top, float nearDist, float farDist) {
  const float nearest = std::max(nearDist, std::max(std::fabs(farDist), FLT_MIN / kApart) * kApart);
  ortho(left, right, bottom, top, nearest, std::max(nearest, farDist));
  m_type = PERSPECTIVE;
}

void NbViewVolume::rotateCamera(const NbRotation& rotation) {
  m_rightward = rotation.multVec(m_rightward);
  m_up = rotation.multVec(m_up);
  m_back = rotation.multVec(m_back);
}

void NbViewVolume::translateCamera(const NbVec3f& translation) { m_eye += translation; }

NbVec3f NbViewVolume::toEye(const NbVec3f& world) const {
  const NbVec3f v = world - m_eye;
  return NbVec3f(v.dot(m_rightward), v.dot(m_up), v.dot(m_back));
}

NbVec3f NbViewVolume::toWorld(const NbVec3f& eye) const {
  return m_eye + m_rightward * eye[0] + m_up * eye[1] + m_back * eye[2];
}

void NbViewVolume::getMatrices(NbMatrix& affine, NbMatrix& projection) const {
  affine.makeIdentity();
  for (int i = 0; i < 3; ++i) {
    affine[i][0] = m_rightward[i];
    affine[i][1] = m_up[i];
    affine[i][2] = m_back[i];
  }
  affine[3][0] = -m_eye.dot(m_rightward);
  affine[3][1] = -m_eye.dot(m_up);
  affine[3][2] = -m_eye.dot(m_back);

  const float width = getWidth();
  const float height = getHeight();
  const float depth = getDepth();
  if (m_type == ORTHOGRAPHIC) {
    projection = NbMatrix(2 / width, 0, 0, 0,  //
                          0, 2 / height, 0, 0, //
                          0, 0, -2 / depth, 0, //
                          -(m_right + m_left) / width, -(m_top + m_bottom) / height, -(m_far + m_near) / depth, 1);
  } else {
    projection = NbMatrix(2 * m_near / width, 0, 0, 0,                                                            //
                          0, 2 * m_near / height, 0, 0,                                                           //
                          (m_right + m_left) / width, (m_top + m_bottom) / height, -(m_far + m_near) / depth, -1, //
                          0, 0, -2 * m_far * m_near / depth, 0);
  }
}

NbMatrix NbViewVolume::getMatrix() const {
  NbMatrix affine;
  NbMatrix projection;
  getMatrices(affine, projection);
  return affine * projection;
}

void NbViewVolume::projectPointToLine(const NbVec2f& normalized, NbLine& line) const {
  const NbVec3f onNear = getPlanePoint(m_near, normalized);
  line.setPosDir(onNear, m_type == ORTHOGRAPHIC ? -m_back : onNear - m_eye);
}

void NbViewVolume::projectPointToLine(const NbVec2f& normalized, NbVec3f& onNear, NbVec3f& onFar) const {
  onNear = getPlanePoint(m_near, normalized);
  onFar = getPlanePoint(m_far, normalized);
}

void NbViewVolume::projectToScreen(const NbVec3f& world, NbVec3f& normalized) const {
  // The least distance, in shares of the near one, that a point in front of the eye is taken to have.
  constexpr double kLeastShare = 1e-6;
  const NbVec3f eye = toEye(world);
  const double nearDist = m_near;
  const double farDist = m_far;
  double distance = -static_cast<double>(eye[2]);
  double scale = 1;
  double depth = (distance - nearDist) / (farDist - nearDist);
  if (m_type == PERSPECTIVE) {
    distance = std::max(distance, nearDist * kLeastShare);
    scale = nearDist / distance;
    depth = farDist * (distance - nearDist) / (distance * (farDist - nearDist));
  }
  normalized.setValue(clampedToFloat((eye[0] * scale - m_left) / getWidth()),
                      clampedToFloat((eye[1] * scale - m_bottom) / getHeight()), clampedToFloat(depth));
}

NbPlane NbViewVolume::getPlane(float distFromEye) const { return NbPlane(m_back, getSightPoint(distFromEye)); }

NbVec3f NbViewVolume::getSightPoint(float distFromEye) const { return m_eye - m_back * distFromEye; }

NbVec3f NbViewVolume::getPlanePoint(float distFromEye, const NbVec2f& normalized) const {
  const float scale = m_type == PERSPECTIVE ? distFromEye / m_near : 1;
  return toWorld(NbVec3f((m_left + normalized[0] * getWidth()) * scale,
                         (m_bottom + normalized[1] * getHeight()) * scale, -distFromEye));
}

float NbViewVolume::getWorldToScreenScale(const NbVec3f& center, float normalizedRadius) const {
  const float height = std::fabs(getHeight()) * normalizedRadius;
  return m_type == PERSPECTIVE ? height * std::max(-toEye(center)[2], 0.0F) / m_near : height;
}

NbViewVolume NbViewVolume::narrow(float left, float bottom, float right, float top) const {
  NbViewVolume result = *this;
  result.m_left = m_left + left * getWidth();
  result.m_right = m_left + right * getWidth();
  result.m_bottom = m_bottom + bottom * getHeight();
  result.m_top = m_bottom + top * getHeight();
  setApart(result.m_left, result.m_right);
  setApart(result.m_bottom, result.m_top);
  return result;
}

bool NbViewVolume::intersect(const NbVec3f& point) const { return intersect(NbBox3f(point, point)); }

bool NbViewVolume::intersect(const NbBox3f& box) const {
  if (box.isEmpty()) {
    return false;
  }
  const float left = std::min(m_left, m_right);
  const float right = std::max(m_left, m_right);
  const float bottom = std::min(m_bottom, m_top);
  const float top = std::max(m_bottom, m_top);
  // The sides as (a, b, c, d) in eye space: inside is a*x + b*y + c*z >= d.
  const bool isOrtho = m_type == ORTHOGRAPHIC;
  const NbVec4f sides[6] = {
      isOrtho ? NbVec4f(1, 0, 0, left) : NbVec4f(m_near, 0, left, 0),
      isOrtho ? NbVec4f(-1, 0, 0, -right) : NbVec4f(-m_near, 0, -right, 0),
      isOrtho ? NbVec4f(0, 1, 0, bottom) : NbVec4f(0, m_near, bottom, 0),
      isOrtho ? NbVec4f(0, -1, 0, -top) : NbVec4f(0, -m_near, -top, 0),
      NbVec4f(0, 0, -1, std::min(m_near, m_far)),
      NbVec4f(0, 0, 1, -std::max(m_near, m_far)),
  };
  for (const NbVec4f& side : sides) {
    const NbVec3f normal = m_rightward * side[0] + m_up * side[1] + m_back * side[2];
    // The corner of the box that lies furthest inside of this side.
    NbVec3f corner;
    for (int i = 0; i < 3; ++i) {
      corner[i] = normal[i] >= 0 ? box.getMax()[i] : box.getMin()[i];
    }
    if (normal.dot(corner - m_eye) < side[3]) {
      return false;
    }
  }
  return true;
}
