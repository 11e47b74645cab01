#pragma once

#include <cstdint>
#include <vector>

#include "arbora/scene/export.h"

class NkDataSensor;
class NkField;
class NkNode;

/// One change on its way up through the scene. The way up drops caches and collects the sensors on nodes; they are
/// set off behind it, so that no callback ever sees a stale cache.
struct ARBORA_API NkNotification {
  NkNotification();
  ~NkNotification();
  NkNotification(const NkNotification&) = delete;
  NkNotification& operator=(const NkNotification&) = delete;

  /// The written field; NULL for a change of a child list.
  NkField* field = nullptr;
  /// The node in which the change arose.
  NkNode* origin = nullptr;
  /// Tells one change from another, so that a node under several parents passes it on once.
  std::uint64_t stamp;
  /// Caches are dropped, but nobody is told.
  bool silent = false;
  /// The draw lists further up don't depend on this change.
  bool drawn = false;

  /// Levels that it has climbed, and nodes at which it still has to go on.
  int depth = 0;
  struct Waiting {
    NkNode* node;
    bool silent;
    bool drawn;
  };
  std::vector<Waiting> waiting;

  static std::uint64_t nextStamp();

  void collect(NkDataSensor* sensor) { m_sensors.push_back(sensor); }
  /// Sets the collected sensors off, in order; one that died or was detached meanwhile is left out.
  void setOffSensors();
  /// Takes a sensor out of all notifications that are on their way.
  static void forget(NkDataSensor* sensor);

private:
  std::vector<NkDataSensor*> m_sensors;
  NkNotification* m_outer;
};
