#pragma once

#include "Panelix/Container.h"
#include "Panelix/NkMenuItem.h"

class NkDialogAuditor;

/// Entry of a menu bar, or of another popup, that opens a menu of its own.
class PANELIX_API NkMenuPopup : public panelix::Container<NkMenuItem, NkMenuItem> {
  NK_KIT_HEADER(NkMenuPopup);
  NK_SKIN_HEADER(MenuPopup);

public:
  NkMenuPopup();

  /// The auditor hears of each user action in the menu of which nobody further down has heard.
  void addAuditor(NkDialogAuditor* auditor);
  void removeAuditor(NkDialogAuditor* auditor);
  /// The first entry below, in the order of the file, with that `auditorID`, dialogs of launchers included; NULL if
  /// there is none.
  NkPanelix* searchForAuditorId(NbString id);

  void applyAuditor(NkPanelix* source) override;

protected:
  ~NkMenuPopup() override;

private:
  NkSFNode frameSep;
  NkSFNode frameSwitch;
  NkSFNode released;
  NkSFNode pressed;
  NkSFNode shapeReleased;
  NkSFNode shapePressed;
};
