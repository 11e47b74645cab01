#include "arbora/scene/NkNormal.h"

#include "arbora/scene/NkAction.h"

NK_NODE_SOURCE(NkNormal, NkNode, "Normal");

NkNormal::NkNormal() {
  NK_NODE_CONSTRUCTOR(NkNormal);
  NK_NODE_ADD_FIELD(vector, (NbVec3f()));
  vector.setNum(0);
  vector.setDefault(true);
}

NkNormal::~NkNormal() = default;

void NkNormal::doAction(NkAction* action) { action->getState()->normals = this; }
