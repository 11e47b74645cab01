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
  if (!m_listener) return;
  dropLinks();
  delete links();
}

NkType NkField::getClassTypeId() { return s_classTypeId; }

void NkField::initClass() { s_classTypeId = NkType::createType(NkType::badType(), "Field"); }

void NkField::exitClass() {
  NkType::removeType("Field");
  s_classTypeId = NkType::badType();
}

NkField::Links& NkField::makeLinks() {
  if (m_hasLinks) return *links();
  auto* made = new Links;
  if (NkDataSensor* sensor = firstSensor()) made->sensors.push_back(sensor);
  m_listener = made;
  m_hasLinks = true;
  return *made;
}

NkDataSensor* NkField::firstSensor() const {
  if (!m_hasLinks) return static_cast<NkDataSensor*>(m_listener);
  const std::vector<NkDataSensor*>& sensors = links()->sensors;
  const auto it = std::find_if(sensors.begin(), sensors.end(), [](const NkDataSensor* sensor) { return sensor; });
  return it == sensors.end() ? nullptr : *it;
}

void NkField::dropLinks() {
  disconnect();
  if (m_hasLinks) {
    for (NkField* target : std::exchange(links()->targets, {})) {
      if (target) target->links()->source = nullptr;
    }
  }
  // Each takes itself off the field, and its callback may take off others.
  while (NkDataSensor* sensor = firstSensor()) sensor->watchedObjectDies();
}

void NkField::addSensor(NkDataSensor* sensor) {
  if (m_listener)
    makeLinks().sensors.push_back(sensor);
  else
    m_listener = sensor;
}

void NkField::removeSensor(NkDataSensor* sensor) {
  if (m_listener == sensor) {
    m_listener = nullptr;
    return;
  }
  if (!m_hasLinks) return;
  std::vector<NkDataSensor*>& sensors = links()->sensors;
  const auto it = std::find(sensors.begin(), sensors.end(), sensor);
  if (it == sensors.end()) return;
  if (links()->depth > 0)
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
    makeLinks().source = source;
    source->makeLinks().targets.push_back(this);
  }
  copyFrom(*source);
  return true;
}

void NkField::disconnect() {
  if (!isConnected()) return;
  Links& source = *links()->source->links();
  const auto it = std::find(source.targets.begin(), source.targets.end(), this);
  if (source.depth > 0)
    *it = nullptr;
  else
    source.targets.erase(it);
  links()->source = nullptr;
}

void NkField::disconnect(NkField* source) {
  if (getConnectedField() == source) disconnect();
}

void NkField::touch() { notify(); }

void NkField::notify() {
  NkFieldContainer* container = m_container;
  if (!container) {
    if (m_listener) notifyLinks();
    return;
  }
  // From here on a callback may drop the container.
  const arbora::KeepAlive alive(container);
  container->fieldHasChanged(this);
  if (!m_listener && !container->m_armed) {
    container->m_changeId = NkNotification::nextStamp();
    return;
  }
  NkNotification notification;
  notification.field = this;
  container->notifyAbove(notification);
  if (m_listener) notifyLinks();
  notification.setOffSensors();
}

void NkField::notifyLinks() {
  // The field may lose sensors and connections, and be written again, inside the callbacks. It lives as long as its
  // container, which the caller keeps alive. A sensor that comes meanwhile waits for the next change.
  NkNotification notification;
  notification.field = this;
  if (m_container && m_container->isOfType(NkNode::getClassTypeId()))
    notification.origin = static_cast<NkNode*>(m_container);
  std::size_t count = 0;
  if (m_hasLinks)
    count = links()->sensors.size();
  else
    firstSensor()->notify(notification);
  if (!m_hasLinks) return;
  Links& state = *links();
  ++state.depth;
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
    if (target && !target->links()->notifying) target->copyFrom(*this);
  }
  state.notifying = false;
  --s_chain;
}
