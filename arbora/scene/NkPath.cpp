#include "arbora/scene/NkPath.h"

#include <algorithm>

#include "arbora/base/NkDebugError.h"
#include "arbora/scene/NkChildList.h"

NkType NkPath::s_classTypeId;

NkPath::~NkPath() = default;

NkType NkPath::getClassTypeId() { return s_classTypeId; }

NkType NkPath::getTypeId() const { return s_classTypeId; }

void NkPath::initClass() {
  s_classTypeId = NkType::createType(NkBase::getClassTypeId(), "Path", [] { return static_cast<NkBase*>(create()); });
}

void NkPath::exitClass() {
  NkType::removeType("Path");
  s_classTypeId = NkType::badType();
}

NkFullPath* NkPath::create() { return new NkFullPath; }

NkFullPath* NkPath::create(NkNode* head) {
  NkFullPath* path = create();
  path->setHead(head);
  return path;
}

void NkPath::setHead(NkNode* head) {
  m_nodes.clear();
  m_numPublic = -1;
  if (head) appendUnchecked(head, -1);
}

bool NkPath::append(int childIndex) {
  const NkNode* tail = m_nodes.empty() ? nullptr : m_nodes.back().node.get();
  const NkChildList* children = tail ? tail->getChildren() : nullptr;
  NkNode* child = children ? children->get(childIndex) : nullptr;
  if (!child) {
    NkDebugError::post("NkPath::append", "The tail has no child %d", childIndex);
    return false;
  }
  appendUnchecked(child, childIndex);
  return true;
}

bool NkPath::append(NkNode* child) {
  const NkNode* tail = m_nodes.empty() ? nullptr : m_nodes.back().node.get();
  const NkChildList* children = tail ? tail->getChildren() : nullptr;
  const int index = children && child ? children->find(child) : -1;
  if (index < 0) {
    NkDebugError::post("NkPath::append", "The node is no child of the tail");
    return false;
  }
  appendUnchecked(child, index);
  return true;
}

void NkPath::appendUnchecked(NkNode* node, int index) { m_nodes.push_back({arbora::Ref<NkNode>(node), index}); }

void NkPath::truncate(int length) {
  if (length < fullLength())
    m_nodes.resize(static_cast<std::size_t>(std::max(length, 0)), Step{arbora::Ref<NkNode>(), -1});
  if (m_numPublic >= fullLength()) m_numPublic = -1;
}

NkNode* NkPath::getNode(int index) const {
  return index >= 0 && index < fullLength() ? m_nodes[static_cast<std::size_t>(index)].node.get() : nullptr;
}

int NkPath::getIndex(int index) const {
  return index >= 0 && index < fullLength() ? m_nodes[static_cast<std::size_t>(index)].index : -1;
}

void NkPath::setNumPublic(int count) { m_numPublic = count < 0 || count >= fullLength() ? -1 : count; }

int NkPath::findNode(const NkNode* node) const {
  const auto it =
      std::find_if(m_nodes.begin(), m_nodes.end(), [node](const Step& step) { return step.node.get() == node; });
  return it == m_nodes.end() ? -1 : static_cast<int>(it - m_nodes.begin());
}

bool NkPath::containsNode(const NkNode* node) const { return node && findNode(node) >= 0; }

bool NkPath::containsPath(const NkPath* path) const {
  if (!path || path->m_nodes.empty()) return false;
  const int start = findNode(path->getHead());
  if (start < 0 || start + path->fullLength() > fullLength()) return false;
  for (int i = 1; i < path->fullLength(); ++i) {
    if (getNode(start + i) != path->getNode(i) || getIndex(start + i) != path->getIndex(i)) return false;
  }
  return true;
}

bool NkPath::isIntact() const {
  for (int i = 1; i < fullLength(); ++i) {
    const NkChildList* children = getNode(i - 1)->getChildren();
    if (!children || children->find(getNode(i), getIndex(i)) < 0) return false;
  }
  return true;
}

NkFullPath* NkPath::full() { return static_cast<NkFullPath*>(this); }

const NkFullPath* NkPath::full() const { return static_cast<const NkFullPath*>(this); }

NkFullPath* NkPath::copy() const {
  NkFullPath* path = create();
  path->m_nodes = m_nodes;
  path->m_numPublic = m_numPublic;
  return path;
}

bool operator==(const NkPath& a, const NkPath& b) {
  return std::equal(
      a.m_nodes.begin(), a.m_nodes.end(), b.m_nodes.begin(), b.m_nodes.end(),
      [](const NkPath::Step& x, const NkPath::Step& y) { return x.node.get() == y.node.get() && x.index == y.index; });
}

NkPath* NkPathList::operator[](int index) const {
  return index >= 0 && index < getLength() ? m_paths[static_cast<std::size_t>(index)].get() : nullptr;
}

void NkPathList::truncate(int length) {
  if (length < getLength()) m_paths.resize(static_cast<std::size_t>(std::max(length, 0)));
}

std::vector<NkPathList> NkPathList::splitByHead() const {
  std::vector<NkPathList> lists;
  for (const arbora::Ref<NkPath>& path : m_paths) {
    NkNode* head = path ? path->getHead() : nullptr;
    if (!head) continue;
    auto list =
        std::find_if(lists.begin(), lists.end(), [head](const NkPathList& each) { return each[0]->getHead() == head; });
    if (list == lists.end()) list = lists.emplace(lists.end());
    list->append(path.get());
  }
  return lists;
}
