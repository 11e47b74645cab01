#pragma once

#include "Panelix/NkDialogSlider.h"

class NkDialogIntegerSliderAuditor;

/// Slider of an integer. In a new node `format` is "%d".
class PANELIX_API NkDialogIntegerSlider : public NkDialogSlider {
  NK_KIT_HEADER(NkDialogIntegerSlider);

public:
  NkSFInt32 min;   ///< 0.
  NkSFInt32 max;   ///< 1.
  NkSFInt32 value; ///< 0.

  NkDialogIntegerSlider();

  void addAuditor(NkDialogIntegerSliderAuditor* auditor);
  void removeAuditor(NkDialogIntegerSliderAuditor* auditor);
  /// A user's action: tells the auditors or, if there are none, the parent.
  virtual void applyDlgCptAuditor();

protected:
  ~NkDialogIntegerSlider() override;
};
