#pragma once

#include "Panelix/Container.h"
#include "Panelix/NkMenuPopup.h"
#include "Panelix/NkTopComponent.h"

class NkDialogAuditor;

/// The row of menus of a top-level dialog.
class PANELIX_API NkMenuBar : public panelix::Container<NkTopComponent, NkMenuPopup> {
  NK_KIT_HEADER(NkMenuBar);
  NK_SKIN_HEADER(MenuBar);

public:
  NkMenuBar();

  /// The auditor hears of each user action in the menus of which nobody further down has heard.
  void addAuditor(NkDialogAuditor* auditor);
  void removeAuditor(NkDialogAuditor* auditor);
  /// The first entry below, in the order of the file, with that `auditorID`; NULL if there is none.
  NkPanelix* searchForAuditorId(NbString id);

  void applyAuditor(NkPanelix* source) override;

protected:
  ~NkMenuBar() override;

private:
  NkSFNode frameSep;
  NkSFNode frame;
};
