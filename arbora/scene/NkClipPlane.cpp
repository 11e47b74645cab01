#include "arbora/scene/NkClipPlane.h"

#include "arbora/base/NkDebugError.h"
#include "arbora/scene/NkAction.h"

NK_NODE_SOURCE(NkClipPlane, NkNode, "ClipPlane");

NkClipPlane::NkClipPlane() {
  NK_NODE_CONSTRUCTOR(NkClipPlane);
  NK_NODE_ADD_FIELD(plane, (NbPlane(NbVec3f(1, 0, 0), 0)));
  NK_NODE_ADD_FIELD(on, (true));
}

NkClipPlane::~NkClipPlane() = default;

void NkClipPlane::doAction(NkAction* action) {
  if (!on.getValue()) return;
  NkState& state = *action->getState();
  if (state.clip.count >= arbora::ClipSet::kMaxPlanes) {
    if (!m_reported)
      NkDebugError::postWarning("NkClipPlane::doAction", "only %d clip planes act at one place; this one has no effect",
                                arbora::ClipSet::kMaxPlanes);
    m_reported = true;
    return;
  }
  NbPlane& added = state.clip.planes[static_cast<std::size_t>(state.clip.count++)];
  added = plane.getValue();
  added.transform(state.model);
}
