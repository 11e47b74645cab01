#include "arbora/scene/NkChildList.h"

#include <algorithm>

#include "arbora/scene/NkAction.h"
#include "arbora/scene/NkNode.h"

NkChildList::~NkChildList() {
  while (!m_children.empty()) {
    NkNode* child = m_children.back();
    m_children.pop_back();
    release(child);
  }
}

void NkChildList::release(NkNode* child) {
  if (!child) return;
  child->removeParent(m_owner);
  child->unref();
}

NkNode* NkChildList::get(int index) const { return index >= 0 && index < getLength() ? (*this)[index] : nullptr; }

int NkChildList::find(const NkNode* child, int hint) const {
  if (get(hint) == child && child) return hint;
  const auto it = std::find(m_children.begin(), m_children.end(), child);
  return it == m_children.end() ? -1 : static_cast<int>(it - m_children.begin());
}

void NkChildList::append(NkNode* child) { insert(child, getLength()); }

void NkChildList::insert(NkNode* child, int index) {
  if (!child) return;
  child->ref();
  // As many as fit into the smallest piece of memory.
  if (m_children.empty()) m_children.reserve(3);
  m_children.insert(m_children.begin() + std::clamp(index, 0, getLength()), child);
  child->addParent(m_owner);
  m_owner->childrenChanged(child);
}

void NkChildList::remove(int index) {
  NkNode* child = get(index);
  if (!child) return;
  m_children.erase(m_children.begin() + index);
  child->removeParent(m_owner);
  m_owner->childrenChanged();
  child->unref();
}

void NkChildList::set(int index, NkNode* child) {
  NkNode* previous = get(index);
  if (!previous || !child) return;
  child->ref();
  m_children[static_cast<std::size_t>(index)] = child;
  child->addParent(m_owner);
  previous->removeParent(m_owner);
  m_owner->childrenChanged(child);
  previous->unref();
}

void NkChildList::truncate(int length) {
  const int first = std::clamp(length, 0, getLength());
  if (first == getLength()) return;
  const std::vector<NkNode*> removed(m_children.begin() + first, m_children.end());
  m_children.resize(static_cast<std::size_t>(first));
  for (NkNode* child : removed) child->removeParent(m_owner);
  m_owner->childrenChanged();
  for (NkNode* child : removed) child->unref();
}

void NkChildList::copy(const NkChildList& other) {
  if (&other == this) return;
  const arbora::KeepAlive alive(m_owner);
  const std::vector<NkNode*> children(other.m_children);
  for (NkNode* child : children) child->ref();
  truncate(0);
  for (NkNode* child : children) {
    append(child);
    child->unref();
  }
}

bool NkChildList::affectsState() const {
  // A node may contain itself. At a depth that no traversal reaches, the answer that leads to a visit does no harm.
  static int s_depth = 0;
  if (s_depth == NkAction::kMaxDepth) return true;
  ++s_depth;
  const bool result =
      std::any_of(m_children.begin(), m_children.end(), [](const NkNode* child) { return child->affectsState(); });
  --s_depth;
  return result;
}

void NkChildList::traverse(NkAction* action, int first, int last) { action->traverseChildren(*this, first, last); }

void NkChildList::traverse(NkAction* action) { action->traverseChildren(*this, 0, getLength() - 1); }
