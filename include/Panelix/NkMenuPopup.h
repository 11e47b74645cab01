#pragma once

#include "Panelix/AuditedContainer.h"
#include "Panelix/NkMenuItem.h"

/// Entry of a menu bar, or of another popup, that opens a menu of its own.
class PANELIX_API NkMenuPopup : public panelix::AuditedContainer<NkMenuItem, NkMenuItem> {
  NK_KIT_HEADER(NkMenuPopup);
  NK_SKIN_HEADER(MenuPopup);

public:
  NkMenuPopup();

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
