#pragma once

#include "arbora/base/NbRotation.h"
#include "arbora/base/NbVec3f.h"
#include "arbora/base/NbVec4f.h"
#include "arbora/base/export.h"

class NbLine;

/// A 4 by 4 matrix of floats for row vectors: p' = p * M, with the translation in row 3. In a product the left factor
/// acts first.
class ARBORABASE_API NbMatrix {
public:
  /// The identity.
  constexpr NbMatrix() = default;
  /// Row by row.
  NbMatrix(float a00, float a01, float a02, float a03, float a10, float a11, float a12, float a13, float a20, float a21,
           float a22, float a23, float a30, float a31, float a32, float a33);
  explicit NbMatrix(const float (&rows)[4][4]);

  static constexpr NbMatrix identity() { return NbMatrix(); }

  constexpr float* operator[](int row) { return m_rows[row]; }
  constexpr const float* operator[](int row) const { return m_rows[row]; }
  /// The 16 values row by row.
  constexpr const float* getValue() const { return m_rows[0]; }

  void makeIdentity() { *this = NbMatrix(); }
  /// Become the matrix of one operation.
  void setTranslate(const NbVec3f& translation);
  void setScale(float factor);
  void setScale(const NbVec3f& factors);
  void setRotate(const NbRotation& rotation);

  /// Scale along the axes that `scaleOrientation` turns to, then rotate, both about `center`, then translate.
  void setTransform(const NbVec3f& translation, const NbRotation& rotation, const NbVec3f& scale);
  void setTransform(const NbVec3f& translation, const NbRotation& rotation, const NbVec3f& scale,
                    const NbRotation& scaleOrientation);
  void setTransform(const NbVec3f& translation, const NbRotation& rotation, const NbVec3f& scale,
                    const NbRotation& scaleOrientation, const NbVec3f& center);
  /// Takes an affine matrix apart, so that `setTransform` gives it again. A mirroring matrix has a scale of three
  /// negative factors. A singular matrix gives scales of 0 and a rotation that fits what is left of the axes; a matrix
  /// with a value that is not finite gives the identity's parts.
  void getTransform(NbVec3f& translation, NbRotation& rotation, NbVec3f& scale, NbRotation& scaleOrientation) const;
  void getTransform(NbVec3f& translation, NbRotation& rotation, NbVec3f& scale, NbRotation& scaleOrientation,
                    const NbVec3f& center) const;

  /// this = this * m: `m` acts behind this.
  NbMatrix& multRight(const NbMatrix& m);
  /// this = m * this: `m` acts before this.
  NbMatrix& multLeft(const NbMatrix& m);
  NbMatrix& operator*=(const NbMatrix& m) { return multRight(m); }
  friend ARBORABASE_API NbMatrix operator*(const NbMatrix& a, const NbMatrix& b);

  /// The inverse; of a singular matrix the identity. `invert` tells the two apart.
  NbMatrix inverse() const;
  /// False, and `result` as before, if the matrix is singular.
  bool invert(NbMatrix& result) const;
  /// The determinant of the upper left 3 by 3.
  float det3() const;
  float det4() const;
  NbMatrix transpose() const;
  /// True if the last column is (0, 0, 0, 1).
  bool isAffine() const;
  bool isIdentity() const;

  /// Points. `result` may be `source`. With a projective matrix the result is divided by w; where w is 0, it isn't.
  void multVecMatrix(const NbVec3f& source, NbVec3f& result) const;
  void multVecMatrix(const NbVec4f& source, NbVec4f& result) const;
  /// Directions: without the translation. Not scaled to length 1.
  void multDirMatrix(const NbVec3f& source, NbVec3f& result) const;
  void multLineMatrix(const NbLine& source, NbLine& result) const;

  friend ARBORABASE_API bool operator==(const NbMatrix& a, const NbMatrix& b);
  friend bool operator!=(const NbMatrix& a, const NbMatrix& b) { return !(a == b); }
  /// True if no value differs by more than `tolerance`.
  bool equals(const NbMatrix& m, float tolerance) const;

private:
  /// Whether the upper left 3 by 3 only stretches, and mirrors nothing.
  bool isStretched() const;

  float m_rows[4][4] = {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};
};
