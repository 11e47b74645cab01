#pragma once

#include "arbora/base/NbLine.h"
#include "arbora/base/NbMatrix.h"
#include "arbora/base/NbPlane.h"
#include "arbora/base/NbRotation.h"
#include "arbora/base/NbVec2f.h"
#include "arbora/base/NbVec3f.h"
#include "arbora/base/export.h"

class NbBox3f;

/// What a camera sees: a box or a cut pyramid in world space. Normalized screen positions run from (0, 0) at the lower
/// left to (1, 1) at the upper right.
class ARBORABASE_API NbViewVolume {
public:
  enum ProjectionType { ORTHOGRAPHIC = 0, PERSPECTIVE = 1 };

  /// Orthographic, from -1 to 1 in x and y, near 1, far 10.
  NbViewVolume() = default;

  /// Seen from the origin along -z, up is +y. All angles in radians, distances in world units from the eye. Values that
  /// span no volume (equal limits, an angle outside 0..pi, a perspective near of 0 or less) are moved to the nearest
  /// that do.
  void ortho(float left, float right, float bottom, float top, float nearDist, float farDist);
  void perspective(float fovy, float aspect, float nearDist, float farDist);
  void frustum(float left, float right, float bottom, float top, float nearDist, float farDist);

  /// Turns the view about its projection point.
  void rotateCamera(const NbRotation& rotation);
  void translateCamera(const NbVec3f& translation);

  /// World to eye space, and eye space to clip space (-1 to 1 on each axis).
  void getMatrices(NbMatrix& affine, NbMatrix& projection) const;
  /// World to clip space.
  NbMatrix getMatrix() const;

  /// The line of sight through a normalized screen position; its points on the near and the far plane.
  void projectPointToLine(const NbVec2f& normalized, NbLine& line) const;
  void projectPointToLine(const NbVec2f& normalized, NbVec3f& onNear, NbVec3f& onFar) const;
  /// x and y normalized, z from 0 at the near plane to 1 at the far plane, inside the volume. A point at or behind the
  /// eye of a perspective lands far outside, never on a value that is not finite.
  void projectToScreen(const NbVec3f& world, NbVec3f& normalized) const;

  /// The plane across the direction of view at a distance from the eye; its normal looks at the eye.
  NbPlane getPlane(float distFromEye) const;
  /// The point straight ahead.
  NbVec3f getSightPoint(float distFromEye) const;
  /// The point seen at a normalized screen position, on the plane at a distance from the eye.
  NbVec3f getPlanePoint(float distFromEye, const NbVec2f& normalized) const;

  ProjectionType getProjectionType() const { return m_type; }
  const NbVec3f& getProjectionPoint() const { return m_eye; }
  NbVec3f getProjectionDirection() const { return -m_back; }
  const NbVec3f& getViewUp() const { return m_up; }
  float getNearDist() const { return m_near; }
  /// From the near to the far plane.
  float getDepth() const { return m_far - m_near; }
  /// At the near plane.
  float getWidth() const { return m_right - m_left; }
  float getHeight() const { return m_top - m_bottom; }

  /// The radius, in world units, of a sphere about `center` that takes `normalizedRadius` of the screen's height.
  float getWorldToScreenScale(const NbVec3f& center, float normalizedRadius) const;

  /// The part of this volume within a normalized screen rectangle.
  NbViewVolume narrow(float left, float bottom, float right, float top) const;

  /// True if the point is inside.
  bool intersect(const NbVec3f& point) const;
  /// False only if the box is surely outside; an empty box is.
  bool intersect(const NbBox3f& box) const;

private:
  ProjectionType m_type = ORTHOGRAPHIC;
  NbVec3f m_eye;
  // The axes of eye space, in world space.
  NbVec3f m_rightward{1, 0, 0};
  NbVec3f m_up{0, 1, 0};
  NbVec3f m_back{0, 0, 1};
  // The window in the near plane and the two distances, in eye space.
  float m_left = -1;
  float m_right = 1;
  float m_bottom = -1;
  float m_top = 1;
  float m_near = 1;
  float m_far = 10;

  NbVec3f toEye(const NbVec3f& world) const;
  NbVec3f toWorld(const NbVec3f& eye) const;
};
