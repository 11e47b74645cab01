#include "arbora/scene/NkMouseWheelEvent.h"

NK_EVENT_SOURCE(NkMouseWheelEvent, NkEvent, "MouseWheelEvent");

NkMouseWheelEvent::NkMouseWheelEvent() = default;

NkMouseWheelEvent::~NkMouseWheelEvent() = default;
