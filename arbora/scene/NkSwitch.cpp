#include "arbora/scene/NkSwitch.h"

#include "arbora/scene/NkAction.h"
#include "arbora/scene/NkSearchAction.h"

NK_NODE_SOURCE(NkSwitch, NkGroup, "Switch");

NkSwitch::NkSwitch() {
  NK_NODE_CONSTRUCTOR(NkSwitch);
  NK_NODE_ADD_FIELD(whichChild, (NK_SWITCH_NONE));
}

NkSwitch::NkSwitch(int) : NkSwitch() {}

NkSwitch::~NkSwitch() = default;

bool NkSwitch::affectsState() const {
  const int which = whichChild.getValue();
  if (which == NK_SWITCH_NONE) return false;
  if (which < 0) return NkGroup::affectsState();
  const NkNode* child = getChildren()->get(which);
  return child && child->affectsState();
}

void NkSwitch::traverseChosen(NkAction* action) {
  NkState& state = *action->getState();
  int which = whichChild.getValue();
  if (which == NK_SWITCH_INHERIT) {
    state.markUsed(NkState::SWITCH);
    which = state.switchChild;
  } else {
    state.switchChild = which;
    state.markSet(NkState::SWITCH);
  }
  if (which == NK_SWITCH_ALL) {
    getChildren()->traverse(action);
  } else if (which >= 0) {
    getChildren()->traverse(action, which, which);
  }
}

void NkSwitch::doAction(NkAction* action) {
  if (action->getPathCode() != NkAction::IN_PATH) {
    traverseChosen(action);
    return;
  }
  // A path goes where it goes, also through a child that isn't shown; beside it only what is shown counts.
  if (whichChild.getValue() == NK_SWITCH_ALL) {
    getChildren()->traverse(action);
    return;
  }
  int count = 0;
  const int* indices = nullptr;
  action->getPathCode(count, indices);
  for (int i = 0; i < count; ++i) {
    getChildren()->traverse(action, indices[i], indices[i]);
    action->getPathCode(count, indices); // The same again; they have moved.
  }
}

void NkSwitch::search(NkSearchAction* action) {
  NkNode::search(action);
  if (action->isFound()) return;
  if (action->isSearchingAll())
    getChildren()->traverse(action);
  else
    doAction(action);
}
