#include "arbora/scene/NkTrackerEvent.h"

NK_EVENT_SOURCE(NkTrackerEvent, NkButtonEvent, "TrackerEvent");

NkTrackerEvent::NkTrackerEvent() = default;

NkTrackerEvent::~NkTrackerEvent() = default;
