#pragma once

#include "arbora/scene/NkSubNode.h"

/// How the shapes behind it are picked.
class ARBORA_API NkPickStyle : public NkNode {
  NK_NODE_HEADER(NkPickStyle);

public:
  enum Style { SHAPE = 0, BOUNDING_BOX = 1, UNPICKABLE = 2 };

  NkSFEnum style; // SHAPE.

  NkPickStyle();
  void doAction(NkAction* action) override;

protected:
  ~NkPickStyle() override;
};
