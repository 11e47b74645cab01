#pragma once

#include <cstdint>

#include "arbora/scene/NkSensor.h"

/// Sensor that waits in the delay queue until the application's loop runs it. Lower priorities run first, equal ones
/// in the order in which they were scheduled. Priority 0 never waits: it runs where it is scheduled.
class ARBORA_API NkDelayQueueSensor : public NkSensor {
public:
  explicit NkDelayQueueSensor(NkSensorCB* callback = nullptr, void* data = nullptr);
  ~NkDelayQueueSensor() override;

  static constexpr unsigned kDefaultPriority = 100;
  unsigned getPriority() const { return m_priority; }
  /// A sensor that waits is queued again under the new priority.
  void setPriority(unsigned priority);

  void schedule() override;
  void unschedule() override;
  bool isScheduled() const override { return m_scheduled; }
  void trigger() override;

private:
  friend class NkSensorManager;
  unsigned m_priority = kDefaultPriority;
  std::uint64_t m_sequence = 0; // Place among the waiting sensors of one priority.
  bool m_scheduled = false;
};
