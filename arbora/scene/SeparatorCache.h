#pragma once

#include <vector>

#include "arbora/scene/BoxCache.h"
#include "arbora/scene/NkHandleEventAction.h"
#include "arbora/scene/export.h"

namespace arbora {

class DrawSegment;

/// What a separator keeps of its content for the actions that come by again.
struct ARBORA_API SeparatorCache {
  SeparatorCache() = default;
  /// The segments learn that their node is gone.
  ~SeparatorCache();
  SeparatorCache(const SeparatorCache&) = delete;
  SeparatorCache& operator=(const SeparatorCache&) = delete;

  BoxCache box;

  /// What events find below the separator.
  NkHandleEventAction::Learnt learnt;

  /// Every place in a draw list that this separator's content has: one per visit. Each separator that a draw list
  /// visits has one, so a change that was told to all of them is told to every list (`NkNotification::drawn`), for what
  /// is reached through this separator.
  std::vector<DrawSegment*> segments;

  /// Something below the separator changed that isn't below a deeper separator.
  void markSegmentsDirty();
  /// True if a draw list wants to hear of the next change.
  bool hasCleanSegments() const;
};

} // namespace arbora
