#include "tests/scene/ModelNodes.h"

#include "arbora/scene/NkAction.h"

NK_NODE_SOURCE(Holder, NkNode, "ModelHolder");

Holder::Holder() {
  NK_NODE_CONSTRUCTOR(Holder);
  NK_NODE_ADD_FIELD(one, (nullptr));
  NK_NODE_ADD_FIELD(many, (nullptr));
}

Holder::~Holder() = default;

NK_NODE_SOURCE(Isolating, NkGroup, "ModelIsolating");

Isolating::Isolating() { NK_NODE_CONSTRUCTOR(Isolating); }

Isolating::~Isolating() = default;

void Isolating::doAction(NkAction* action) {
  const NkAction::StateScope scope(action);
  NkGroup::doAction(action);
}
