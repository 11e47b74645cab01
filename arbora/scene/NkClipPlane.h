#pragma once

#include "arbora/scene/NkSubNode.h"

/// Cuts away what lies behind a plane, of all that stands behind this node. The plane is in the node's local space. A
/// ninth plane at one place of a scene has no effect and posts a message.
class ARBORA_API NkClipPlane : public NkNode {
  NK_NODE_HEADER(NkClipPlane);

public:
  NkSFPlane plane; // x = 0; what has a positive x is kept.
  NkSFBool on;     // TRUE.

  NkClipPlane();
  void doAction(NkAction* action) override;

protected:
  ~NkClipPlane() override;

private:
  bool m_reported = false;
};
