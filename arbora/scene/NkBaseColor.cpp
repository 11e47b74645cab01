#include "arbora/scene/NkBaseColor.h"

#include "arbora/scene/ColorValues.h"
#include "arbora/scene/NkAction.h"

NK_NODE_SOURCE(NkBaseColor, NkNode, "BaseColor");

NkBaseColor::NkBaseColor() {
  NK_NODE_CONSTRUCTOR(NkBaseColor);
  NK_NODE_ADD_FIELD(rgb, (NbColor(0.8F, 0.8F, 0.8F)));
}

NkBaseColor::~NkBaseColor() = default;

void NkBaseColor::doAction(NkAction* action) {
  if (rgb.getNum() > 0) action->getState()->material.diffuse = arbora::usableColor(rgb[0]);
}
