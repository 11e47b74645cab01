#pragma once

#include "arbora/scene/NkDataSensor.h"

/// Watches one field. A write while the sensor is detached is missed for good.
class ARBORA_API NkFieldSensor : public NkDataSensor {
public:
  explicit NkFieldSensor(NkSensorCB* callback = nullptr, void* data = nullptr) : NkDataSensor(callback, data) {}
  ~NkFieldSensor() override;

  /// Watches `field` from now on, in the place of what was watched before.
  void attach(NkField* field);
  void detach();
  NkField* getAttachedField() const { return m_field; }

private:
  friend class NkField;
  void watchedObjectDies() override;
  NkField* m_field = nullptr;
};
