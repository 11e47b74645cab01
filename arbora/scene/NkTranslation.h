#pragma once

#include "arbora/scene/NkTransformation.h"

/// Moves what stands behind it.
class ARBORA_API NkTranslation : public NkTransformation {
  NK_NODE_HEADER(NkTranslation);

public:
  NkSFVec3f translation; // (0, 0, 0).

  NkTranslation();
  NbMatrix getTransformMatrix() const override;
  void doAction(NkAction* action) override;

protected:
  ~NkTranslation() override;
};
