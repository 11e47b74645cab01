#pragma once

#include <memory>

#include "arbora/scene/NkFieldSensor.h"

namespace panelix {

/// Keeps the sensor of a field silent while the node writes the field itself.
class SensorPause {
public:
  SensorPause(const std::unique_ptr<NkFieldSensor>& sensor, NkField& field) : m_sensor(sensor.get()), m_field(field) {
    if (m_sensor && m_sensor->getAttachedField()) m_sensor->detach();
  }
  ~SensorPause() {
    if (m_sensor) m_sensor->attach(&m_field);
  }
  SensorPause(const SensorPause&) = delete;
  SensorPause& operator=(const SensorPause&) = delete;

private:
  NkFieldSensor* m_sensor;
  NkField& m_field;
};

/// Writes a field of the node's own, unless it holds the value already: a layout that changes nothing is nobody's
/// concern, and nothing is drawn or measured again.
template <class Field, class Value>
void writeChange(Field& field, const Value& value) {
  if (field.getValue() == value)
    field.setDefault(false);
  else
    field = value;
}

/// The same for a field that the node watches.
template <class Field, class Value>
void writeChange(const std::unique_ptr<NkFieldSensor>& sensor, Field& field, const Value& value) {
  if (field.getValue() == value) {
    field.setDefault(false);
    return;
  }
  const SensorPause quiet(sensor, field);
  field = value;
}

} // namespace panelix
