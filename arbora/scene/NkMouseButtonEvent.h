#pragma once

#include "arbora/scene/NkButtonEvent.h"

/// A mouse button that goes down or up.
class ARBORA_API NkMouseButtonEvent : public NkButtonEvent {
  NK_EVENT_HEADER(NkMouseButtonEvent);

public:
  /// `BUTTON1` is the one that selects (left on most mice), 2 the middle one, 3 the one for menus; `ANY` stands for all
  /// of them in the two tests below.
  enum Button { ANY, BUTTON1, BUTTON2, BUTTON3, BUTTON4, BUTTON5 };

  NkMouseButtonEvent();
  ~NkMouseButtonEvent() override;

  Button getButton() const { return m_button; }
  void setButton(Button button) { m_button = button; }

  /// NULL and events of other classes give false.
  static bool isButtonPressEvent(const NkEvent* event, Button button);
  static bool isButtonReleaseEvent(const NkEvent* event, Button button);

private:
  static bool isEvent(const NkEvent* event, Button button, State state);
  Button m_button = ANY;
};
