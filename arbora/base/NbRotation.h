#pragma once

#include "arbora/base/NbVec3f.h"
#include "arbora/base/NbVec4f.h"
#include "arbora/base/export.h"

class NbMatrix;

/// A rotation, held as a quaternion (x, y, z, w) of length 1. Angles are in radians and turn right-handed.
class ARBORABASE_API NbRotation {
public:
  /// The identity.
  constexpr NbRotation() = default;
  /// A zero axis gives the identity.
  NbRotation(const NbVec3f& axis, float radians);
  /// The shortest turn that takes one direction to the other.
  NbRotation(const NbVec3f& from, const NbVec3f& to);
  /// The quaternion is scaled to length 1; all 0 gives the identity.
  NbRotation(float x, float y, float z, float w);
  /// The rotation in the upper left 3 by 3 of the matrix, which should be one.
  explicit NbRotation(const NbMatrix& matrix);

  static constexpr NbRotation identity() { return NbRotation(); }

  NbRotation& setValue(const NbVec3f& axis, float radians);
  NbRotation& setValue(const NbVec3f& from, const NbVec3f& to);
  NbRotation& setValue(float x, float y, float z, float w);
  NbRotation& setValue(const NbMatrix& matrix);

  /// An axis of length 1 and an angle from 0 to pi; the identity gives the z axis and 0.
  void getValue(NbVec3f& axis, float& radians) const;
  void getValue(float& x, float& y, float& z, float& w) const { m_q.getValue(x, y, z, w); }
  void getValue(NbMatrix& matrix) const;
  constexpr const float* getValue() const { return m_q.getValue(); }

  void multVec(const NbVec3f& source, NbVec3f& result) const;
  NbVec3f multVec(const NbVec3f& source) const;

  /// First this rotation, then `rotation`: the order of the matrices for row vectors.
  NbRotation& operator*=(const NbRotation& rotation);
  friend NbRotation operator*(NbRotation a, const NbRotation& b) { return a *= b; }

  NbRotation inverse() const;
  NbRotation& invert() { return *this = inverse(); }

  /// By the four values. Opposite quaternions, though the same rotation, are not equal here, but for `equals`.
  friend bool operator==(const NbRotation& a, const NbRotation& b) { return a.m_q == b.m_q; }
  friend bool operator!=(const NbRotation& a, const NbRotation& b) { return !(a == b); }
  bool equals(const NbRotation& rotation, float tolerance) const;

  /// From `from` at 0 to `to` at 1, the shorter way round at constant speed.
  static NbRotation slerp(const NbRotation& from, const NbRotation& to, float t);

private:
  NbVec4f m_q{0, 0, 0, 1};
};
