#include "arbora/scene/NkInteractionKit.h"

#include "arbora/base/NkDebugError.h"
#include "arbora/scene/NkPath.h"
#include "arbora/scene/NkSeparator.h"
#include "arbora/scene/NkSwitch.h"

NK_KIT_SOURCE(NkInteractionKit, NkBaseKit, "InteractionKit");

NkInteractionKit::NkInteractionKit() {
  NK_KIT_CONSTRUCTOR(NkInteractionKit);
  NK_KIT_ADD_CATALOG_ENTRY(topSeparator, NkSeparator, true, "this", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(geomSeparator, NkSeparator, true, "topSeparator", "", false);
  NK_KIT_INIT_INSTANCE();
}

NkInteractionKit::~NkInteractionKit() = default;

void NkInteractionKit::setSwitchValue(NkNode* node, int whichChild) {
  if (!node || !node->isOfType(NkSwitch::getClassTypeId())) return;
  auto* switchNode = static_cast<NkSwitch*>(node);
  if (switchNode->whichChild.getValue() != whichChild) switchNode->whichChild = whichChild;
}

// Default parts

bool NkInteractionKit::setPartAsDefault(const NbName& partName, NkNode* node, bool onlyIfAlready) {
  NkSFNode* holder = getPartHolder(partName);
  if (!holder || !node || (onlyIfAlready && !holder->isDefault())) return false;
  const arbora::KeepAlive alive(this);
  if (!setAnyPart(partName, node)) return false;
  holder->setDefault(true);
  return true;
}

bool NkInteractionKit::setPartAsDefault(const NbName& partName, const NbName& nodeName, bool onlyIfAlready) {
  return setPartAsDefault(partName, NkNode::getByName(nodeName), onlyIfAlready);
}

// Traversal

bool NkInteractionKit::keepsBox() const {
  // The separator of a kit without further children keeps its box. What follows a kit may depend on a part that an
  // application has put beside the separator.
  return getChildren()->getLength() > 1 && !affectsState();
}

bool NkInteractionKit::dropCaches(NkNotification& notification) {
  if (m_box) m_box->drop();
  return NkBaseKit::dropCaches(notification);
}

void NkInteractionKit::getBoundingBox(NkGetBoundingBoxAction* action) {
  const auto traverse = [&] { NkBaseKit::getBoundingBox(action); };
  if (!keepsBox()) {
    traverse();
    return;
  }
  if (!m_box) m_box = std::make_unique<arbora::BoxCache>();
  // The kit may just have been built, of which it has told nobody.
  arm();
  m_box->extend(action, traverse);
}

bool NkInteractionKit::isMissed(NkRayPickAction* action) {
  if (!keepsBox()) return false;
  if (!m_box) m_box = std::make_unique<arbora::BoxCache>();
  return m_box->isMissed(action, this);
}

void NkInteractionKit::rayPick(NkRayPickAction* action) {
  if (!isMissed(action)) NkBaseKit::rayPick(action);
}

void NkInteractionKit::handleEvent(NkHandleEventAction* action) {
  const auto traverse = [&] { NkBaseKit::handleEvent(action); };
  if (affectsState())
    traverse();
  else
    action->visitContent(this, m_learnt, traverse);
}

// Surrogates

bool NkInteractionKit::setPartAsPath(const NbName& partName, NkPath* surrogate) {
  const arbora::Ref<NkPath> keep(surrogate);
  // The part's own node goes, and with it an older surrogate.
  const arbora::KeepAlive alive(this);
  if (!setAnyPart(partName, nullptr, false)) return false;
  if (!surrogate || !surrogate->getHead()) return true;
  Surrogate entry;
  entry.part = partName;
  const NkFullPath* full = surrogate->full();
  for (int i = 0; i < full->getLength(); ++i) entry.nodes.push_back(full->getNode(i));
  entry.tail = arbora::Ref<NkNode>(full->getTail());
  if (!m_surrogates) m_surrogates = std::make_unique<std::vector<Surrogate>>();
  m_surrogates->push_back(std::move(entry));
  touch();
  return true;
}

void NkInteractionKit::removeSurrogate(const NbName& partName) {
  if (m_surrogates)
    std::erase_if(*m_surrogates, [&](const Surrogate& surrogate) { return surrogate.part == partName; });
}

bool NkInteractionKit::setAnyPart(const NbName& partName, NkNode* node, bool anyPart) {
  const arbora::KeepAlive alive(this);
  if (!NkBaseKit::setAnyPart(partName, node, anyPart)) return false;
  removeSurrogate(partName);
  return true;
}

arbora::Ref<NkPath> NkInteractionKit::findSurrogate(NkPath* pickPath) const {
  if (!m_surrogates || !pickPath) return {};
  for (const Surrogate& surrogate : *m_surrogates) {
    const int start = pickPath->findNode(surrogate.nodes.front());
    const int length = static_cast<int>(surrogate.nodes.size());
    if (start < 0) continue;
    int same = 0;
    while (same < length && pickPath->getNode(start + same) == surrogate.nodes[static_cast<std::size_t>(same)]) ++same;
    if (same < length) continue;
    arbora::Ref<NkPath> found(pickPath->copy());
    found->truncate(start + length);
    found->setNumPublic(-1);
    return found;
  }
  return {};
}

// Connections

bool NkInteractionKit::setUpConnections(bool onOff, bool) {
  const bool previous = m_connectionsSetUp;
  m_connectionsSetUp = onOff;
  return previous;
}

bool NkInteractionKit::readInstance(NkInput* in, unsigned short flags) {
  // What is read must not run through connections to parts that the file is about to replace.
  const bool connected = setUpConnections(false, true);
  const bool good = NkBaseKit::readInstance(in, flags);
  setUpConnections(connected, true);
  return good;
}

void NkInteractionKit::copyContents(const NkNode* original) {
  NkBaseKit::copyContents(original);
  // The parts are other nodes now.
  setUpConnections(m_connectionsSetUp, true);
}
