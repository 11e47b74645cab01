#pragma once

#include "arbora/scene/NkTransformation.h"

/// Scales what stands behind it. Factors may be negative, which mirrors, or 0, which flattens: a flat space is drawn
/// and measured, but its shapes can't be picked.
class ARBORA_API NkScale : public NkTransformation {
  NK_NODE_HEADER(NkScale);

public:
  NkSFVec3f scaleFactor; // (1, 1, 1).

  NkScale();
  NbMatrix getTransformMatrix() const override;

protected:
  ~NkScale() override;
};
