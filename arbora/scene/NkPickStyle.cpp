#include "arbora/scene/NkPickStyle.h"

#include "arbora/scene/NkAction.h"

NK_NODE_SOURCE(NkPickStyle, NkNode, "PickStyle");

NkPickStyle::NkPickStyle() {
  NK_NODE_CONSTRUCTOR(NkPickStyle);
  NK_NODE_DEFINE_ENUM_VALUE(Style, SHAPE);
  NK_NODE_DEFINE_ENUM_VALUE(Style, BOUNDING_BOX);
  NK_NODE_DEFINE_ENUM_VALUE(Style, UNPICKABLE);
  NK_NODE_ADD_FIELD(style, (SHAPE));
  NK_NODE_SET_SF_ENUM_TYPE(style, Style);
}

NkPickStyle::~NkPickStyle() = default;

void NkPickStyle::doAction(NkAction* action) { action->getState()->pickStyle = style.getValue(); }
