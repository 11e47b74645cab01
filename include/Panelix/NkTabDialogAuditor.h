#pragma once

#include "Panelix/NkAuditor.h"

class NkTabDialog;

/// Hears of the selection of a page of a tab dialog.
class PANELIX_API NkTabDialogAuditor : public NkAuditor {
  NK_AUDITOR_HEADER(NkTabDialogAuditor);

public:
  virtual void tabDialog(NkTabDialog* dialog) = 0;
};
