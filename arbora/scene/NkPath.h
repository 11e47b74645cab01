#pragma once

#include <vector>

#include "arbora/scene/NkNode.h"

class NkFullPath;

/// Way from a node down to one of its descendants. The path references its nodes.
///
/// A path that leads into a node kit ends for the public at the kit: `getLength` and `getTail` count the public
/// part alone. `full()` gives the same path with all its nodes. `containsNode` looks at all of them.
class ARBORA_API NkPath : public NkBase {
public:
  static NkType getClassTypeId();
  NkType getTypeId() const override;
  static void initClass();
  static void exitClass();

  /// An empty path with reference count 0.
  static NkFullPath* create();
  static NkFullPath* create(NkNode* head);

  void setHead(NkNode* head);
  /// Appends the child at that index of the tail; false, with a message, if there is none.
  bool append(int childIndex);
  /// Appends a child of the tail, wherever in the child list it stands.
  bool append(NkNode* child);
  /// Appends a node and its index without looking; for traversals.
  void appendUnchecked(NkNode* node, int index);
  void truncate(int length);

  /// Number of nodes up to the public end.
  int getLength() const { return m_numPublic < 0 ? fullLength() : m_numPublic; }
  NkNode* getHead() const { return getNode(0); }
  NkNode* getTail() const { return getNode(getLength() - 1); }
  /// NULL outside the full path.
  NkNode* getNode(int index) const;
  NkNode* getNodeFromTail(int index) const { return getNode(getLength() - 1 - index); }
  /// Index of the node within its parent; -1 for the head.
  int getIndex(int index) const;

  /// Puts the public end behind `count` nodes; -1 makes all nodes public.
  void setNumPublic(int count);
  bool containsNode(const NkNode* node) const;
  bool containsPath(const NkPath* path) const;
  int findNode(const NkNode* node) const;
  /// True while each node is still a child of the one ahead of it.
  bool isIntact() const;

  NkFullPath* full();
  const NkFullPath* full() const;
  NkFullPath* copy() const;
  friend ARBORA_API bool operator==(const NkPath& a, const NkPath& b);

  void write(NkWriteAction* action);

protected:
  NkPath() = default;
  ~NkPath() override;
  bool readInstance(NkInput* in, unsigned short flags) override;
  int fullLength() const { return static_cast<int>(m_nodes.size()); }

  struct Step {
    arbora::Ref<NkNode> node;
    int index;
  };
  std::vector<Step> m_nodes;
  int m_numPublic = -1;

private:
  static NkType s_classTypeId;
};

/// A path with all its nodes. Every path is one; the class only changes what the length means.
class ARBORA_API NkFullPath : public NkPath {
public:
  int getLength() const { return fullLength(); }
  NkNode* getTail() const { return getNode(fullLength() - 1); }
  NkNode* getNodeFromTail(int index) const { return getNode(fullLength() - 1 - index); }

private:
  friend class NkPath;
  NkFullPath() = default;
};

/// List of referenced paths.
class ARBORA_API NkPathList {
public:
  void append(NkPath* path) { m_paths.emplace_back(path); }
  int getLength() const { return static_cast<int>(m_paths.size()); }
  /// NULL outside the list.
  NkPath* operator[](int index) const;
  void truncate(int length);
  /// The paths by their heads, in the order of the first of each; without those that have none.
  std::vector<NkPathList> splitByHead() const;

private:
  std::vector<arbora::Ref<NkPath>> m_paths;
};
