#include "arbora/scene/NkKeyboardEvent.h"

NK_EVENT_SOURCE(NkKeyboardEvent, NkButtonEvent, "KeyboardEvent");

NkKeyboardEvent::NkKeyboardEvent() = default;

NkKeyboardEvent::~NkKeyboardEvent() = default;

char NkKeyboardEvent::getPrintableCharacter() const {
  if (m_character) return m_character;
  const int code = m_key;
  if (code >= A && code <= Z && wasShiftDown()) return static_cast<char>(code - ('a' - 'A'));
  const bool printable = (code >= 0x20 && code <= 0x7E) || (code >= 0xA0 && code <= 0xFF);
  return printable ? static_cast<char>(static_cast<unsigned char>(code)) : '\0';
}

bool NkKeyboardEvent::isKeyPressEvent(const NkEvent* event, Key key) { return isEvent(event, key, DOWN); }

bool NkKeyboardEvent::isKeyReleaseEvent(const NkEvent* event, Key key) { return isEvent(event, key, UP); }

bool NkKeyboardEvent::isEvent(const NkEvent* event, Key key, State state) {
  if (!event || !event->isOfType(getClassTypeId())) return false;
  const auto* keyboard = static_cast<const NkKeyboardEvent*>(event);
  return keyboard->getState() == state && (key == ANY || keyboard->m_key == key);
}
