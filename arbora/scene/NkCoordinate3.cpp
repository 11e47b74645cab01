#include "arbora/scene/NkCoordinate3.h"

#include "arbora/scene/NkAction.h"

NK_NODE_SOURCE(NkCoordinate3, NkNode, "Coordinate3");

NkCoordinate3::NkCoordinate3() {
  NK_NODE_CONSTRUCTOR(NkCoordinate3);
  NK_NODE_ADD_FIELD(point, (NbVec3f(0, 0, 0)));
}

NkCoordinate3::~NkCoordinate3() = default;

void NkCoordinate3::doAction(NkAction* action) {
  action->getState()->coordinates = this;
  action->getState()->markSet(NkState::COORDINATES);
}
