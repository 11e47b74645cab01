#pragma once

#include "arbora/scene/NkSubNode.h"

/// A text about the scene that nobody sees.
class ARBORA_API NkInfo : public NkNode {
  NK_NODE_HEADER(NkInfo);

public:
  NkSFString string; // Empty.

  NkInfo();
  bool affectsState() const override { return false; }

protected:
  ~NkInfo() override;
};
