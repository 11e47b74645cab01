#pragma once

#include "arbora/scene/NkGroup.h"
#include "arbora/scene/NkMField.h"
#include "arbora/scene/NkSubNode.h"

// Node classes that an application might have; a test registers those that it uses.

/// Holds nodes in fields.
class Holder : public NkNode {
  NK_NODE_HEADER(Holder);

public:
  NkSFNode one;
  NkMFNode many;
  Holder();

protected:
  ~Holder() override;
};

/// Keeps its state to itself, without a cache.
class Isolating : public NkGroup {
  NK_NODE_HEADER(Isolating);

public:
  Isolating();
  bool affectsState() const override { return false; }
  void doAction(NkAction* action) override;

protected:
  ~Isolating() override;
};
