#pragma once

#include "Panelix/NkMenuItem.h"

class NkMenuPushButtonAuditor;

/// Entry of a menu that reports that it was chosen.
class PANELIX_API NkMenuPushButton : public NkMenuItem {
  NK_KIT_HEADER(NkMenuPushButton);
  NK_SKIN_HEADER(MenuPushButton);

public:
  NkSFString accelerator; ///< Key combination, as "Ctrl+O"; goes ahead of one in the title. Empty.

  NkMenuPushButton();

  void addAuditor(NkMenuPushButtonAuditor* auditor);
  void removeAuditor(NkMenuPushButtonAuditor* auditor);
  /// A user's action: tells the auditors or, if there are none, the parent.
  void applyDlgCptAuditor();

protected:
  ~NkMenuPushButton() override;

  /// The part of `applyDlgCptAuditor` in which the kind of auditor counts.
  virtual void tellOwnAuditors();

private:
  NkSFNode btnSep;
  NkSFNode btnSwtch;
  NkSFNode released;
  NkSFNode pressed;
};
