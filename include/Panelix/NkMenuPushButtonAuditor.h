#pragma once

#include "Panelix/NkAuditor.h"

class NkMenuPushButton;

/// Hears of presses on a push button of a menu.
class PANELIX_API NkMenuPushButtonAuditor : public NkAuditor {
  NK_AUDITOR_HEADER(NkMenuPushButtonAuditor);

public:
  virtual void menuPushButton(NkMenuPushButton* button) = 0;
};
