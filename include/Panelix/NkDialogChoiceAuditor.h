#pragma once

#include "Panelix/NkAuditor.h"

class NkDialogChoice;

/// Hears of selections in a combo box or in radio buttons.
class PANELIX_API NkDialogChoiceAuditor : public NkAuditor {
  NK_AUDITOR_HEADER(NkDialogChoiceAuditor);

public:
  virtual void dialogChoice(NkDialogChoice* choice) = 0;
};
