#pragma once

#include "arbora/scene/NkSubNode.h"

/// Base of the nodes that light what stands behind them. A ninth light at one place of a scene has no effect and posts
/// a message.
class ARBORA_API NkLight : public NkNode {
  NK_NODE_ABSTRACT_HEADER(NkLight);

public:
  NkSFBool on;         // TRUE.
  NkSFFloat intensity; // 1; below 0 counts as 0.
  NkSFColor color;     // White.

  void doAction(NkAction* action) override;

protected:
  NkLight();
  ~NkLight() override;

  /// The way the light travels, in local space; the length doesn't matter.
  virtual NbVec3f getLocalDirection() const = 0;

private:
  bool m_reported = false;
};
