#pragma once

#include "arbora/scene/NkBaseKit.h"

class NkGroup;

/// Part of a node kit that is a list: any number of items of given types in a container node.
class ARBORA_API NkNodeKitListPart : public NkBaseKit {
  NK_KIT_HEADER(NkNodeKitListPart);

public:
  /// Names of the container's class and of the classes that items derive from; without one, any node is an item.
  NkSFName containerType;
  NkMFString itemTypes;

  NkNodeKitListPart();

  /// False, with a message, for a class that doesn't derive from `NkGroup` or can't be made, and once there are items.
  bool setContainerType(NkType type);
  NkType getContainerType() const;
  void addItemType(NkType type);
  bool isItemTypePermitted(NkType type) const;
  /// Whether all items that it may hold, and all that it does hold, derive from `type`.
  bool holdsOnly(NkType type) const;

  int getNumItems() const;
  /// NULL outside the list. With `makeIfNeeded`, the index one past the end makes an item of the first item type that
  /// can be made.
  NkNode* getItem(int index, bool makeIfNeeded = false);
  /// Replaces an item; one past the end appends it, NULL removes the item. False, with a message, for an index outside
  /// the list and for a node that may not be an item.
  bool setItem(int index, NkNode* item);
  /// Valid for 0 to the number of items; False, with a message, as `setItem`.
  bool insertItem(NkNode* item, int index);
  bool addItem(NkNode* item) { return insertItem(item, getNumItems()); }
  bool removeItem(int index) { return setItem(index, nullptr); }
  /// -1 if absent.
  int findItem(const NkNode* item) const;

protected:
  ~NkNodeKitListPart() override;

private:
  NkGroup* getContainer(bool makeIfNeeded);
  bool checkItem(const NkNode* item, const char* operation) const;
  bool checkIndex(int index, int last, const char* operation) const;

  NkSFNode container;
};
