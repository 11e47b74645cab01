#pragma once

#include "arbora/scene/NkCamera.h"

/// Camera to which all things have their own size.
class ARBORA_API NkOrthographicCamera : public NkCamera {
  NK_NODE_HEADER(NkOrthographicCamera);

public:
  /// Of the view from its lower to its upper edge, in scene units; 2.
  NkSFFloat height;

  NkOrthographicCamera();

protected:
  ~NkOrthographicCamera() override;
  float frameSphere(float radius) override;
  NbViewVolume getUnplacedViewVolume(float aspect, float scale) const override;
};
