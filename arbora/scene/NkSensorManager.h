#pragma once

#include <cstdint>
#include <map>
#include <utility>

#include "arbora/scene/export.h"

class NkDelayQueueSensor;

/// The delay queue. There is one; it belongs to the thread that runs the application's loop.
class ARBORA_API NkSensorManager {
public:
  static NkSensorManager& getInstance();

  /// Runs the sensors that wait now. What they schedule waits for the next call.
  void processDelayQueue();
  bool isDelaySensorPending() const { return !m_queue.empty(); }
  /// Called when the queue turns from empty to not empty, so that a sleeping loop can wake up.
  void setChangedCallback(void (*callback)(void* data), void* data);

private:
  friend class NkDelayQueueSensor;
  using Key = std::pair<unsigned, std::uint64_t>; // Priority, then order of scheduling.
  void insert(NkDelayQueueSensor* sensor);
  void remove(NkDelayQueueSensor* sensor);

  std::map<Key, NkDelayQueueSensor*> m_queue;
  std::uint64_t m_sequence = 0;
  void (*m_changedCallback)(void*) = nullptr;
  void* m_changedData = nullptr;
};
