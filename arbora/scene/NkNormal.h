#pragma once

#include "arbora/scene/NkSubNode.h"

/// The normals for the polygons behind it.
class ARBORA_API NkNormal : public NkNode {
  NK_NODE_HEADER(NkNormal);

public:
  NkMFVec3f vector; // Empty.

  NkNormal();
  void doAction(NkAction* action) override;

protected:
  ~NkNormal() override;
};
