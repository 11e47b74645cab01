#pragma once

#include "Panelix/NkDialogComponent.h"

class NkDialogCheckBoxAuditor;

/// Component with two states and a caption that tells the state.
class PANELIX_API NkDialogCheckBox : public NkDialogComponent {
  NK_KIT_HEADER(NkDialogCheckBox);
  NK_SKIN_HEADER(DialogCheckBox);

public:
  NkSFBool state;       ///< Checked. FALSE.
  NkSFString onString;  ///< Caption when checked, and otherwise too if there is no `offString`. Empty.
  NkSFString offString; ///< Caption when not checked. Empty.

  NkDialogCheckBox();

  void addAuditor(NkDialogCheckBoxAuditor* auditor);
  void removeAuditor(NkDialogCheckBoxAuditor* auditor);
  /// A user's action: tells the auditors or, if there are none, the parent.
  void applyDlgCptAuditor();

protected:
  ~NkDialogCheckBox() override;

private:
  NkSFNode labelSep;
  NkSFNode labelSwitch;
  NkSFNode labelProp;
  NkSFNode frameSep;
  NkSFNode frame;
  NkSFNode stateSep;
  NkSFNode stateSwitch;
  NkSFNode stateOff;
  NkSFNode stateOn;
  NkSFNode onOffStringSep;
  NkSFNode onOffStringProp;
};
