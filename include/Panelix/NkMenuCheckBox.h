#pragma once

#include "Panelix/NkMenuItem.h"

class NkMenuCheckBoxAuditor;

/// Entry of a menu with two states and a check mark that tells the state.
class PANELIX_API NkMenuCheckBox : public NkMenuItem {
  NK_KIT_HEADER(NkMenuCheckBox);
  NK_SKIN_HEADER(MenuCheckBox);

public:
  NkSFBool state;         ///< Checked. FALSE.
  NkSFString onString;    ///< Title when checked, in the place of `label` unless it is empty. Empty.
  NkSFString accelerator; ///< Key combination, as "Ctrl+O"; goes ahead of one in the title. Empty.

  NkMenuCheckBox();

  void addAuditor(NkMenuCheckBoxAuditor* auditor);
  void removeAuditor(NkMenuCheckBoxAuditor* auditor);
  /// A user's action: tells the auditors or, if there are none, the parent.
  void applyDlgCptAuditor();

protected:
  ~NkMenuCheckBox() override;

private:
  NkSFNode chkSep;
  NkSFNode chkSwtch;
  NkSFNode stateOff;
  NkSFNode stateOn;
};
