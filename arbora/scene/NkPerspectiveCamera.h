#pragma once

#include "arbora/scene/NkCamera.h"

/// Camera to which far things look small.
class ARBORA_API NkPerspectiveCamera : public NkCamera {
  NK_NODE_HEADER(NkPerspectiveCamera);

public:
  /// Of the view from its lower to its upper edge, in radians; pi / 4.
  NkSFFloat heightAngle;

  NkPerspectiveCamera();

protected:
  ~NkPerspectiveCamera() override;
  float frameSphere(float radius) override;
  NbViewVolume getUnplacedViewVolume(float aspect, float scale) const override;
};
