#include "arbora/scene/NkTextureCoordinate2.h"

#include "arbora/scene/NkAction.h"

NK_NODE_SOURCE(NkTextureCoordinate2, NkNode, "TextureCoordinate2");

NkTextureCoordinate2::NkTextureCoordinate2() {
  NK_NODE_CONSTRUCTOR(NkTextureCoordinate2);
  NK_NODE_ADD_FIELD(point, (NbVec2f()));
  point.setNum(0);
  point.setDefault(true);
}

NkTextureCoordinate2::~NkTextureCoordinate2() = default;

void NkTextureCoordinate2::doAction(NkAction* action) { action->getState()->textureCoordinates = this; }
