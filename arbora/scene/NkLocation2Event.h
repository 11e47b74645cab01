#pragma once

#include "arbora/scene/NkEvent.h"

/// The pointer moved to another place on the screen.
class ARBORA_API NkLocation2Event : public NkEvent {
  NK_EVENT_HEADER(NkLocation2Event);

public:
  NkLocation2Event();
  ~NkLocation2Event() override;
};
