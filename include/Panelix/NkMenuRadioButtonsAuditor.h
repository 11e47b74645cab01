#pragma once

#include "Panelix/NkAuditor.h"

class NkMenuRadioButtons;

/// Hears of selections in radio buttons of a menu.
class PANELIX_API NkMenuRadioButtonsAuditor : public NkAuditor {
  NK_AUDITOR_HEADER(NkMenuRadioButtonsAuditor);

public:
  virtual void menuRadioButtons(NkMenuRadioButtons* buttons) = 0;
};
