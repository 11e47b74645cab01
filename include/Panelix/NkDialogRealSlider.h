#pragma once

#include "Panelix/NkDialogSlider.h"

class NkDialogRealSliderAuditor;

/// Slider of a real number. `format` is "%.3f" by default.
class PANELIX_API NkDialogRealSlider : public NkDialogSlider {
  NK_KIT_HEADER(NkDialogRealSlider);

public:
  NkSFFloat min;   ///< 0.
  NkSFFloat max;   ///< 1.
  NkSFFloat value; ///< 0.

  NkDialogRealSlider();

  void addAuditor(NkDialogRealSliderAuditor* auditor);
  void removeAuditor(NkDialogRealSliderAuditor* auditor);
  /// A user's action: tells the auditors or, if there are none, the parent.
  virtual void applyDlgCptAuditor();

protected:
  ~NkDialogRealSlider() override;
};
