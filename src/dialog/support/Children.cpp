#include <algorithm>
#include <memory>
#include <string>
#include <unordered_set>
#include <vector>

#include "Panelix/Container.h"
#include "arbora/scene/NkChildList.h"
#include "arbora/scene/NkDBImpl.h"
#include "arbora/scene/NkGetBoundingBoxAction.h"
#include "arbora/scene/NkNodeKitDetail.h"
#include "arbora/scene/NkOutputImpl.h"
#include "arbora/scene/NkPath.h"
#include "arbora/scene/NkPickedPoint.h"
#include "arbora/scene/NkRayPickAction.h"
#include "arbora/scene/NkSearchAction.h"

namespace panelix {

// Changes

namespace {

/// True if `node` is `below`, or above it by any of the parents of a node.
bool isOrHolds(const NkNode* node, NkNode* below) {
  std::vector<NkNode*> chain{below};
  std::unordered_set<const NkNode*> seen{below};
  for (std::size_t i = 0; i < chain.size(); ++i) {
    if (chain[i] == node) return true;
    chain[i]->getParents().forEach([&](NkNode* parent) {
      if (seen.insert(parent).second) chain.push_back(parent);
    });
  }
  return false;
}

} // namespace

NkPanelix* Children::get(int index) const {
  if (index >= m_num) {
    postOutOfRange("getChild", m_rules.getChildMessage, index, m_rules.endsAtNumber ? m_num : m_num - 1);
    return nullptr;
  }
  return static_cast<NkPanelix*>(list().get(index));
}

int Children::find(const NkPanelix* child) const {
  for (int i = 0; i < m_num; ++i) {
    if (list()[i] == child) return i;
  }
  return -1;
}

bool Children::insert(NkPanelix* child, int index, const char* operation) {
  if (!checkChild(child, operation) || !checkIndex(index, m_num, operation)) return false;
  // The list comes last: what hears of it finds all in order.
  come(index);
  child->setParent(m_owner);
  list().insert(child, index);
  return true;
}

bool Children::remove(int index) {
  if (!checkIndex(index, m_num - 1, "removeChild") || !endWindows(index)) return false;
  leave(index);
  list().remove(index);
  return true;
}

bool Children::replace(int index, NkPanelix* child) {
  if (!checkIndex(index, m_num - 1, "replaceChild") || !checkChild(child, "replaceChild") || !endWindows(index))
    return false;
  leave(index);
  come(index);
  child->setParent(m_owner);
  list().set(index, child);
  return true;
}

void Children::clear() {
  for (int i = m_num - 1; i >= 0; i = std::min(i, m_num) - 1) endWindows(i);
  while (m_num > 0) leave(m_num - 1);
  list().truncate(0);
}

void Children::takeOver(int num) {
  m_num = num;
  for (int i = 0; i < m_num; ++i) get(i)->setParent(m_owner);
}

/// Destroys the windows of a child; false if that has led to the child's end in its place.
bool Children::endWindows(int index) {
  const arbora::Ref<NkPanelix> child(get(index));
  child->destroyWidget();
  return index < m_num && list()[index] == child.get();
}

bool Children::checkChild(const NkPanelix* child, const char* operation) const {
  const char* message = nullptr;
  if (!child)
    message = kNullChild;
  else if (child->isGroup() && isOrHolds(child, m_owner))
    message = kHoldsContainer;
  if (message) NkDebugError::post(locationOf(operation).c_str(), "%s", message);
  return message == nullptr;
}

bool Children::checkIndex(int index, int last, const char* operation) const {
  if (index >= 0 && index <= last) return true;
  postOutOfRange(operation, kOutOfRange, index, last);
  return false;
}

std::string Children::locationOf(const char* operation) const {
  return std::string(m_rules.className) + "::" + operation;
}

void Children::postOutOfRange(const char* operation, const char* message, int index, int last) const {
  NkDebugError::post(locationOf(operation).c_str(), message, index, 0, last);
}

// Walks

void Children::come(int index) {
  ++m_num;
  for (Walk* walk = m_walk; walk; walk = walk->m_outer) walk->come(index);
}

void Children::leave(int index) {
  --m_num;
  for (Walk* walk = m_walk; walk; walk = walk->m_outer) walk->leave(index);
}

Children::Walk::Walk(const Children& children) : m_children(children), m_outer(children.m_walk), m_end(children.m_num) {
  children.m_walk = this;
}

Children::Walk::~Walk() { m_children.m_walk = m_outer; }

NkPanelix* Children::Walk::next() {
  while (m_next < m_end) {
    const int index = m_next++;
    if (std::erase(m_newcomers, index) == 0) return static_cast<NkPanelix*>(m_children.list()[index]);
  }
  return nullptr;
}

void Children::Walk::come(int index) {
  if (index >= m_end) return;
  ++m_end;
  for (int& newcomer : m_newcomers) newcomer += newcomer >= index ? 1 : 0;
  if (index < m_next)
    ++m_next;
  else
    m_newcomers.push_back(index);
}

void Children::Walk::leave(int index) {
  if (index >= m_end) return;
  --m_end;
  std::erase(m_newcomers, index);
  for (int& newcomer : m_newcomers) newcomer -= newcomer > index ? 1 : 0;
  if (index < m_next) --m_next;
}

// Ways through

void Children::writeChildren(NkWriteAction* action) const {
  NkOutput* out = action->getOutput();
  const bool writesNone =
      m_rules.staysAloneInCluster &&
      ((NkOutputImpl::isSynchronizing(out) && NkDBImpl::isRunningCluster()) || NkDBImpl::isRunningART());
  const int last = writesNone ? -1 : action->getLastChild(m_num);
  if (out->isBinary()) {
    int count = 0;
    for (int i = 0; i <= last; ++i) count += list()[i]->shouldWrite() > 0 ? 1 : 0;
    out->write(count);
  }
  for (int i = 0; i <= last; ++i) {
    if (list()[i]->shouldWrite() != 0) action->traverseChild(list()[i], i);
  }
}

namespace {

/// Index of the last toolkit node of a path; -1 if there is none.
int lastPanelix(const NkFullPath& path) {
  int i = path.getLength() - 1;
  while (i >= 0 && !path.getNode(i)->isOfType(NkPanelix::getClassTypeId())) --i;
  return i;
}

/// Ends a path, for the public, at its last toolkit node.
void endAtComponent(NkPath* path) {
  if (!path) return;
  const int last = lastPanelix(*path->full());
  if (last >= 0) path->setNumPublic(last + 1);
}

} // namespace

void Children::search(NkSearchAction* action) const {
  if (!NkBaseKit::isSearchingChildren() || action->isFound()) return;
  list().traverse(action, 0, list().getLength() - 2);
  if (action->getInterest() == NkSearchAction::ALL) {
    NkPathList& paths = action->getPaths();
    for (int i = 0; i < paths.getLength(); ++i) endAtComponent(paths[i]);
  }
  if (action->isFound()) {
    endAtComponent(action->getPath());
    return;
  }
  list().traverse(action, list().getLength() - 1, list().getLength() - 1);
}

void Children::rayPick(NkRayPickAction* action) const {
  if (!m_owner->isBuilt3D()) NkGetBoundingBoxAction::measureWithin(*action, m_owner);
  list().traverse(action, 0, m_num);
  if (action->getPickedPointsListLength() == 0) list().traverse(action, m_num - 1, m_num - 1);
  for (int i = 0; i < action->getPickedPointsListLength(); ++i) {
    NkPickedPoint* point = action->getUnsortedPickedPoint(i);
    NkFullPath* path = point->getPath()->full();
    const int last = lastPanelix(*path);
    if (last < 0) continue;
    path->setNumPublic(last + 1);
    auto* component = static_cast<NkPanelix*>(path->getNode(last));
    if (point->getDetail(component)) continue;
    auto detail = std::make_unique<NkNodeKitDetail>();
    detail->setNodeKit(component);
    for (int k = path->getLength() - 1; k >= 0; --k) {
      const NbName part = m_owner->getPartString(path->getNode(k));
      if (!part || !m_owner->getNodekitCatalog()->isPublic(part)) continue;
      detail->setPart(path->getNode(k));
      detail->setPartName(part);
      break;
    }
    point->setDetail(detail.release(), component);
  }
}

} // namespace panelix
