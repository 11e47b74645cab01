#include "arbora/scene/NkField.h"

#include <algorithm>
#include <utility>

#include "arbora/base/NkDebugError.h"
#include "arbora/scene/NkFieldContainer.h"
#include "arbora/scene/NkFieldSensor.h"
#include "arbora/scene/NkNode.h"
#include "arbora/scene/NkNotification.h"

NkType NkField::s_classTypeId;

NkField::~NkField() {
  if (m_links) dropLinks();
}

NkType NkField::getClassTypeId() { return s_classTypeId; }

void NkField::initClass() { s_classTypeId = NkType::createType(NkType::badType(), "Field"); }

void NkField::exitClass() {
  NkType::removeType("Field");
  s_classTypeId = NkType::badType();
}

NkField::Links& NkField::links() {
  if (!m_links) m_links = std::make_unique<Links>();
  return *m_links;
}

void NkField::dropLinks() {
  disconnect();
  for (NkField* target : std::exchange(m_links->targets, {})) {
    if (target) target->m_links->source = nullptr;
  }
  // Each takes itself out of the list, and its callback may take out others.
  const auto nextSensor = [this] {
    const std::vector<NkDataSensor*>& sensors = m_links->sensors;
    const auto it = std::find_if(sensors.begin(), sensors.end(), [](const NkDataSensor* sensor) { return sensor; });
    return it == sensors.end() ? nullptr : *it;
  };
  while (NkDataSensor* sensor = nextSensor()) sensor->watchedObjectDies();
}

void NkField::addSensor(NkDataSensor* sensor) { links().sensors.push_back(sensor); }

void NkField::removeSensor(NkDataSensor* sensor) {
  std::vector<NkDataSensor*>& sensors = m_links->sensors;
  const auto it = std::find(sensors.begin(), sensors.end(), sensor);
  if (it == sensors.end()) return;
  if (m_links->depth > 0)
    *it = nullptr;
  else
    sensors.erase(it);
}

bool NkField::connectFrom(NkField* source) {
  if (!source || source == this) return false;
  if (source->getTypeId() != getTypeId()) {
    NkDebugError::post("NkField::connectFrom", "A field of type %s can't follow one of type %s",
                       getTypeId().getName().getString(), source->getTypeId().getName().getString());
    return false;
  }
  if (getConnectedField() != source) {
    disconnect();
    links().source = source;
    source->links().targets.push_back(this);
  }
  copyFrom(*source);
  return true;
}

void NkField::disconnect() {
  if (!isConnected()) return;
  Links& source = *m_links->source->m_links;
  const auto it = std::find(source.targets.begin(), source.targets.end(), this);
  if (source.depth > 0)
    *it = nullptr;
  else
    source.targets.erase(it);
  m_links->source = nullptr;
}

void NkField::disconnect(NkField* source) {
  if (getConnectedField() == source) disconnect();
}

void NkField::touch() { notify(); }

void NkField::notify() {
  NkFieldContainer* container = m_container;
  if (!container) {
    if (m_links) notifyLinks();
    return;
  }
  // From here on a callback may drop the container.
  const arbora::KeepAlive alive(container);
  container->fieldHasChanged(this);
  if (!m_links && !container->m_armed) {
    container->m_changeId = NkNotification::nextStamp();
    return;
  }
  NkNotification notification;
  notification.field = this;
  container->notifyAbove(notification);
  if (m_links) notifyLinks();
  notification.setOffSensors();
}

void NkField::notifyLinks() {
  // The field may lose sensors and connections, and be written again, inside the callbacks. It lives as long as its
  // container, which the caller keeps alive.
  Links& state = *m_links;
  ++state.depth;
  NkNotification notification;
  notification.field = this;
  if (m_container && m_container->isOfType(NkNode::getClassTypeId()))
    notification.origin = static_cast<NkNode*>(m_container);
  const std::size_t count = state.sensors.size();
  for (std::size_t i = 0; i < count; ++i) {
    if (NkDataSensor* sensor = state.sensors[i]) sensor->notify(notification);
  }
  if (!state.notifying && !state.targets.empty()) writeTargets(state);
  if (--state.depth == 0) {
    std::erase(state.sensors, nullptr);
    std::erase(state.targets, nullptr);
  }
}

void NkField::writeTargets(Links& state) {
  // Each link of a chain of connections stands on the call stack once.
  constexpr int kMaxChain = 400;
  static int s_chain = 0;
  if (s_chain == kMaxChain) {
    NkDebugError::post("NkField::connectFrom",
                       "A chain of connections is longer than %d; what is behind doesn't follow", kMaxChain);
    return;
  }
  ++s_chain;
  state.notifying = true;
  const std::size_t count = state.targets.size();
  for (std::size_t i = 0; i < count; ++i) {
    NkField* target = state.targets[i];
    if (target && !target->m_links->notifying) target->copyFrom(*this);
  }
  state.notifying = false;
  --s_chain;
}
