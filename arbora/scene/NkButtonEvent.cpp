#include "arbora/scene/NkButtonEvent.h"

NK_EVENT_SOURCE(NkButtonEvent, NkEvent, "ButtonEvent");

NkButtonEvent::NkButtonEvent() = default;

NkButtonEvent::~NkButtonEvent() = default;
