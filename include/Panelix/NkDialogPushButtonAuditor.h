#pragma once

#include "Panelix/NkAuditor.h"

class NkDialogPushButton;

/// Hears of presses on a push button.
class PANELIX_API NkDialogPushButtonAuditor : public NkAuditor {
  NK_AUDITOR_HEADER(NkDialogPushButtonAuditor);

public:
  virtual void dialogPushButton(NkDialogPushButton* button) = 0;
};
