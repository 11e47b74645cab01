#pragma once

#include <functional>
#include <utility>

#include "arbora/scene/NkFieldSensor.h"

/// Runs a function inside each write of a field.
class OnWrite {
public:
  OnWrite(NkField& field, std::function<void()> run) : m_run(std::move(run)), m_sensor(&fire, this) {
    m_sensor.setPriority(0);
    m_sensor.attach(&field);
  }

private:
  static void fire(void* data, NkSensor*) {
    auto* self = static_cast<OnWrite*>(data);
    ++self->m_depth;
    if (self->m_depth == 1) self->m_run();
    --self->m_depth;
  }

  std::function<void()> m_run;
  int m_depth = 0;
  NkFieldSensor m_sensor;
};
