#pragma once

#include "arbora/scene/NkTransformation.h"

/// Scales along turned axes, then turns, both about a centre, then moves.
class ARBORA_API NkTransform : public NkTransformation {
  NK_NODE_HEADER(NkTransform);

public:
  NkSFVec3f translation;         // (0, 0, 0).
  NkSFRotation rotation;         // None.
  NkSFVec3f scaleFactor;         // (1, 1, 1).
  NkSFRotation scaleOrientation; // None.
  NkSFVec3f center;              // (0, 0, 0).

  NkTransform();

  /// Writes the fields so that together they give this affine matrix. The centre stays where it is.
  void setMatrix(const NbMatrix& matrix);
  NbMatrix getTransformMatrix() const override;

protected:
  ~NkTransform() override;
};
