#pragma once

#include "arbora/base/NbLine.h"
#include "arbora/scene/NkButtonEvent.h"

/// A pointing device in space moved (`UNKNOWN`), or its trigger went down or up.
class ARBORA_API NkTrackerEvent : public NkButtonEvent {
  NK_EVENT_HEADER(NkTrackerEvent);

public:
  NkTrackerEvent();
  ~NkTrackerEvent() override;

  bool isTrackerEvent() const override { return true; }

  /// Where the device points, in world space; the ray starts at the line's position.
  const NbLine& getRay() const { return m_ray; }
  void setRay(const NbLine& ray) { m_ray = ray; }

private:
  NbLine m_ray;
};
