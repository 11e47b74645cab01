#pragma once

#include "arbora/scene/NkSubNode.h"

/// The diffuse colour of the shapes behind it, and nothing else of their material. The first value counts.
class ARBORA_API NkBaseColor : public NkNode {
  NK_NODE_HEADER(NkBaseColor);

public:
  NkMFColor rgb; // (0.8, 0.8, 0.8).

  NkBaseColor();
  void doAction(NkAction* action) override;

protected:
  ~NkBaseColor() override;
};
