#pragma once

#include "arbora/scene/NkLight.h"

/// Light that comes from far away, everywhere from the same side.
class ARBORA_API NkDirectionalLight : public NkLight {
  NK_NODE_HEADER(NkDirectionalLight);

public:
  NkSFVec3f direction; // (0, 0, -1): the way the light travels.

  NkDirectionalLight();

protected:
  ~NkDirectionalLight() override;
  NbVec3f getLocalDirection() const override;
};
