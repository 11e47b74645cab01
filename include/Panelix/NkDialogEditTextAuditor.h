#pragma once

#include "Panelix/NkAuditor.h"

class NkDialogEditText;

/// Hears of changes of an edit text.
class PANELIX_API NkDialogEditTextAuditor : public NkAuditor {
  NK_AUDITOR_HEADER(NkDialogEditTextAuditor);

public:
  virtual void dialogEditText(NkDialogEditText* text) = 0;
};
