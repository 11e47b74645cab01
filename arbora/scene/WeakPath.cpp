#include "arbora/scene/WeakPath.h"

#include "arbora/scene/NkChildList.h"

namespace arbora {

void WeakPath::assign(const NkFullPath& path) {
  m_steps.clear();
  for (int i = 0; i < path.getLength(); ++i) m_steps.push_back({path.getNode(i), path.getIndex(i)});
}

Ref<NkFullPath> WeakPath::lock(NkNode* live, int liveIndex) const {
  std::vector<Step> steps(m_steps);
  const std::size_t pivot = static_cast<std::size_t>(liveIndex);
  if (pivot >= steps.size() || steps[pivot].node != live) return {};
  // Upwards: a node that is among the parents of one that exists, exists.
  for (std::size_t i = pivot; i > 0; --i) {
    bool isParent = false;
    steps[i].node->getParents().forEach([&](const NkNode* parent) { isParent |= parent == steps[i - 1].node; });
    const NkChildList* children = isParent ? steps[i - 1].node->getChildren() : nullptr;
    steps[i].index = children ? children->find(steps[i].node, steps[i].index) : -1;
    if (steps[i].index < 0) return {};
  }
  // Downwards, as far as it goes.
  std::size_t length = pivot + 1;
  for (; length < steps.size(); ++length) {
    const NkChildList* children = steps[length - 1].node->getChildren();
    steps[length].index = children ? children->find(steps[length].node, steps[length].index) : -1;
    if (steps[length].index < 0) break;
  }
  Ref<NkFullPath> path(NkPath::create());
  for (std::size_t i = 0; i < length; ++i) path->appendUnchecked(steps[i].node, steps[i].index);
  return path;
}

} // namespace arbora
