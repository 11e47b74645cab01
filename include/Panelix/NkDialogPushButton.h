#pragma once

#include "Panelix/NkDialogComponent.h"

class NkDialogPushButtonAuditor;

/// Button with a caption. It has no value: the application hears of each press.
class PANELIX_API NkDialogPushButton : public NkDialogComponent {
  NK_KIT_HEADER(NkDialogPushButton);
  NK_SKIN_HEADER(DialogPushButton);

public:
  NkSFString buttonLabel; ///< Caption. Empty.

  NkDialogPushButton();

  void addAuditor(NkDialogPushButtonAuditor* auditor);
  void removeAuditor(NkDialogPushButtonAuditor* auditor);
  /// A user's action: tells the auditors or, if there are none, the parent.
  void applyDlgCptAuditor();

protected:
  ~NkDialogPushButton() override;

private:
  NkSFNode labelSep;
  NkSFNode labelSwitch;
  NkSFNode labelProp;
  NkSFNode frameSep;
  NkSFNode frameSwitch;
  NkSFNode released;
  NkSFNode pressed;
  NkSFNode buttonLabelSep;
  NkSFNode buttonLabelProp;
};
