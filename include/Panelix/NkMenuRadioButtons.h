#pragma once

#include "Panelix/NkMenuItem.h"

class NkMenuRadioButtonsAuditor;

/// Run of entries of a menu of which one is selected. Its `label` isn't shown.
class PANELIX_API NkMenuRadioButtons : public NkMenuItem {
  NK_KIT_HEADER(NkMenuRadioButtons);
  NK_SKIN_HEADER(MenuRadioButtons);

public:
  NkMFString items;        ///< Title of each entry. One empty string.
  NkSFInt32 selectedItem;  ///< Index of the selected entry. 0.
  NkMFString accelerators; ///< Key combination of each entry; one empty string stands for none. One empty string.

  NkMenuRadioButtons();

  void addAuditor(NkMenuRadioButtonsAuditor* auditor);
  void removeAuditor(NkMenuRadioButtonsAuditor* auditor);
  /// A user's action: tells the auditors or, if there are none, the parent.
  void applyDlgCptAuditor();

protected:
  ~NkMenuRadioButtons() override;

private:
  NkSFNode radioSep;
  NkSFNode itemsSep;
  NkSFNode itemSwtch;
  NkSFNode stateOff;
  NkSFNode stateOn;
};
