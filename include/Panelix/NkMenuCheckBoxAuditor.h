#pragma once

#include "Panelix/NkAuditor.h"

class NkMenuCheckBox;

/// Hears of clicks on a check box of a menu.
class PANELIX_API NkMenuCheckBoxAuditor : public NkAuditor {
  NK_AUDITOR_HEADER(NkMenuCheckBoxAuditor);

public:
  virtual void menuCheckBox(NkMenuCheckBox* box) = 0;
};
