#include "arbora/scene/NkMouseButtonEvent.h"

NK_EVENT_SOURCE(NkMouseButtonEvent, NkButtonEvent, "MouseButtonEvent");

NkMouseButtonEvent::NkMouseButtonEvent() = default;

NkMouseButtonEvent::~NkMouseButtonEvent() = default;

bool NkMouseButtonEvent::isButtonPressEvent(const NkEvent* event, Button button) {
  return isEvent(event, button, DOWN);
}

bool NkMouseButtonEvent::isButtonReleaseEvent(const NkEvent* event, Button button) {
  return isEvent(event, button, UP);
}

bool NkMouseButtonEvent::isEvent(const NkEvent* event, Button button, State state) {
  if (!event || !event->isOfType(getClassTypeId())) return false;
  const auto* mouse = static_cast<const NkMouseButtonEvent*>(event);
  return mouse->getState() == state && (button == ANY || mouse->m_button == button);
}
