#include "arbora/scene/NkSeparator.h"

#include "arbora/scene/NkCoordinate3.h"
#include "arbora/scene/NkGetBoundingBoxAction.h"
#include "arbora/scene/NkGetMatrixAction.h"
#include "arbora/scene/NkRayPickAction.h"
#include "arbora/scene/SeparatorCache.h"

NK_NODE_SOURCE(NkSeparator, NkGroup, "Separator");

NkSeparator::NkSeparator() { NK_NODE_CONSTRUCTOR(NkSeparator); }

NkSeparator::NkSeparator(int) : NkSeparator() {}

NkSeparator::~NkSeparator() = default;

// Caches

bool arbora::SeparatorCache::Box::fits(const NkState& state) const {
  return valid && (!(used & NkState::FONT) || font == state.font) &&
         (!(used & NkState::COORDINATES) ||
          coordinatesId == (state.coordinates ? state.coordinates->getNodeId() : 0)) &&
         (!(used & NkState::SWITCH) || switchChild == state.switchChild);
}

arbora::SeparatorCache& NkSeparator::getCache() {
  if (!m_cache) m_cache = std::make_unique<arbora::SeparatorCache>();
  return *m_cache;
}

bool NkSeparator::dropCaches(NkNotification& notification) {
  if (!m_cache) return false;
  m_cache->box.valid = false;
  ++m_cache->box.changes;
  if (!notification.drawn) m_cache->markSegmentsDirty();
  // The separators further up draw this one's content by way of its segments.
  notification.drawn |= !m_cache->segments.empty();
  return m_cache->hasCleanSegments();
}

// Traversal

void NkSeparator::doAction(NkAction* action) {
  const NkAction::StateScope scope(action);
  NkGroup::doAction(action);
}

void NkSeparator::getMatrix(NkGetMatrixAction* action) {
  // The way that a matrix is accumulated along goes on inside; nothing beside it reaches the outside.
  if (action->getPathCode() == NkAction::IN_PATH) NkGroup::doAction(action);
}

void NkSeparator::getBoundingBox(NkGetBoundingBoxAction* action) {
  if (action->getPathCode() == NkAction::IN_PATH || action->getPathCode() == NkAction::OFF_PATH) {
    doAction(action);
    return;
  }
  const arbora::SeparatorCache::Box& cached = getCache().box;
  NkState& state = *action->getState();
  if (!cached.fits(state)) measureContent(action);
  state.usedInherited |= cached.used & ~state.setBelow;
  action->extendBy(cached.box);
}

void NkSeparator::measureContent(NkGetBoundingBoxAction* action) {
  arbora::SeparatorCache::Box& cached = getCache().box;
  NkState& state = *action->getState();
  const std::uint64_t coordinatesId = state.coordinates ? state.coordinates->getNodeId() : 0;
  const unsigned changes = cached.changes;
  {
    const NkAction::StateScope scope(action);
    state.usedInherited = 0;
    state.setBelow = 0;
    action->beginLocalBox();
    NkGroup::doAction(action);
    cached.box = action->endLocalBox();
    cached.used = state.usedInherited;
    state.usedInherited = 0;
  }
  // The state is now what it was ahead of the content.
  cached.font = state.font;
  cached.coordinatesId = coordinatesId;
  cached.switchChild = state.switchChild;
  // Content that came into being only when it was asked for its box has changed under the traversal. It tells of
  // further changes once a traversal has visited it as it is now.
  cached.valid = cached.changes == changes;
}

void NkSeparator::rayPick(NkRayPickAction* action) {
  if (action->getPathCode() == NkAction::NO_PATH || action->getPathCode() == NkAction::BELOW_PATH) {
    const arbora::SeparatorCache::Box& cached = getCache().box;
    const NkState& state = *action->getState();
    if (!cached.fits(state)) NkGetBoundingBoxAction::measureWithin(*action, this);
    // A camera inside decides on the ray, so the box tells nothing.
    if (cached.fits(state) && !(cached.used & NkState::CAMERA) && !action->hitsBox(cached.box)) return;
  }
  doAction(action);
}
