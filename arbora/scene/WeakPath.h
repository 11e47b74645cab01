#pragma once

#include <vector>

#include "arbora/scene/NkPath.h"

namespace arbora {

/// Way through a scene that keeps nothing alive. It becomes a path again as long as it still exists.
class WeakPath {
public:
  void assign(const NkFullPath& path);
  /// The path, with a reference count of its own, if every node down to number `liveIndex` is still a child of the one
  /// ahead of it; NULL otherwise. `live`, the node that had that number, has to exist. What stands below it no longer
  /// is left out.
  Ref<NkFullPath> lock(NkNode* live, int liveIndex) const;

private:
  struct Step {
    NkNode* node; // May be gone: not to be looked into before it was found in a node that exists.
    int index;
  };
  std::vector<Step> m_steps;
};

} // namespace arbora
