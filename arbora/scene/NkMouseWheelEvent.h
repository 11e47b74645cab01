#pragma once

#include "arbora/scene/NkEvent.h"

/// The mouse wheel was turned.
class ARBORA_API NkMouseWheelEvent : public NkEvent {
  NK_EVENT_HEADER(NkMouseWheelEvent);

public:
  /// What one notch of a common wheel counts.
  static constexpr int kNotch = 120;

  NkMouseWheelEvent();
  ~NkMouseWheelEvent() override;

  /// More than 0 away from the user, less than 0 towards the user.
  int getDelta() const { return m_delta; }
  void setDelta(int delta) { m_delta = delta; }

private:
  int m_delta = 0;
};
