#pragma once

#include <vector>

#include "arbora/scene/export.h"

class NkAction;
class NkNode;

/// The children of one node, each held by a reference. Every change notifies the owner.
class ARBORA_API NkChildList {
public:
  explicit NkChildList(NkNode* owner) : m_owner(owner) {}
  ~NkChildList();
  NkChildList(const NkChildList&) = delete;
  NkChildList& operator=(const NkChildList&) = delete;

  int getLength() const { return static_cast<int>(m_children.size()); }
  NkNode* operator[](int index) const { return m_children[static_cast<std::size_t>(index)]; }
  /// NULL outside the list.
  NkNode* get(int index) const;
  /// -1 if absent. `hint` is the index to look at first.
  int find(const NkNode* child, int hint = 0) const;

  void append(NkNode* child);
  /// `index` is held within 0 and the length.
  void insert(NkNode* child, int index);
  void remove(int index);
  void set(int index, NkNode* child);
  void truncate(int length);
  void copy(const NkChildList& other);

  /// Whether any child changes the traversal state.
  bool affectsState() const;

  /// Hands the action to the children `first` to `last`, both included; the ends are held within the list. A child
  /// list may change under the traversal.
  void traverse(NkAction* action, int first, int last);
  void traverse(NkAction* action);

private:
  void release(NkNode* child);
  NkNode* m_owner;
  std::vector<NkNode*> m_children;
};
