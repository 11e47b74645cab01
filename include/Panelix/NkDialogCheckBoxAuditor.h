#pragma once

#include "Panelix/NkAuditor.h"

class NkDialogCheckBox;

/// Hears of clicks on a check box.
class PANELIX_API NkDialogCheckBoxAuditor : public NkAuditor {
  NK_AUDITOR_HEADER(NkDialogCheckBoxAuditor);

public:
  virtual void dialogCheckBox(NkDialogCheckBox* box) = 0;
};
