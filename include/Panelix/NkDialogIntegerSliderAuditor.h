#pragma once

#include "Panelix/NkAuditor.h"

class NkDialogIntegerSlider;

/// Hears of changes of an integer slider.
class PANELIX_API NkDialogIntegerSliderAuditor : public NkAuditor {
  NK_AUDITOR_HEADER(NkDialogIntegerSliderAuditor);

public:
  virtual void dialogIntegerSlider(NkDialogIntegerSlider* slider) = 0;
};
