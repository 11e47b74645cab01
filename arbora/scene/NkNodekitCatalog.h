#pragma once

#include <cstddef>
#include <vector>

#include "arbora/base/NbName.h"
#include "arbora/scene/NkType.h"

/// The table of parts of one node kit class. Each part has a name and a type, and a place in the tree of parts: its
/// parent is another part, or the kit itself under the name `this`.
class ARBORA_API NkNodekitCatalog {
public:
  NkNodekitCatalog() = default;

  /// A copy for a class that derives from the table's; `type` is that class. It belongs to the caller.
  NkNodekitCatalog* clone(NkType type) const;

  /// Adds a part. False, with a message, and the table as it was, if
  /// - the name is empty, taken, or `this`,
  /// - the parent isn't in the table, is a list or can't have children,
  /// - the right sibling isn't in the table or has another parent,
  /// - the default type can't be made or doesn't derive from the type.
  /// A part whose `type` is abstract is filled with nodes of the default type unless another is set. Without a right
  /// sibling the part is the last one of its parent. A list holds any number of items of `listItemType` in a container
  /// of `listContainerType`, which derives from `NkGroup`; its own type is `NkNodeKitListPart`.
  bool addEntry(const NbName& name, NkType type, NkType defaultType, bool nullByDefault, const NbName& parentName,
                const NbName& rightSiblingName, bool isList, NkType listContainerType, NkType listItemType,
                bool isPublic);

  int getNumEntries() const { return static_cast<int>(m_entries.size()); }
  /// -1 if there is no part of that name.
  int getPartNumber(const NbName& name) const;

  // By number, from 0 to the number of entries, or by name. Other numbers and names give the empty name, the bad type,
  // true for `isNullByDefault` and `isLeaf`, false otherwise.
  NbName getName(int part) const { return get(part).name; }
  NkType getType(int part) const { return get(part).type; }
  NkType getDefaultType(int part) const { return get(part).defaultType; }
  bool isNullByDefault(int part) const { return get(part).nullByDefault; }
  /// True for a part that is no other part's parent.
  bool isLeaf(int part) const { return get(part).isLeaf; }
  /// `this` for a part directly under the kit.
  NbName getParentName(int part) const;
  /// -1 for a part directly under the kit.
  int getParentPartNumber(int part) const { return get(part).parent; }
  /// The empty name for the last part of its parent.
  NbName getRightSiblingName(int part) const { return get(get(part).rightSibling).name; }
  int getRightSiblingPartNumber(int part) const { return get(part).rightSibling; }
  bool isList(int part) const { return get(part).isList; }
  NkType getListContainerType(int part) const { return get(part).listContainerType; }
  NkType getListItemType(int part) const { return get(part).listItemType; }
  bool isPublic(int part) const { return get(part).isPublic; }

  NkType getType(const NbName& name) const { return getType(getPartNumber(name)); }
  NkType getDefaultType(const NbName& name) const { return getDefaultType(getPartNumber(name)); }
  bool isNullByDefault(const NbName& name) const { return isNullByDefault(getPartNumber(name)); }
  bool isLeaf(const NbName& name) const { return isLeaf(getPartNumber(name)); }
  NbName getParentName(const NbName& name) const { return getParentName(getPartNumber(name)); }
  NbName getRightSiblingName(const NbName& name) const { return getRightSiblingName(getPartNumber(name)); }
  bool isList(const NbName& name) const { return isList(getPartNumber(name)); }
  NkType getListContainerType(const NbName& name) const { return getListContainerType(getPartNumber(name)); }
  NkType getListItemType(const NbName& name) const { return getListItemType(getPartNumber(name)); }
  bool isPublic(const NbName& name) const { return isPublic(getPartNumber(name)); }

private:
  friend class NkBaseKit;

  struct Entry {
    NbName name;
    NkType type;
    NkType defaultType;
    NkType listContainerType;
    NkType listItemType;
    int parent = -1;
    int rightSibling = -1;
    std::ptrdiff_t holderOffset = 0; // Of the holder field within the kit.
    bool nullByDefault = true;
    bool isLeaf = true;
    bool isList = false;
    bool isPublic = false;
  };

  const Entry& get(int part) const;
  bool refuse(const NbName& name, const char* reason, const NbName& what = NbName()) const;

  std::vector<Entry> m_entries;
  NkType m_owner;
  bool m_hasDefaultParts = false; // Whether a part isn't null by default.
};
