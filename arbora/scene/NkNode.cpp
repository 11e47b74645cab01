#include "arbora/scene/NkNode.h"

#include <algorithm>
#include <utility>

#include "arbora/base/NkDebugError.h"
#include "arbora/scene/NameTable.h"
#include "arbora/scene/NkAction.h"
#include "arbora/scene/NkChildList.h"
#include "arbora/scene/NkFieldData.h"
#include "arbora/scene/NkMField.h"
#include "arbora/scene/NkNodeSensor.h"

// Parents

namespace arbora {

void ParentList::add(NkNode* parent) {
  if (isEmpty()) {
    m_first = parent;
    return;
  }
  if (!m_more) m_more = std::make_unique<More>();
  if (m_more->many.empty() && m_more->few.size() < kFew)
    m_more->few.push_back(parent);
  else
    ++m_more->many[parent];
}

void ParentList::remove(NkNode* parent) {
  if (m_more) {
    auto& [few, many] = *m_more;
    const auto it = many.find(parent);
    if (it != many.end()) {
      if (--it->second == 0) many.erase(it);
      return;
    }
    const auto last = std::find(few.rbegin(), few.rend(), parent);
    if (last != few.rend()) {
      few.erase(std::next(last).base());
      return;
    }
  }
  if (m_first == parent) m_first = nullptr;
}

} // namespace arbora

// Notifications on their way

namespace {

NkNotification* s_innermost = nullptr;
std::uint64_t s_stamp = 0;

} // namespace

NkNotification::NkNotification() : stamp(nextStamp()), m_outer(s_innermost) { s_innermost = this; }

std::uint64_t NkNotification::nextStamp() { return ++s_stamp; }

NkNotification::~NkNotification() { s_innermost = m_outer; }

void NkNotification::setOffSensors() {
  for (std::size_t i = 0; i < m_sensors.size(); ++i) {
    if (m_sensors[i]) m_sensors[i]->notify(*this);
  }
}

void NkNotification::forget(NkDataSensor* sensor) {
  for (NkNotification* notification = s_innermost; notification; notification = notification->m_outer)
    std::replace(notification->m_sensors.begin(), notification->m_sensors.end(), sensor,
                 static_cast<NkDataSensor*>(nullptr));
}

// Node

namespace {

// Levels that a notification climbs on the call stack; from there it starts anew.
constexpr int kMaxClimb = 1000;
int s_nextActionMethodIndex = 0;
const NkFieldData* s_noFields = nullptr;

/// The nodes that a field holds.
template <class F>
void forEachNodeIn(const NkField& field, F&& f) {
  if (field.getTypeId() == NkSFNode::getClassTypeId()) {
    if (NkNode* node = static_cast<const NkSFNode&>(field).getValue()) f(node);
  } else if (field.getTypeId() == NkMFNode::getClassTypeId()) {
    const auto& nodes = static_cast<const NkMFNode&>(field);
    for (int i = 0; i < nodes.getNum(); ++i) {
      if (nodes[i]) f(nodes[i]);
    }
  }
}

} // namespace

NkType NkNode::s_classTypeId;

// An id of its own from the start: caches compare ids of nodes that may have taken the place of dead ones.
NkNode::NkNode() { m_changeId = NkNotification::nextStamp(); }

NkNode::~NkNode() = default;

NkType NkNode::getClassTypeId() { return s_classTypeId; }

void NkNode::initClass() { s_classTypeId = NkType::createType(NkFieldContainer::getClassTypeId(), "Node"); }

void NkNode::exitClass() {
  NkType::removeType("Node");
  s_classTypeId = NkType::badType();
}

const NkFieldData** NkNode::getFieldDataPtr() { return &s_noFields; }

const NkFieldData* NkNode::getFieldData() const { return s_noFields; }

int NkNode::getNextActionMethodIndex() { return s_nextActionMethodIndex; }

void NkNode::incNextActionMethodIndex() { ++s_nextActionMethodIndex; }

NkNode* NkNode::getByName(const NbName& name) {
  const auto& objects = arbora::NameTable::get().find(name);
  for (auto it = objects.rbegin(); it != objects.rend(); ++it) {
    if ((*it)->isOfType(s_classTypeId) && !(*it)->isDying()) return static_cast<NkNode*>(*it);
  }
  return nullptr;
}

int NkNode::getByName(const NbName& name, NkNodeList& nodes) {
  int count = 0;
  const auto& objects = arbora::NameTable::get().find(name);
  for (auto it = objects.rbegin(); it != objects.rend(); ++it) {
    if ((*it)->isOfType(s_classTypeId) && !(*it)->isDying()) {
      nodes.append(static_cast<NkNode*>(*it));
      ++count;
    }
  }
  return count;
}

// Traversal

void NkNode::doAction(NkAction*) {}

bool NkNode::affectsState() const { return true; }

NkChildList* NkNode::getChildren() const { return nullptr; }

// Notification

void NkNode::addParent(NkNode* parent) { m_parents.add(parent); }

void NkNode::removeParent(NkNode* parent) { m_parents.remove(parent); }

void NkNode::touch() { childrenChanged(); }

void NkNode::childrenChanged(NkNode* added) {
  const arbora::KeepAlive alive(this);
  NkNotification notification;
  notification.origin = this;
  const bool depends = notifyAll(notification);
  m_changeId = notification.stamp;
  // Ahead of the callbacks, which may take the child out again.
  if (depends && added) added->armSubgraph();
  notification.setOffSensors();
}

void NkNode::notifyAbove(NkNotification& notification) {
  notification.origin = this;
  m_changeId = notification.stamp;
  // What depends on this node depends on the nodes that have come into its fields, too.
  if (notifyAll(notification)) forEachNodeIn(*notification.field, [](NkNode* node) { node->armSubgraph(); });
}

bool NkNode::dropCaches(NkNotification&) { return false; }

bool NkNode::notifyAll(NkNotification& notification) {
  bool depends = notify(notification);
  while (!notification.waiting.empty()) {
    const NkNotification::Waiting next = notification.waiting.back();
    notification.waiting.pop_back();
    notification.silent = next.silent;
    notification.drawn = next.drawn;
    depends |= next.node->notify(notification);
  }
  return depends;
}

bool NkNode::notify(NkNotification& notification) {
  if (!m_armed) return false;
  // A change that comes by several ways is passed on once, unless a later way has more to tell.
  const bool again = m_stamp == notification.stamp;
  if (again && m_toldSilent <= notification.silent && m_toldDrawn <= notification.drawn) return true;
  if (notification.depth == kMaxClimb) {
    notification.waiting.push_back({this, notification.silent, notification.drawn});
    return true;
  }
  const bool collects = !again || m_toldSilent;
  m_toldSilent = notification.silent && (!again || m_toldSilent);
  m_toldDrawn = notification.drawn && (!again || m_toldDrawn);
  m_stamp = notification.stamp;
  m_changeId = notification.stamp;
  const bool outerSilent = notification.silent;
  const bool outerDrawn = notification.drawn;
  bool depends = dropCaches(notification);
  notification.silent |= !isNotifyEnabled();
  if (m_sensors) {
    depends = true;
    if (collects && !notification.silent) {
      for (NkDataSensor* sensor : *m_sensors) notification.collect(sensor);
    }
  }
  ++notification.depth;
  const bool silent = notification.silent;
  const bool drawn = notification.drawn;
  m_parents.forEach([&](NkNode* parent) {
    notification.silent = silent;
    notification.drawn = drawn;
    depends |= parent->notify(notification);
  });
  --notification.depth;
  notification.silent = outerSilent;
  notification.drawn = outerDrawn;
  m_armed = depends;
  return depends;
}

void NkNode::addSensor(NkDataSensor* sensor) {
  if (!m_sensors) m_sensors = std::make_unique<std::vector<NkDataSensor*>>();
  m_sensors->push_back(sensor);
  armSubgraph();
}

void NkNode::removeSensor(NkDataSensor* sensor) {
  std::erase(*m_sensors, sensor);
  if (m_sensors->empty()) m_sensors.reset();
}

void NkNode::notifyDelete() {
  NkFieldContainer::notifyDelete();
  while (m_sensors) m_sensors->back()->watchedObjectDies();
}

void NkNode::armSubgraph() {
  const std::uint64_t stamp = ++s_stamp;
  std::vector<NkNode*> waiting{this};
  const auto visit = [&](NkNode* node) {
    if (node && node->m_stamp != stamp) waiting.push_back(node);
  };
  while (!waiting.empty()) {
    NkNode* node = waiting.back();
    waiting.pop_back();
    if (node->m_stamp == stamp) continue;
    node->m_stamp = stamp;
    node->m_armed = true;
    if (const NkChildList* children = node->getChildren()) {
      for (int i = 0; i < children->getLength(); ++i) visit((*children)[i]);
    }
    const NkFieldData* data = node->getFieldData();
    for (int i = 0; data && i < data->getNumFields(); ++i) forEachNodeIn(*data->getField(node, i), visit);
  }
}

// Copies

namespace {

struct Copies {
  std::unordered_map<const NkNode*, NkNode*> nodes;
  int depth = 0;
  bool isCut = false;
};
Copies* s_copies = nullptr;

} // namespace

NkNode* NkNode::copy() const {
  // A class may copy something else while it is copied.
  Copies copies;
  Copies* const outer = std::exchange(s_copies, &copies);
  NkNode* result = copyOf(this);
  s_copies = outer;
  return result;
}

bool NkNode::isCopying() { return s_copies != nullptr; }

NkNode* NkNode::copyOf(const NkNode* original) {
  if (!original) return nullptr;
  const auto it = s_copies->nodes.find(original);
  if (it != s_copies->nodes.end()) return it->second;
  if (s_copies->depth > NkAction::kMaxDepth) {
    if (!s_copies->isCut)
      NkDebugError::post("NkNode::copy", "The scene is nested deeper than %d levels; what is below isn't copied",
                         NkAction::kMaxDepth);
    s_copies->isCut = true;
    return nullptr;
  }
  auto* copy = static_cast<NkNode*>(original->getTypeId().createInstance());
  if (!copy) return nullptr;
  s_copies->nodes.emplace(original, copy);
  ++s_copies->depth;
  copy->copyFields(original);
  copy->copyContents(original);
  --s_copies->depth;
  return copy;
}

void NkNode::copyFields(const NkNode* original) {
  const NkFieldData* data = getFieldData();
  for (int i = 0; data && i < data->getNumFields(); ++i) {
    const NkField* from = data->getField(original, i);
    NkField* field = data->getField(this, i);
    if (!original->isCopied(*from) || (from->isDefault() && field->isSame(*from))) continue;
    if (field->getTypeId() == NkSFNode::getClassTypeId()) {
      static_cast<NkSFNode*>(field)->setValue(copyOf(static_cast<const NkSFNode*>(from)->getValue()));
    } else if (field->getTypeId() == NkMFNode::getClassTypeId()) {
      const auto& originals = static_cast<const NkMFNode&>(*from);
      auto* nodes = static_cast<NkMFNode*>(field);
      nodes->setNum(originals.getNum());
      for (int j = 0; j < originals.getNum(); ++j) nodes->set1Value(j, copyOf(originals[j]));
    } else {
      field->copyFrom(*from);
    }
    field->setDefault(from->isDefault());
  }
}

bool NkNode::isCopied(const NkField&) const { return true; }

void NkNode::copyContents(const NkNode*) {}

// Node list

void NkNodeList::insert(NkNode* node, int index) {
  m_nodes.insert(m_nodes.begin() + std::clamp(index, 0, getLength()), arbora::Ref<NkNode>(node));
}

int NkNodeList::find(const NkNode* node) const {
  const auto it =
      std::find_if(m_nodes.begin(), m_nodes.end(), [node](const auto& entry) { return entry.get() == node; });
  return it == m_nodes.end() ? -1 : static_cast<int>(it - m_nodes.begin());
}

void NkNodeList::remove(int index) {
  if (index >= 0 && index < getLength()) m_nodes.erase(m_nodes.begin() + index);
}

void NkNodeList::truncate(int length) {
  if (length < getLength()) m_nodes.resize(static_cast<std::size_t>(std::max(length, 0)));
}

void NkNodeList::set(int index, NkNode* node) {
  if (index >= 0 && index < getLength()) m_nodes[static_cast<std::size_t>(index)] = arbora::Ref<NkNode>(node);
}

NkNode* NkNodeList::operator[](int index) const {
  return index >= 0 && index < getLength() ? m_nodes[static_cast<std::size_t>(index)].get() : nullptr;
}
