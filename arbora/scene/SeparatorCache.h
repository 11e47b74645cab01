#pragma once

#include <cstdint>
#include <vector>

#include "arbora/base/NbBox3f.h"
#include "arbora/scene/NkState.h"
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

  /// The box of the content in the separator's local space, and what of the inherited state it depends on.
  struct Box {
    bool valid = false;
    /// Grows with every change below the separator that it hears of.
    unsigned changes = 0;
    NbBox3f box;
    unsigned used = 0; // NkState::Element bits.
    FontStyle font;
    std::uint64_t coordinatesId = 0;
    int switchChild = 0;
    bool fits(const NkState& state) const;
  };
  Box box;

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
