#pragma once

#include "arbora/scene/export.h"

class NkSensor;
using NkSensorCB = void(void* data, NkSensor* sensor);

/// Calls a function of the application when something happens.
class ARBORA_API NkSensor {
public:
  virtual ~NkSensor();
  NkSensor(const NkSensor&) = delete;
  NkSensor& operator=(const NkSensor&) = delete;

  void setFunction(NkSensorCB* callback) { m_callback = callback; }
  NkSensorCB* getFunction() const { return m_callback; }
  void setData(void* data) { m_data = data; }
  void* getData() const { return m_data; }

  virtual void schedule() = 0;
  virtual void unschedule() = 0;
  virtual bool isScheduled() const = 0;
  /// Calls the callback now. The sensor may be deleted inside it.
  virtual void trigger();

protected:
  explicit NkSensor(NkSensorCB* callback = nullptr, void* data = nullptr) : m_callback(callback), m_data(data) {}

private:
  NkSensorCB* m_callback;
  void* m_data;
};
