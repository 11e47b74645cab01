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

/// One call of a callback: what set it off, and afterwards whether it deleted the sensor.
class NkDataSensor::Call {
public:
  explicit Call(NkDataSensor* sensor, NkField* field = nullptr, NkNode* node = nullptr)
      : triggerField(field), triggerNode(node), m_sensor(sensor), m_outer(sensor->m_call) {
    sensor->m_call = this;
  }
  ~Call() {
    if (m_sensor) m_sensor->m_call = m_outer;
  }
  Call(const Call&) = delete;
  Call& operator=(const Call&) = delete;

  void sensorDies() {
    for (Call* call = this; call; call = call->m_outer) call->m_sensor = nullptr;
  }
  bool isSensorDead() const { return !m_sensor; }

  NkField* const triggerField;
  NkNode* const triggerNode;

private:
  NkDataSensor* m_sensor;
  Call* m_outer;
};

NkDataSensor::~NkDataSensor() {
  NkNotification::forget(this);
  if (m_call) m_call->sensorDies();
}

NkField* NkDataSensor::getTriggerField() const { return m_call ? m_call->triggerField : nullptr; }

NkNode* NkDataSensor::getTriggerNode() const { return m_call ? m_call->triggerNode : nullptr; }

void NkDataSensor::setDeleteCallback(NkSensorCB* callback, void* data) {
  m_deleteCallback = callback;
  m_deleteData = data;
}

bool NkDataSensor::callDeleteCallback() {
  const Call call(this, getTriggerField(), getTriggerNode());
  if (m_deleteCallback) m_deleteCallback(m_deleteData, this);
  return !call.isSensorDead();
}

void NkDataSensor::notify(const NkNotification& notification) {
  if (getPriority() != 0) {
    schedule(); // The trigger may be gone by the time the callback runs: it isn't kept.
    return;
  }
  // A callback may write again and so get here from inside itself.
  const Call call(this, notification.field, notification.origin);
  trigger();
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
