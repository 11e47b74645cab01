#pragma once

#include "arbora/scene/NkDelayQueueSensor.h"
#include "arbora/scene/NkNotification.h"

class NkField;
class NkNode;

/// Base of the sensors that watch scene data.
class ARBORA_API NkDataSensor : public NkDelayQueueSensor {
public:
  ~NkDataSensor() override;

  /// Called when the watched object is about to go; the sensor is detached afterwards. The callback may delete it.
  void setDeleteCallback(NkSensorCB* callback, void* data = nullptr);

  /// The field whose write set this sensor off, inside the callback; NULL otherwise or if it wasn't a write of a field.
  NkField* getTriggerField() const;
  /// The node in which the change arose, inside the callback; NULL otherwise.
  NkNode* getTriggerNode() const;

protected:
  explicit NkDataSensor(NkSensorCB* callback = nullptr, void* data = nullptr) : NkDelayQueueSensor(callback, data) {}
  /// False if the callback deleted the sensor.
  bool callDeleteCallback();

private:
  friend class NkField;
  friend class NkFieldContainer;
  friend class NkNode;
  friend struct NkNotification;
  /// The watched object changed.
  void notify(const NkNotification& notification);
  /// The watched object is about to go.
  virtual void watchedObjectDies() = 0;

  class Call;
  NkSensorCB* m_deleteCallback = nullptr;
  void* m_deleteData = nullptr;
  Call* m_call = nullptr; // The innermost callback that runs.
};
