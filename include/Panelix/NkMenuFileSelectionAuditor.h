#pragma once

#include "Panelix/NkAuditor.h"

class NkMenuFileSelection;

/// Hears of the choice of a file.
class PANELIX_API NkMenuFileSelectionAuditor : public NkAuditor {
  NK_AUDITOR_HEADER(NkMenuFileSelectionAuditor);

public:
  virtual void menuFileSelection(NkMenuFileSelection* selection) = 0;
};
