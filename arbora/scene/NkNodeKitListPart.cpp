#include "arbora/scene/NkNodeKitListPart.h"

#include "arbora/base/NkDebugError.h"
#include "arbora/scene/NkGroup.h"

NK_KIT_SOURCE(NkNodeKitListPart, NkBaseKit, "NodeKitListPart");

NkNodeKitListPart::NkNodeKitListPart() {
  NK_KIT_CONSTRUCTOR(NkNodeKitListPart);
  NK_NODE_ADD_FIELD(containerType, (NbName("Group")));
  NK_NODE_ADD_FIELD(itemTypes, (NbString()));
  itemTypes.setNum(0);
  itemTypes.setDefault(true);
  NK_KIT_ADD_CATALOG_ENTRY(container, NkGroup, true, "this", "", false);
  NK_KIT_INIT_INSTANCE();
}

NkNodeKitListPart::~NkNodeKitListPart() = default;

// Types

bool NkNodeKitListPart::setContainerType(NkType type) {
  if (!type.isDerivedFrom(NkGroup::getClassTypeId()) || !type.canCreateInstance() || getNumItems() > 0) {
    NkDebugError::post("NkNodeKitListPart::setContainerType",
                       getNumItems() > 0 ? "The list has items in a container of another type (asked for: %s)"
                                         : "A %s can't hold the items",
                       type.getName().getString());
    return false;
  }
  setAnyPart("container", nullptr);
  container.setDefault(true);
  containerType.setValue(type.getName());
  return true;
}

NkType NkNodeKitListPart::getContainerType() const { return NkType::fromName(containerType.getValue()); }

void NkNodeKitListPart::addItemType(NkType type) {
  itemTypes.set1Value(itemTypes.getNum(), NbString(type.getName().getString()));
}

bool NkNodeKitListPart::isItemTypePermitted(NkType type) const {
  for (int i = 0; i < itemTypes.getNum(); ++i) {
    const NkType permitted = NkType::fromName(NbName(itemTypes[i]));
    if (!permitted.isBad() && type.isDerivedFrom(permitted)) return true;
  }
  return itemTypes.getNum() == 0;
}

bool NkNodeKitListPart::holdsOnly(NkType type) const {
  for (int i = 0; i < itemTypes.getNum(); ++i) {
    if (!NkType::fromName(NbName(itemTypes[i])).isDerivedFrom(type)) return false;
  }
  for (int i = 0; i < getNumItems(); ++i) {
    if (!container.getValue()->getChildren()->get(i)->isOfType(type)) return false;
  }
  return itemTypes.getNum() > 0 || type == NkNode::getClassTypeId();
}

// Items

NkGroup* NkNodeKitListPart::getContainer(bool makeIfNeeded) {
  const arbora::KeepAlive alive(this);
  if (!container.getValue() && makeIfNeeded) {
    const NkType type = getContainerType();
    const bool good = type.isDerivedFrom(NkGroup::getClassTypeId()) && type.canCreateInstance();
    setAnyPart("container", static_cast<NkNode*>((good ? type : NkGroup::getClassTypeId()).createInstance()));
  }
  return static_cast<NkGroup*>(container.getValue());
}

int NkNodeKitListPart::getNumItems() const {
  return container.getValue() ? container.getValue()->getChildren()->getLength() : 0;
}

int NkNodeKitListPart::findItem(const NkNode* item) const {
  return container.getValue() ? container.getValue()->getChildren()->find(item) : -1;
}

bool NkNodeKitListPart::checkItem(const NkNode* item, const char* operation) const {
  if (item && isItemTypePermitted(item->getTypeId())) return true;
  NkDebugError::post(operation, "%s can't be an item of this list",
                     item ? item->getTypeId().getName().getString() : "NULL");
  return false;
}

bool NkNodeKitListPart::checkIndex(int index, int last, const char* operation) const {
  if (index >= 0 && index <= last) return true;
  NkDebugError::post(operation, "Index %d is out of range %d - %d", index, 0, last);
  return false;
}

NkNode* NkNodeKitListPart::getItem(int index, bool makeIfNeeded) {
  const arbora::KeepAlive alive(this);
  if (index == getNumItems() && makeIfNeeded) {
    for (int i = 0; i < itemTypes.getNum() && index == getNumItems(); ++i) {
      const NkType type = NkType::fromName(NbName(itemTypes[i]));
      if (type.canCreateInstance()) addItem(static_cast<NkNode*>(type.createInstance()));
    }
  }
  return container.getValue() ? container.getValue()->getChildren()->get(index) : nullptr;
}

bool NkNodeKitListPart::setItem(int index, NkNode* item) {
  const char* const operation = "NkNodeKitListPart::setItem";
  if (item && index == getNumItems()) return insertItem(item, index);
  if (!checkIndex(index, getNumItems() - 1, operation) || (item && !checkItem(item, operation))) return false;
  const arbora::KeepAlive alive(this);
  if (item)
    getContainer(true)->replaceChild(index, item);
  else
    getContainer(true)->removeChild(index);
  return true;
}

bool NkNodeKitListPart::insertItem(NkNode* item, int index) {
  const char* const operation = "NkNodeKitListPart::insertItem";
  if (!checkItem(item, operation) || !checkIndex(index, getNumItems(), operation)) return false;
  const arbora::KeepAlive alive(this);
  const arbora::Ref<NkNode> keep(item);
  // A callback may have taken the new container out again.
  NkGroup* const holder = getContainer(true);
  if (!holder) return false;
  holder->insertChild(item, index);
  return true;
}
