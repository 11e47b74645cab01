#pragma once

#include "arbora/scene/NkEvent.h"

/// A button or key that goes down or up.
class ARBORA_API NkButtonEvent : public NkEvent {
  NK_EVENT_HEADER(NkButtonEvent);

public:
  enum State { UP, DOWN, UNKNOWN };

  NkButtonEvent();
  ~NkButtonEvent() override;

  State getState() const { return m_state; }
  void setState(State state) { m_state = state; }

private:
  State m_state = UNKNOWN;
};
