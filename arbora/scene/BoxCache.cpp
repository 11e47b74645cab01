#include "arbora/scene/BoxCache.h"

#include "arbora/scene/NkCoordinate3.h"
#include "arbora/scene/NkGetBoundingBoxAction.h"
#include "arbora/scene/NkRayPickAction.h"

namespace arbora {

bool BoxCache::fits(const NkState& state) const {
  return m_valid && (!(m_used & NkState::FONT) || m_font == state.font) &&
         (!(m_used & NkState::COORDINATES) ||
          m_coordinatesId == (state.coordinates ? state.coordinates->getNodeId() : 0)) &&
         (!(m_used & NkState::SWITCH) || m_switchChild == state.switchChild);
}

void BoxCache::extend(NkGetBoundingBoxAction* action, const std::function<void()>& traverse) {
  const auto place = action->getPathCode();
  if (place == NkAction::IN_PATH || place == NkAction::OFF_PATH) {
    traverse();
    return;
  }
  NkState& state = *action->getState();
  if (!fits(state)) measure(action, traverse);
  state.usedInherited |= m_used & ~state.setBelow;
  action->extendBy(m_box);
}

void BoxCache::measure(NkGetBoundingBoxAction* action, const std::function<void()>& traverse) {
  NkState& state = *action->getState();
  const std::uint64_t coordinatesId = state.coordinates ? state.coordinates->getNodeId() : 0;
  const unsigned changes = m_changes;
  {
    const NkAction::StateScope scope(action);
    state.usedInherited = 0;
    state.setBelow = 0;
    action->beginLocalBox();
    traverse();
    m_box = action->endLocalBox();
    m_used = state.usedInherited;
    state.usedInherited = 0;
  }
  // The state is now what it was ahead of the content.
  m_font = state.font;
  m_coordinatesId = coordinatesId;
  m_switchChild = state.switchChild;
  // Content that came into being only when it was asked for its box has changed under the traversal. It tells of
  // further changes once a traversal has visited it as it is now.
  m_valid = m_changes == changes;
}

bool BoxCache::isMissed(NkRayPickAction* action, NkNode* node) {
  const auto place = action->getPathCode();
  if (place != NkAction::NO_PATH && place != NkAction::BELOW_PATH) return false;
  const NkState& state = *action->getState();
  if (!fits(state)) NkGetBoundingBoxAction::measureWithin(*action, node);
  // A camera inside decides on the ray, so the box tells nothing.
  return fits(state) && !(m_used & NkState::CAMERA) && !action->hitsBox(m_box);
}

} // namespace arbora
