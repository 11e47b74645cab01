#pragma once

#include "arbora/scene/NkTransformation.h"

/// Transforms what stands behind it by a matrix. Its last column is taken to be (0, 0, 0, 1): perspective belongs to
/// cameras.
class ARBORA_API NkMatrixTransform : public NkTransformation {
  NK_NODE_HEADER(NkMatrixTransform);

public:
  NkSFMatrix matrix; // The identity.

  NkMatrixTransform();
  NbMatrix getTransformMatrix() const override;

protected:
  ~NkMatrixTransform() override;
};
