#include "arbora/scene/NkGroup.h"

#include "arbora/base/NkDebugError.h"
#include "arbora/scene/NkAction.h"
#include "arbora/scene/NkSearchAction.h"

NK_NODE_SOURCE(NkGroup, NkNode, "Group");

NkGroup::NkGroup() : m_children(this) { NK_NODE_CONSTRUCTOR(NkGroup); }

NkGroup::NkGroup(int) : NkGroup() {}

NkGroup::~NkGroup() = default;

// Children

void NkGroup::addChild(NkNode* child) { internalAddChild(child); }

void NkGroup::insertChild(NkNode* child, int index) { internalInsertChild(child, index); }

NkNode* NkGroup::getChild(int index) const { return internalGetChild(index); }

int NkGroup::findChild(const NkNode* child) const { return internalFindChild(child); }

int NkGroup::getNumChildren() const { return m_children.getLength(); }

void NkGroup::removeChild(int index) { internalRemoveChild(index); }

void NkGroup::removeChild(NkNode* child) { internalRemoveChild(child); }

void NkGroup::removeAllChildren() { internalRemoveAllChildren(); }

void NkGroup::replaceChild(int index, NkNode* child) { internalReplaceChild(index, child); }

void NkGroup::replaceChild(NkNode* oldChild, NkNode* newChild) { internalReplaceChild(oldChild, newChild); }

bool NkGroup::checkIndex(const char* operation, int index, int last) const {
  if (index >= 0 && index <= last) return true;
  NkDebugError::post(operation, "Index %d is out of range %d - %d", index, 0, last);
  return false;
}

void NkGroup::internalAddChild(NkNode* child) {
  if (!child)
    NkDebugError::post("NkGroup::addChild", "NULL child node");
  else
    m_children.append(child);
}

void NkGroup::internalInsertChild(NkNode* child, int index) {
  if (!child)
    NkDebugError::post("NkGroup::insertChild", "NULL child node");
  else if (checkIndex("NkGroup::insertChild", index, getNumChildren()))
    m_children.insert(child, index);
}

NkNode* NkGroup::internalGetChild(int index) const {
  return checkIndex("NkGroup::getChild", index, getNumChildren() - 1) ? m_children[index] : nullptr;
}

int NkGroup::internalFindChild(const NkNode* child) const { return m_children.find(child); }

void NkGroup::internalRemoveChild(int index) {
  if (checkIndex("NkGroup::removeChild", index, getNumChildren() - 1)) m_children.remove(index);
}

void NkGroup::internalRemoveChild(NkNode* child) { internalRemoveChild(m_children.find(child)); }

void NkGroup::internalRemoveAllChildren() { m_children.truncate(0); }

void NkGroup::internalReplaceChild(int index, NkNode* child) {
  if (!child)
    NkDebugError::post("NkGroup::replaceChild", "NULL child node");
  else if (checkIndex("NkGroup::replaceChild", index, getNumChildren() - 1))
    m_children.set(index, child);
}

void NkGroup::internalReplaceChild(NkNode* oldChild, NkNode* newChild) {
  internalReplaceChild(m_children.find(oldChild), newChild);
}

void NkGroup::copyContents(const NkNode* original) {
  NkNode::copyContents(original);
  const NkChildList* children = original->getChildren();
  for (int i = 0; i < children->getLength(); ++i) {
    if (NkNode* child = copyOf((*children)[i])) m_children.append(child);
  }
}

// Traversal

bool NkGroup::affectsState() const { return m_children.affectsState(); }

void NkGroup::doAction(NkAction* action) { m_children.traverse(action); }

void NkGroup::search(NkSearchAction* action) {
  NkNode::search(action);
  if (!action->isFound()) doAction(action);
}
