#pragma once

#include "arbora/scene/NkSubNode.h"

/// The texture coordinates for the polygons behind it.
class ARBORA_API NkTextureCoordinate2 : public NkNode {
  NK_NODE_HEADER(NkTextureCoordinate2);

public:
  NkMFVec2f point; // Empty.

  NkTextureCoordinate2();
  void doAction(NkAction* action) override;

protected:
  ~NkTextureCoordinate2() override;
};
