#include "arbora/scene/NkLocation2Event.h"

NK_EVENT_SOURCE(NkLocation2Event, NkEvent, "Location2Event");

NkLocation2Event::NkLocation2Event() = default;

NkLocation2Event::~NkLocation2Event() = default;
