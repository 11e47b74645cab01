#include "arbora/scene/NkField.h"

#include <algorithm>

#include "arbora/base/NkDebugError.h"
#include "arbora/scene/NkFieldContainer.h"
#include "arbora/scene/NkFieldSensor.h"
#include "arbora/scene/NkNode.h"
#include "arbora/scene/NkNotification.h"

NkType NkField::s_classTypeId;

NkField::~NkField() {
  if (m_links)
    dropLinks();
}

NkType NkField::getClassTypeId() {
  return s_classTypeId;
}

void NkField::initClass() {
  s_classTypeId = NkType::createType(NkType::badType(), "Field");
}

void NkField::exitClass() {
  NkType::removeType("Field");
  s_classTypeId = NkType::badType();
}

NkField::Links& NkField::links() {
  if (!m_links)
    m_links = std::make_unique<Links>();
  return *m_links;
}

void NkField::dropLinks() {
  disconnect();
  for (NkField* target : std::vector<NkField*>(m_links->targets))
    target->disconnect();
  for (std::size_t i = 0; i < m_links->sensors.size(); ++i) {
    if (m_links->sensors[i])
      m_links->sensors[i]->watchedObjectDies();
  }
}

void NkField::addSensor(NkDataSensor* sensor) {
  links().sensors.push_back(sensor);
}

void NkField::removeSensor(NkDataSensor* sensor) {
  std::vector<NkDataSensor*>& sensors = m_links->sensors;
  const auto it = std::find(sensors.begin(), sensors.end(), sensor);
  if (it == sensors.end())
    return;
  if (m_links->depth > 0)
    *it = nullptr;
  else
    sensors.erase(it);
}

bool NkField::connectFrom(NkField* source) {
  if (!source || source == this)
    return false;
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
  if (!isConnected())
    return;
  std::vector<NkField*>& targets = m_links->source->m_links->targets;
  targets.erase(std::find(targets.begin(), targets.end(), this));
  m_links->source = nullptr;
}

void NkField::disconnect(NkField* source) {
  if (getConnectedField() == source)
    disconnect();
}

void NkField::touch() {
  notify();
}

void NkField::notify() {
  NkFieldContainer* container = m_container;
  if (!container) {
    if (m_links)
      notifyLinks();
    return;
  }
  container->fieldHasChanged(this);
  if (!m_links && !container->m_armed) {
    container->m_changeId = NkNotification::nextStamp();
    return;
  }
  const arbora::KeepAlive alive(container);
  NkNotification notification;
  notification.field = this;
  container->notifyAbove(notification);
  if (m_links)
    notifyLinks();
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
    if (NkDataSensor* sensor = state.sensors[i])
      sensor->notify(notification);
  }
  if (!state.notifying && !state.targets.empty()) {
    state.notifying = true;
    for (NkField* target : std::vector<NkField*>(state.targets)) {
      if (std::find(state.targets.begin(), state.targets.end(), target) != state.targets.end() &&
          !(target->m_links && target->m_links->notifying))
        target->copyFrom(*this);
    }
    state.notifying = false;
  }
  if (--state.depth == 0)
    std::erase(state.sensors, nullptr);
}
