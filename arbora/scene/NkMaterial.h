#pragma once

#include "arbora/scene/NkSubNode.h"

/// The surface of the shapes behind it. Of several values the first counts; an empty list leaves what was set before.
/// All values are held within 0 and 1.
class ARBORA_API NkMaterial : public NkNode {
  NK_NODE_HEADER(NkMaterial);

public:
  NkMFColor ambientColor;  // (0.2, 0.2, 0.2).
  NkMFColor diffuseColor;  // (0.8, 0.8, 0.8).
  NkMFColor specularColor; // (0, 0, 0).
  NkMFColor emissiveColor; // (0, 0, 0).
  NkMFFloat shininess;     // 0.2; 0 is dull.
  NkMFFloat transparency;  // 0; 1 is invisible.

  NkMaterial();
  void doAction(NkAction* action) override;

protected:
  ~NkMaterial() override;
};
