#pragma once

#include "Panelix/NkAuditor.h"

class NkDialogRealSlider;

/// Hears of changes of a real slider.
class PANELIX_API NkDialogRealSliderAuditor : public NkAuditor {
  NK_AUDITOR_HEADER(NkDialogRealSliderAuditor);

public:
  virtual void dialogRealSlider(NkDialogRealSlider* slider) = 0;
};
