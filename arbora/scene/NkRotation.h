#pragma once

#include "arbora/scene/NkTransformation.h"

/// Turns what stands behind it.
class ARBORA_API NkRotation : public NkTransformation {
  NK_NODE_HEADER(NkRotation);

public:
  NkSFRotation rotation; // None.

  NkRotation();
  NbMatrix getTransformMatrix() const override;

protected:
  ~NkRotation() override;
};
