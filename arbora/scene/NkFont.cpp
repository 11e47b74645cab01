#include "arbora/scene/NkFont.h"

#include <cmath>

#include "arbora/scene/NkAction.h"

NK_NODE_SOURCE(NkFont, NkNode, "Font");

NkFont::NkFont() {
  NK_NODE_CONSTRUCTOR(NkFont);
  NK_NODE_ADD_FIELD(name, (NbName()));
  NK_NODE_ADD_FIELD(size, (10));
}

NkFont::~NkFont() = default;

void NkFont::doAction(NkAction* action) {
  NkState& state = *action->getState();
  state.font.face = name.getValue();
  state.font.size = std::isfinite(size.getValue()) && size.getValue() > 0 ? size.getValue() : 0.0F;
  state.markSet(NkState::FONT);
}
