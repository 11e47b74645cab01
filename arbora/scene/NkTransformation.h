#pragma once

#include "arbora/scene/NkSubNode.h"

/// Base of the nodes that move, turn or scale what stands behind them. A transform with a value that isn't finite has
/// no effect.
class ARBORA_API NkTransformation : public NkNode {
  NK_NODE_ABSTRACT_HEADER(NkTransformation);

public:
  /// From the space behind the node to the space ahead of it.
  virtual NbMatrix getTransformMatrix() const = 0;
  void doAction(NkAction* action) override;

protected:
  NkTransformation();
  ~NkTransformation() override;
};
