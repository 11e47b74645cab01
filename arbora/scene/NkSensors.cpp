#include "arbora/base/NkDebugError.h"
#include "arbora/scene/NkField.h"
#include "arbora/scene/NkFieldContainer.h"
#include "arbora/scene/NkFieldSensor.h"
#include "arbora/scene/NkNode.h"
#include "arbora/scene/NkNodeSensor.h"
#include "arbora/scene/NkSensorManager.h"

NkSensor::~NkSensor() = default;

void NkSensor::trigger() {
  if (m_callback) m_callback(m_data, this);
}

// Delay queue

NkSensorManager& NkSensorManager::getInstance() {
  static NkSensorManager s_manager;
  return s_manager;
}

void NkSensorManager::insert(NkDelayQueueSensor* sensor) {
  const bool wasEmpty = m_queue.empty();
  sensor->m_sequence = ++m_sequence;
  m_queue.emplace(Key{sensor->m_priority, sensor->m_sequence}, sensor);
  if (wasEmpty && m_changedCallback) m_changedCallback(m_changedData);
}

void NkSensorManager::remove(NkDelayQueueSensor* sensor) { m_queue.erase(Key{sensor->m_priority, sensor->m_sequence}); }

void NkSensorManager::processDelayQueue() {
  const std::uint64_t end = m_sequence;
  auto it = m_queue.begin();
  while (it != m_queue.end()) {
    if (it->first.second > end) {
      ++it;
      continue;
    }
    const Key key = it->first;
    NkDelayQueueSensor* sensor = it->second;
    m_queue.erase(it);
    sensor->m_scheduled = false;
    sensor->trigger();
    it = m_queue.upper_bound(key); // The callback may have changed the queue; what it added waits.
  }
}

void NkSensorManager::setChangedCallback(void (*callback)(void*), void* data) {
  m_changedCallback = callback;
  m_changedData = data;
}

NkDelayQueueSensor::NkDelayQueueSensor(NkSensorCB* callback, void* data) : NkSensor(callback, data) {}

NkDelayQueueSensor::~NkDelayQueueSensor() {
  if (m_scheduled) NkSensorManager::getInstance().remove(this);
}

void NkDelayQueueSensor::setPriority(unsigned priority) {
  const bool waits = m_scheduled;
  if (waits) unschedule();
  m_priority = priority;
  if (waits) schedule();
}

void NkDelayQueueSensor::schedule() {
  if (m_priority == 0) {
    trigger();
  } else if (!m_scheduled) {
    m_scheduled = true;
    NkSensorManager::getInstance().insert(this);
  }
}

void NkDelayQueueSensor::unschedule() {
  if (!m_scheduled) return;
  m_scheduled = false;
  NkSensorManager::getInstance().remove(this);
}

void NkDelayQueueSensor::trigger() {
  unschedule();
  NkSensor::trigger();
}

// Data sensors

/// Tells behind a callback whether it deleted the sensor.
class NkDataSensor::LifeWatch {
public:
  explicit LifeWatch(NkDataSensor* sensor) : m_sensor(sensor), m_outer(sensor->m_deathFlag) {
    sensor->m_deathFlag = &m_isDead;
  }
  ~LifeWatch() {
    if (!m_isDead)
      m_sensor->m_deathFlag = m_outer;
    else if (m_outer)
      *m_outer = true;
  }
  LifeWatch(const LifeWatch&) = delete;
  LifeWatch& operator=(const LifeWatch&) = delete;
  bool isDead() const { return m_isDead; }

private:
  NkDataSensor* m_sensor;
  bool* m_outer;
  bool m_isDead = false;
};

NkDataSensor::~NkDataSensor() {
  NkNotification::forget(this);
  if (m_deathFlag) *m_deathFlag = true;
}

void NkDataSensor::setDeleteCallback(NkSensorCB* callback, void* data) {
  m_deleteCallback = callback;
  m_deleteData = data;
}

bool NkDataSensor::callDeleteCallback() {
  const LifeWatch life(this);
  if (m_deleteCallback) m_deleteCallback(m_deleteData, this);
  return !life.isDead();
}

void NkDataSensor::notify(const NkNotification& notification) {
  if (getPriority() != 0) {
    schedule(); // The trigger may be gone by the time the callback runs: it isn't kept.
    return;
  }
  // A callback may write again and so get here from inside itself.
  const LifeWatch life(this);
  NkField* const outerField = m_triggerField;
  NkNode* const outerNode = m_triggerNode;
  m_triggerField = notification.field;
  m_triggerNode = notification.origin;
  trigger();
  if (life.isDead()) return;
  m_triggerField = outerField;
  m_triggerNode = outerNode;
}

NkFieldSensor::~NkFieldSensor() { detach(); }

void NkFieldSensor::attach(NkField* field) {
  if (field == m_field) return;
  detach();
  m_field = field;
  if (m_field) m_field->addSensor(this);
}

void NkFieldSensor::detach() {
  if (!m_field) return;
  NkNotification::forget(this);
  unschedule();
  m_field->removeSensor(this);
  m_field = nullptr;
}

void NkFieldSensor::watchedObjectDies() {
  const NkField* field = m_field;
  if (callDeleteCallback() && m_field == field) detach();
}

NkNodeSensor::~NkNodeSensor() { detach(); }

void NkNodeSensor::attach(NkNode* node) {
  if (node == m_node) return;
  detach();
  m_node = node;
  if (m_node) m_node->addSensor(this);
}

void NkNodeSensor::detach() {
  if (!m_node) return;
  NkNotification::forget(this);
  unschedule();
  m_node->removeSensor(this);
  m_node = nullptr;
}

void NkNodeSensor::watchedObjectDies() {
  const NkNode* node = m_node;
  if (callDeleteCallback() && m_node == node) detach();
}
