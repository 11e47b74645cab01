#include "arbora/scene/NkNodekitCatalog.h"

#include "arbora/base/NkDebugError.h"
#include "arbora/scene/NkGroup.h"
#include "arbora/scene/NkNodeKitListPart.h"

namespace {

const char* nameOf(NkType type) { return type.isBad() ? "an unregistered class" : type.getName().getString(); }

} // namespace

NkNodekitCatalog* NkNodekitCatalog::clone(NkType type) const {
  auto* copy = new NkNodekitCatalog(*this);
  copy->m_owner = type;
  return copy;
}

const NkNodekitCatalog::Entry& NkNodekitCatalog::get(int part) const {
  static const Entry s_none;
  return part >= 0 && part < getNumEntries() ? m_entries[static_cast<std::size_t>(part)] : s_none;
}

int NkNodekitCatalog::getPartNumber(const NbName& name) const {
  for (int i = 0; i < getNumEntries(); ++i) {
    if (m_entries[static_cast<std::size_t>(i)].name == name) return i;
  }
  return -1;
}

NbName NkNodekitCatalog::getParentName(int part) const {
  if (part < 0 || part >= getNumEntries()) return NbName();
  const int parent = get(part).parent;
  return parent < 0 ? NbName("this") : get(parent).name;
}

bool NkNodekitCatalog::refuse(const NbName& name, const char* reason, const NbName& what) const {
  NkDebugError::post("NkNodekitCatalog::addEntry", "Part \"%s\" of %s is refused: %s%s%s%s", name.getString(),
                     nameOf(m_owner), reason, !what ? "" : " (", what.getString(), !what ? "" : ")");
  return false;
}

bool NkNodekitCatalog::addEntry(const NbName& name, NkType type, NkType defaultType, bool nullByDefault,
                                const NbName& parentName, const NbName& rightSiblingName, bool isList,
                                NkType listContainerType, NkType listItemType, bool isPublic) {
  if (!name || name == "this") return refuse(name, "that can't be a name");
  if (getPartNumber(name) >= 0) return refuse(name, "the name is taken");
  if (type.isBad() || !type.isDerivedFrom(NkNode::getClassTypeId())) return refuse(name, "its type is no node class");
  if (!defaultType.isDerivedFrom(type))
    return refuse(name, "its default type doesn't derive from its type", type.getName());
  if (!defaultType.canCreateInstance()) return refuse(name, "its default type is abstract", defaultType.getName());
  if (isList) {
    if (!type.isDerivedFrom(NkNodeKitListPart::getClassTypeId()))
      return refuse(name, "a list has to be a NkNodeKitListPart");
    if (!listContainerType.isDerivedFrom(NkGroup::getClassTypeId()) || !listContainerType.canCreateInstance())
      return refuse(name, "its container type can't hold children", listContainerType.getName());
    if (!listItemType.isDerivedFrom(NkNode::getClassTypeId())) return refuse(name, "its item type is no node class");
  }

  int parent = -1;
  if (parentName != "this") {
    parent = getPartNumber(parentName);
    if (parent < 0) return refuse(name, "there is no such parent", parentName);
    if (get(parent).isList) return refuse(name, "its parent is a list", parentName);
    if (!get(parent).type.isDerivedFrom(NkGroup::getClassTypeId()))
      return refuse(name, "its parent can't have children", parentName);
  }
  int rightSibling = -1;
  if (!!rightSiblingName) {
    rightSibling = getPartNumber(rightSiblingName);
    if (rightSibling < 0) return refuse(name, "there is no such right sibling", rightSiblingName);
    if (get(rightSibling).parent != parent)
      return refuse(name, "its right sibling has another parent", rightSiblingName);
  }

  // What stood directly ahead of the right sibling, or was the last, now stands ahead of the new part.
  for (Entry& entry : m_entries) {
    if (entry.parent == parent && entry.rightSibling == rightSibling) entry.rightSibling = getNumEntries();
  }
  if (parent >= 0) m_entries[static_cast<std::size_t>(parent)].isLeaf = false;
  Entry entry;
  entry.name = name;
  entry.type = type;
  entry.defaultType = defaultType;
  if (isList) {
    entry.listContainerType = listContainerType;
    entry.listItemType = listItemType;
  }
  entry.parent = parent;
  entry.rightSibling = rightSibling;
  entry.nullByDefault = nullByDefault;
  entry.isList = isList;
  entry.isPublic = isPublic;
  m_entries.push_back(entry);
  m_hasDefaultParts |= !nullByDefault;
  return true;
}
