#include "arbora/scene/NkBaseKit.h"

#include <charconv>
#include <memory>
#include <string>

#include "arbora/base/NkDebugError.h"
#include "arbora/scene/NkAction.h"
#include "arbora/scene/NkGLRenderAction.h"
#include "arbora/scene/NkGetBoundingBoxAction.h"
#include "arbora/scene/NkGetMatrixAction.h"
#include "arbora/scene/NkNodeKitDetail.h"
#include "arbora/scene/NkNodeKitListPart.h"
#include "arbora/scene/NkPickedPoint.h"
#include "arbora/scene/NkRayPickAction.h"
#include "arbora/scene/NkSearchAction.h"

NK_NODE_SOURCE_COMMON(NkBaseKit, NkNode, "BaseKit");

const NkNodekitCatalog* NkBaseKit::nodekitCatalog = nullptr;
const NkNodekitCatalog** NkBaseKit::parentNodekitCatalogPtr = nullptr;
int NkBaseKit::isBuiltIn = 0;

namespace {

bool s_searchingChildren = true;

} // namespace

const arbora::KitClass& NkBaseKit::kitClass() {
  static const arbora::KitClass s{nodekitCatalog, parentNodekitCatalogPtr};
  return s;
}

void NkBaseKit::initClass() {
  arbora::initNodeClass(nodeClass(), &NkNode::getClassTypeId, &NkNode::initClass, &NkBaseKit::createInstance,
                        &NkNode::getFieldDataPtr);
  arbora::initKitClass(kitClass(), nullptr);
}

void NkBaseKit::exitClass() {
  arbora::exitNodeClass(nodeClass());
  arbora::exitKitClass(kitClass());
}

NkBaseKit::NkBaseKit() : m_children(this) {
  NK_KIT_CONSTRUCTOR(NkBaseKit);
  NK_KIT_INIT_INSTANCE();
}

NkBaseKit::~NkBaseKit() = default;

const NkNodekitCatalog* NkBaseKit::getNodekitCatalog() const { return nodekitCatalog; }

int NkBaseKit::getIsBuiltIn() const { return isBuiltIn; }

// Construction

void NkBaseKit::addCatalogRow(const arbora::KitClass& kit, const NkSFNode& holder, const arbora::CatalogRow& row) {
  auto* catalog = const_cast<NkNodekitCatalog*>(kit.catalog);
  const bool isList = !row.listContainerType.isBad();
  if (!catalog ||
      !catalog->addEntry(row.name, row.type, row.defaultType, row.nullByDefault, row.parentName, row.rightSiblingName,
                         isList, row.listContainerType, row.listItemType, row.isPublic)) {
    catalogError();
    return;
  }
  // A holder is a member of its kit, so one offset finds it in every instance of the class.
  catalog->m_entries.back().holderOffset = reinterpret_cast<const char*>(&holder) - reinterpret_cast<const char*>(this);
}

void NkBaseKit::catalogError() {
  NkDebugError::post("NkBaseKit::catalogError", "A part of a node kit class is missing: see the message before");
}

void NkBaseKit::createNodekitPartsList() {
  if (!m_placed.empty()) m_placed.resize(static_cast<std::size_t>(getNodekitCatalog()->getNumEntries()));
}

void NkBaseKit::createDefaultParts() {
  const NkNodekitCatalog* catalog = getNodekitCatalog();
  if (!catalog->m_hasDefaultParts) return;
  for (int part = 0; part < catalog->getNumEntries(); ++part) {
    if (!catalog->isNullByDefault(part) && !nodeAt(part)) makePart(part);
  }
}

// Names of parts

// What a name means: a part, or an item of a list, and what is left of the name behind it.
struct NkBaseKit::PartRef {
  int part = -1;
  int item = -1;
  NbName rest;
};

NkBaseKit::PartRef NkBaseKit::findPart(const NbName& name, const char* operation) const {
  const NkNodekitCatalog* catalog = getNodekitCatalog();
  PartRef ref;
  ref.part = catalog->getPartNumber(name);
  if (ref.part >= 0) return ref;

  const std::string_view text = name.getView();
  const std::size_t dot = text.find('.');
  std::string_view first = text.substr(0, dot);
  if (dot != std::string_view::npos) ref.rest = NbName(text.substr(dot + 1));
  const std::size_t bracket = first.find('[');
  bool good = dot == std::string_view::npos || !!ref.rest;
  if (bracket != std::string_view::npos) {
    const char* const end = first.data() + first.size() - 1;
    const auto [stop, error] = std::from_chars(first.data() + bracket + 1, end, ref.item);
    good = good && error == std::errc() && stop == end && *end == ']' && ref.item >= 0;
    first = first.substr(0, bracket);
  }
  if (good) ref.part = catalog->getPartNumber(NbName(first));
  if (ref.part >= 0 && ref.item >= 0 && !catalog->isList(ref.part)) ref.part = -1;
  if (ref.part < 0)
    NkDebugError::post(operation, "\"%s\" is no part of a %s", name.getString(), getTypeId().getName().getString());
  return ref;
}

NbName NkBaseKit::getPartString(const NkBase* part) const {
  if (!part || !part->isOfType(NkNode::getClassTypeId())) return NbName();
  const auto* node = static_cast<const NkNode*>(part);
  const NkNodekitCatalog* catalog = getNodekitCatalog();
  const int own = partOfNode(node);
  if (own >= 0) return catalog->getName(own);
  for (int i = 0; i < catalog->getNumEntries(); ++i) {
    if (!catalog->isList(i) || !nodeAt(i)) continue;
    const int item = static_cast<const NkNodeKitListPart*>(nodeAt(i))->findItem(node);
    if (item >= 0) return NbName(std::string(catalog->getName(i).getString()) + "[" + std::to_string(item) + "]");
  }
  return NbName();
}

NkSFNode* NkBaseKit::holderAt(int part) const {
  const std::ptrdiff_t offset = getNodekitCatalog()->m_entries[static_cast<std::size_t>(part)].holderOffset;
  return reinterpret_cast<NkSFNode*>(reinterpret_cast<char*>(const_cast<NkBaseKit*>(this)) + offset);
}

NkSFNode* NkBaseKit::getPartHolder(int part) const {
  return part >= 0 && part < getNodekitCatalog()->getNumEntries() ? holderAt(part) : nullptr;
}

NkSFNode* NkBaseKit::getPartHolder(const NbName& partName) const {
  return getPartHolder(getNodekitCatalog()->getPartNumber(partName));
}

int NkBaseKit::partOfHolder(const NkField* field) const {
  const int count = getNodekitCatalog()->getNumEntries();
  for (int i = 0; i < count; ++i) {
    if (holderAt(i) == field) return i;
  }
  return -1;
}

int NkBaseKit::partOfNode(const NkNode* node) const {
  const int count = node ? getNodekitCatalog()->getNumEntries() : 0;
  for (int i = 0; i < count; ++i) {
    if (nodeAt(i) == node) return i;
  }
  return -1;
}

// Getting and setting parts

NkNode* NkBaseKit::getPart(const NbName& partName, bool makeIfNeeded) {
  return getAnyPart(partName, makeIfNeeded, false, true);
}

bool NkBaseKit::setPart(const NbName& partName, NkNode* node) { return setAnyPart(partName, node, false); }

NkNode* NkBaseKit::getAnyPart(const NbName& partName, bool makeIfNeeded, bool leafCheck, bool publicCheck) {
  const char* const operation = "NkBaseKit::getPart";
  // Making a part sets sensors off, whose callbacks may drop this kit and its parts.
  const arbora::KeepAlive alive(this);
  const PartRef ref = findPart(partName, operation);
  if (ref.part < 0) return nullptr;
  const NkNodekitCatalog* catalog = getNodekitCatalog();
  if (publicCheck && !catalog->isPublic(ref.part)) {
    NkDebugError::post(operation, "Part \"%s\" of %s isn't public", partName.getString(),
                       getTypeId().getName().getString());
    return nullptr;
  }
  if (leafCheck && !ref.rest && !catalog->isLeaf(ref.part)) {
    NkDebugError::post(operation, "Part \"%s\" of %s isn't a leaf", partName.getString(),
                       getTypeId().getName().getString());
    return nullptr;
  }
  arbora::Ref<NkNode> node(nodeAt(ref.part));
  if (!node && makeIfNeeded) node = arbora::Ref<NkNode>(makePart(ref.part));
  if (publicCheck) handOut(ref.part);
  if (node && ref.item >= 0)
    node = arbora::Ref<NkNode>(static_cast<NkNodeKitListPart*>(node.get())->getItem(ref.item, makeIfNeeded));
  if (!node || !ref.rest) return node.get();
  if (!node->isOfType(NkBaseKit::getClassTypeId())) {
    NkDebugError::post(operation, "\"%s\": what stands ahead of the dot is a %s and has no parts", partName.getString(),
                       node->getTypeId().getName().getString());
    return nullptr;
  }
  return static_cast<NkBaseKit*>(node.get())->getAnyPart(ref.rest, makeIfNeeded, leafCheck, publicCheck);
}

bool NkBaseKit::setAnyPart(const NbName& partName, NkNode* node, bool anyPart) {
  const char* const operation = "NkBaseKit::setPart";
  const arbora::KeepAlive alive(this);
  const arbora::Ref<NkNode> keep(node);
  const PartRef ref = findPart(partName, operation);
  if (ref.part < 0) return false;
  if (!anyPart && !getNodekitCatalog()->isPublic(ref.part)) {
    NkDebugError::post(operation, "Part \"%s\" of %s isn't public", partName.getString(),
                       getTypeId().getName().getString());
    return false;
  }
  if (ref.item < 0 && !ref.rest) {
    if (!checkPartType(ref.part, node, operation)) return false;
    putPart(ref.part, node);
    return true;
  }

  // Taking out what isn't there makes nothing.
  arbora::Ref<NkNode> outer(nodeAt(ref.part));
  if (!outer && !node) return true;
  if (!outer) outer = arbora::Ref<NkNode>(makePart(ref.part));
  if (!outer) return false;
  if (!anyPart) handOut(ref.part);
  if (ref.item >= 0) {
    auto* list = static_cast<NkNodeKitListPart*>(outer.get());
    if (!ref.rest) return list->setItem(ref.item, node);
    outer = arbora::Ref<NkNode>(list->getItem(ref.item, node != nullptr));
    if (!outer) return node == nullptr;
  }
  if (!outer->isOfType(NkBaseKit::getClassTypeId())) {
    NkDebugError::post(operation, "\"%s\": what stands ahead of the dot is a %s and has no parts", partName.getString(),
                       outer->getTypeId().getName().getString());
    return false;
  }
  return static_cast<NkBaseKit*>(outer.get())->setAnyPart(ref.rest, node, anyPart);
}

void NkBaseKit::handOut(int part) {
  // Who has it may change it: it's no longer just what the class makes.
  if (!nodeAt(part) || placed(part).origin != Placed::MADE) return;
  placed(part).origin = Placed::HANDED_OUT;
  holderAt(part)->setDefault(false);
}

bool NkBaseKit::fitsPart(int part, const NkNode* node) const {
  const NkNodekitCatalog* catalog = getNodekitCatalog();
  if (!node) return true;
  if (!node->isOfType(catalog->getType(part)) || node == this) return false;
  if (!catalog->isList(part)) return true;
  const auto* list = static_cast<const NkNodeKitListPart*>(node);
  return list->getContainerType() == catalog->getListContainerType(part) &&
         list->holdsOnly(catalog->getListItemType(part));
}

bool NkBaseKit::checkPartType(int part, const NkNode* node, const char* operation) const {
  if (fitsPart(part, node)) return true;
  const NkNodekitCatalog* catalog = getNodekitCatalog();
  NkDebugError::post(operation, "A %s can't be part \"%s\" of %s, which takes a %s%s%s",
                     node->getTypeId().getName().getString(), catalog->getName(part).getString(),
                     getTypeId().getName().getString(), catalog->getType(part).getName().getString(),
                     catalog->isList(part) ? " of items of type " : "",
                     catalog->isList(part) ? catalog->getListItemType(part).getName().getString() : "");
  return false;
}

NkNode* NkBaseKit::makePart(int part) {
  const arbora::KeepAlive alive(this);
  const NkNodekitCatalog* catalog = getNodekitCatalog();
  const arbora::Ref<NkNode> node(static_cast<NkNode*>(catalog->getDefaultType(part).createInstance()));
  if (!node) return nullptr;
  if (catalog->isList(part)) {
    auto* list = static_cast<NkNodeKitListPart*>(node.get());
    list->setContainerType(catalog->getListContainerType(part));
    list->addItemType(catalog->getListItemType(part));
  }
  putPart(part, node.get());
  // A sensor on the holder may have put something else there.
  if (nodeAt(part) == node.get()) {
    placed(part).origin = Placed::MADE;
    holderAt(part)->setDefault(true);
  }
  return nodeAt(part);
}

void NkBaseKit::putPart(int part, NkNode* node) {
  const arbora::KeepAlive alive(this);
  const arbora::Ref<NkNode> keep(node);
  placePart(part, node);
  // A callback may have put something else there.
  if (placed(part).node.get() != node) return;
  NkSFNode* holder = holderAt(part);
  const NkField* const outer = m_holder;
  m_holder = holder;
  holder->setValue(node);
  m_holder = outer;
}

// The tree of parts

NkBaseKit::Placed& NkBaseKit::placed(int part) {
  if (m_placed.empty()) m_placed.resize(static_cast<std::size_t>(getNodekitCatalog()->getNumEntries()));
  return m_placed[static_cast<std::size_t>(part)];
}

NkChildList* NkBaseKit::siblingsOf(int part, bool makeIfNeeded) {
  const int parent = getNodekitCatalog()->getParentPartNumber(part);
  if (parent < 0) return &m_children;
  NkNode* node = nodeAt(parent);
  if (!node && makeIfNeeded) node = makePart(parent);
  return node ? node->getChildren() : nullptr;
}

void NkBaseKit::insertInOrder(int part, NkNode* node, NkChildList& siblings) {
  const NkNodekitCatalog* catalog = getNodekitCatalog();
  for (int right = catalog->getRightSiblingPartNumber(part); right >= 0;
       right = catalog->getRightSiblingPartNumber(right)) {
    const int index = nodeAt(right) ? siblings.find(nodeAt(right)) : -1;
    if (index >= 0) {
      siblings.insert(node, index);
      return;
    }
  }
  siblings.append(node);
}

void NkBaseKit::placePart(int part, NkNode* node) {
  const arbora::Ref<NkNode> keep(node);
  NkChildList* siblings = siblingsOf(part, node != nullptr);
  const arbora::Ref<NkNode> previous(placed(part).node);
  placed(part) = Placed{arbora::Ref<NkNode>(node), Placed::PUT};
  if (siblings) {
    const int oldIndex = previous ? siblings->find(previous.get()) : -1;
    const int newIndex = node ? siblings->find(node) : -1;
    if (newIndex >= 0) {
      // It has come with its parent, from a file for instance, and stays where it is.
      if (oldIndex >= 0 && oldIndex != newIndex) siblings->remove(oldIndex);
    } else if (oldIndex >= 0 && node) {
      siblings->set(oldIndex, node);
    } else if (oldIndex >= 0) {
      siblings->remove(oldIndex);
    } else if (node) {
      insertInOrder(part, node, *siblings);
    }
  }
  const arbora::Ref<NkNode> current(placed(part).node);
  if (previous.get() != current.get() && !getNodekitCatalog()->isLeaf(part))
    placePartsBelow(part, previous.get(), current.get());
}

void NkBaseKit::placePartsBelow(int part, NkNode* previous, NkNode* node) {
  // Parts move with their parent's place: into the node that is their parent now, and out with it.
  const NkNodekitCatalog* catalog = getNodekitCatalog();
  for (std::size_t i = 0; i < catalog->m_entries.size(); ++i) {
    if (catalog->m_entries[i].parent != part) continue;
    const int below = static_cast<int>(i);
    const arbora::Ref<NkNode> child(nodeAt(below));
    if (!child) continue;
    if (!node) {
      putPart(below, nullptr);
      continue;
    }
    NkChildList* before = previous ? previous->getChildren() : nullptr;
    const int index = before ? before->find(child.get()) : -1;
    if (index >= 0) before->remove(index);
    if (node->getChildren()->find(child.get()) < 0) insertInOrder(below, child.get(), *node->getChildren());
  }
}

void NkBaseKit::fieldHasChanged(NkField* field) {
  NkNode::fieldHasChanged(field);
  // A holder that was written from outside, by a reader for instance: the tree follows. A copy under construction gets
  // its tree at its end.
  if (field == m_holder || field->getTypeId() != NkSFNode::getClassTypeId() || isCopying()) return;
  auto* holder = static_cast<NkSFNode*>(field);
  const int part = holder->isPartHolder() ? partOfHolder(field) : -1;
  if (part < 0 || placed(part).node.get() == holder->getValue()) return;
  const arbora::KeepAlive alive(this);
  if (!checkPartType(part, holder->getValue(), "NkBaseKit::setPart")) {
    putPart(part, placed(part).node.get());
    return;
  }
  // The part's parents are made first: in the callbacks of that the holder may be written again.
  siblingsOf(part, holder->getValue() != nullptr);
  if (placed(part).node.get() != holder->getValue()) placePart(part, holder->getValue());
}

bool NkBaseKit::validateNewFieldValue(NkField* field, void* newValue) {
  const int part = partOfHolder(field);
  return part < 0 || fitsPart(part, static_cast<const NkNode*>(newValue));
}

void NkBaseKit::copyContents(const NkNode* original) {
  NkNode::copyContents(original);
  const auto* kit = static_cast<const NkBaseKit*>(original);
  const NkChildList& children = kit->m_children;
  m_children.truncate(0);
  m_placed.clear();
  for (int i = 0; i < children.getLength(); ++i) {
    const int part = kit->partOfNode(children[i]);
    if (part >= 0 && !kit->isCopied(*kit->holderAt(part))) continue;
    if (NkNode* child = copyOf(children[i])) m_children.append(child);
  }
  // The holders have the copies of the parts already. They stand in the copied tree, or a part of their own kind is
  // made for them to stand in.
  const NkNodekitCatalog* catalog = getNodekitCatalog();
  for (int i = 0; i < catalog->getNumEntries(); ++i) {
    if (!nodeAt(i) || kit->m_placed.empty()) continue;
    const int parent = catalog->getParentPartNumber(i);
    if (parent >= 0 && !kit->isCopied(*kit->holderAt(parent))) placePart(i, nodeAt(i));
    placed(i) = Placed{arbora::Ref<NkNode>(nodeAt(i)), kit->m_placed[static_cast<std::size_t>(i)].origin};
  }
}

// Children

void NkBaseKit::addChild(NkNode* child) { internalAddChild(child); }

void NkBaseKit::insertChild(NkNode* child, int index) { internalInsertChild(child, index); }

NkNode* NkBaseKit::getChild(int index) const { return internalGetChild(index); }

int NkBaseKit::findChild(const NkNode* child) const { return internalFindChild(child); }

int NkBaseKit::getNumChildren() const { return m_children.getLength(); }

void NkBaseKit::removeChild(int index) { internalRemoveChild(index); }

void NkBaseKit::removeChild(NkNode* child) { internalRemoveChild(child); }

void NkBaseKit::removeAllChildren() { internalRemoveAllChildren(); }

void NkBaseKit::replaceChild(int index, NkNode* child) { internalReplaceChild(index, child); }

void NkBaseKit::replaceChild(NkNode* oldChild, NkNode* newChild) { internalReplaceChild(oldChild, newChild); }

bool NkBaseKit::checkIndex(const char* operation, int index, int last) const {
  if (index >= 0 && index <= last) return true;
  NkDebugError::post(operation, "Index %d is out of range %d - %d", index, 0, last);
  return false;
}

void NkBaseKit::internalAddChild(NkNode* child) {
  if (!child)
    NkDebugError::post("NkBaseKit::addChild", "NULL child node");
  else
    m_children.append(child);
}

void NkBaseKit::internalInsertChild(NkNode* child, int index) {
  if (!child)
    NkDebugError::post("NkBaseKit::insertChild", "NULL child node");
  else if (checkIndex("NkBaseKit::insertChild", index, getNumChildren()))
    m_children.insert(child, index);
}

NkNode* NkBaseKit::internalGetChild(int index) const {
  return checkIndex("NkBaseKit::getChild", index, getNumChildren() - 1) ? m_children[index] : nullptr;
}

int NkBaseKit::internalFindChild(const NkNode* child) const { return m_children.find(child); }

void NkBaseKit::internalRemoveChild(int index) {
  if (!checkIndex("NkBaseKit::removeChild", index, getNumChildren() - 1)) return;
  const int part = partOfNode(m_children[index]);
  if (part >= 0)
    putPart(part, nullptr);
  else
    m_children.remove(index);
}

void NkBaseKit::internalRemoveChild(NkNode* child) { internalRemoveChild(m_children.find(child)); }

void NkBaseKit::internalRemoveAllChildren() {
  const arbora::KeepAlive alive(this);
  for (int i = getNumChildren() - 1; i >= 0; --i) {
    if (i < getNumChildren()) internalRemoveChild(i);
  }
}

void NkBaseKit::internalReplaceChild(int index, NkNode* child) {
  const char* const operation = "NkBaseKit::replaceChild";
  if (!child) {
    NkDebugError::post(operation, "NULL child node");
  } else if (checkIndex(operation, index, getNumChildren() - 1)) {
    const int part = partOfNode(m_children[index]);
    if (part < 0)
      m_children.set(index, child);
    else if (checkPartType(part, child, operation))
      putPart(part, child);
  }
}

void NkBaseKit::internalReplaceChild(NkNode* oldChild, NkNode* newChild) {
  internalReplaceChild(m_children.find(oldChild), newChild);
}

// Traversal

bool NkBaseKit::affectsState() const { return m_children.affectsState(); }

void NkBaseKit::doAction(NkAction* action) { m_children.traverse(action); }

void NkBaseKit::getMatrix(NkGetMatrixAction* action) {
  // What a search doesn't find is no end.
  if (!action->isGoingToEnd() || isSearchingChildren()) doAction(action);
}

void NkBaseKit::GLRender(NkGLRenderAction* action) {
  // A kit may make its content when it is measured.
  NkGetBoundingBoxAction::measureWithin(*action, this);
  doAction(action);
}

void NkBaseKit::rayPick(NkRayPickAction* action) {
  doAction(action);
  const int depth = action->getCurPathLength();
  for (int i = 0; i < action->getPickedPointsListLength(); ++i) attachDetail(*action->getUnsortedPickedPoint(i), depth);
}

void NkBaseKit::attachDetail(NkPickedPoint& point, int depth) {
  NkFullPath* path = point.getPath()->full();
  if (path->getNode(depth - 1) != this) return;
  // Kits further out come later, so that the public end is at the outermost one.
  path->setNumPublic(depth);
  if (point.getDetail(this)) return;
  auto detail = std::make_unique<NkNodeKitDetail>();
  detail->setNodeKit(this);
  for (int i = path->getLength() - 1; i >= depth; --i) {
    const NbName name = getPartString(path->getNode(i));
    if (!name || !getNodekitCatalog()->isPublic(findPart(name, "NkBaseKit::rayPick").part)) continue;
    detail->setPart(path->getNode(i));
    detail->setPartName(name);
    break;
  }
  point.setDetail(detail.release(), this);
}

bool NkBaseKit::isSearchingChildren() { return s_searchingChildren; }

void NkBaseKit::setSearchingChildren(bool flag) { s_searchingChildren = flag; }

void NkBaseKit::search(NkSearchAction* action) {
  NkNode::search(action);
  if (action->isFound() || !isSearchingChildren()) return;
  const int pathsBefore = action->getPaths().getLength();
  doAction(action);
  const int depth = action->getCurPathLength();
  const auto endAtThis = [&](NkPath* path) {
    if (path && path->full()->getLength() > depth && path->getNode(depth - 1) == this) path->setNumPublic(depth);
  };
  if (action->getInterest() == NkSearchAction::ALL) {
    for (int i = pathsBefore; i < action->getPaths().getLength(); ++i) endAtThis(action->getPaths()[i]);
  } else {
    endAtThis(action->getPath());
  }
}

// Writing

bool NkBaseKit::isAsMade(NkNode* node) const {
  if (!!node->getName()) return false;
  if (node->isOfType(NkNodeKitListPart::getClassTypeId()))
    return static_cast<NkNodeKitListPart*>(node)->getNumItems() == 0;
  const bool isKit = node->isOfType(NkBaseKit::getClassTypeId());
  if (isKit) static_cast<NkBaseKit*>(node)->setDefaultOnNonWritingFields();
  if (!node->hasDefaultValues()) return false;
  const NkBaseKit* owner = isKit ? static_cast<NkBaseKit*>(node) : this;
  const NkChildList* children = node->getChildren();
  for (int i = 0; children && i < children->getLength(); ++i) {
    if (owner->partOfNode((*children)[i]) < 0) return false;
  }
  return true;
}

void NkBaseKit::setDefaultOnNonWritingFields() {
  if (m_placed.empty()) return;
  const NkNodekitCatalog* catalog = getNodekitCatalog();
  for (int part = 0; part < catalog->getNumEntries(); ++part) {
    NkSFNode* holder = holderAt(part);
    if (!holder->getValue()) continue;
    if (placed(part).origin == Placed::HANDED_OUT) holder->setDefault(isAsMade(holder->getValue()));
    if (isWritten(*holder)) holder->setDefault(false);
  }
}

bool NkBaseKit::isWritten(const NkField& field) const {
  if (!field.isDefault()) return true;
  // A parent is written with its children. A part among them is then told by its name too, else a reader would take it
  // for a node that just stands there.
  const int part = partOfHolder(&field);
  const int parent = part < 0 ? -1 : getNodekitCatalog()->getParentPartNumber(part);
  return parent >= 0 && isWritten(*holderAt(parent));
}

void NkBaseKit::addWriteReference(NkOutput* out, bool fromField) {
  if (!fromField && shouldWrite() == 0) setDefaultOnNonWritingFields();
  NkNode::addWriteReference(out, fromField);
}

void NkBaseKit::endWrite(NkOutput* out) const { writeFooter(out); }
