#include "arbora/scene/NkSeparator.h"

#include "arbora/scene/NkGetBoundingBoxAction.h"
#include "arbora/scene/NkGetMatrixAction.h"
#include "arbora/scene/NkRayPickAction.h"
#include "arbora/scene/SeparatorCache.h"

NK_NODE_SOURCE(NkSeparator, NkGroup, "Separator");

NkSeparator::NkSeparator() { NK_NODE_CONSTRUCTOR(NkSeparator); }

NkSeparator::NkSeparator(int) : NkSeparator() {}

NkSeparator::~NkSeparator() = default;

// Caches

arbora::SeparatorCache& NkSeparator::getCache() {
  if (!m_cache) m_cache = std::make_unique<arbora::SeparatorCache>();
  return *m_cache;
}

bool NkSeparator::dropCaches(NkNotification& notification) {
  if (!m_cache) return false;
  m_cache->box.drop();
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
  if (action->isGoingToEnd())
    doAction(action);
  else if (action->getPathCode() == NkAction::IN_PATH)
    NkGroup::doAction(action);
}

void NkSeparator::getBoundingBox(NkGetBoundingBoxAction* action) {
  getCache().box.extend(action, [&] { NkGroup::doAction(action); });
}

void NkSeparator::handleEvent(NkHandleEventAction* action) {
  action->visitContent(this, getCache().learnt, [&] { NkGroup::handleEvent(action); });
}

void NkSeparator::rayPick(NkRayPickAction* action) {
  if (!getCache().box.isMissed(action, this)) doAction(action);
}
