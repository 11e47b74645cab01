#pragma once

#include "arbora/scene/NkSubNode.h"

/// The points for the polygons behind it.
class ARBORA_API NkCoordinate3 : public NkNode {
  NK_NODE_HEADER(NkCoordinate3);

public:
  NkMFVec3f point; // (0, 0, 0).

  NkCoordinate3();
  void doAction(NkAction* action) override;

protected:
  ~NkCoordinate3() override;
};
