#pragma once

#include "arbora/scene/NkChildList.h"
#include "arbora/scene/NkSubNode.h"

/// Node with children. The state that its children leave goes on to what follows the group.
class ARBORA_API NkGroup : public NkNode {
  NK_NODE_HEADER(NkGroup);

public:
  NkGroup();
  explicit NkGroup(int expectedChildren);

  void addChild(NkNode* child);
  /// Valid for 0 to the number of children; anything else is posted and changes nothing.
  void insertChild(NkNode* child, int index);
  /// NULL, with a message, outside the list.
  NkNode* getChild(int index) const;
  int findChild(const NkNode* child) const;
  int getNumChildren() const;
  void removeChild(int index);
  void removeChild(NkNode* child);
  void removeAllChildren();
  void replaceChild(int index, NkNode* child);
  void replaceChild(NkNode* oldChild, NkNode* newChild);

  NkChildList* getChildren() const override { return &m_children; }
  bool affectsState() const override;
  bool isGroup() const override { return true; }

  void doAction(NkAction* action) override;
  void search(NkSearchAction* action) override;
  void write(NkWriteAction* action) override;

protected:
  ~NkGroup() override;

  bool readInstance(NkInput* in, unsigned short flags) override;
  /// Reads nodes up to the closing brace, or as many as a binary file tells, and adds them.
  virtual bool readChildren(NkInput* in);
  void copyContents(const NkNode* original) override;

  // What the public operations come down to; a class that looks at its children overrides these.
  virtual void internalAddChild(NkNode* child);
  virtual void internalInsertChild(NkNode* child, int index);
  virtual NkNode* internalGetChild(int index) const;
  virtual int internalFindChild(const NkNode* child) const;
  virtual void internalRemoveChild(int index);
  virtual void internalRemoveChild(NkNode* child);
  virtual void internalRemoveAllChildren();
  virtual void internalReplaceChild(int index, NkNode* child);
  virtual void internalReplaceChild(NkNode* oldChild, NkNode* newChild);

private:
  bool checkIndex(const char* operation, int index, int last) const;
  mutable NkChildList m_children;
};
