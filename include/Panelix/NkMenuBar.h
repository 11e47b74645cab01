#pragma once

#include "Panelix/AuditedContainer.h"
#include "Panelix/NkMenuPopup.h"
#include "Panelix/NkTopComponent.h"

/// The row of menus of a top-level dialog.
class PANELIX_API NkMenuBar : public panelix::AuditedContainer<NkTopComponent, NkMenuPopup> {
  NK_KIT_HEADER(NkMenuBar);
  NK_SKIN_HEADER(MenuBar);

public:
  NkMenuBar();

  /// The first entry below, in the order of the file, with that `auditorID`; NULL if there is none.
  NkPanelix* searchForAuditorId(NbString id);

  void applyAuditor(NkPanelix* source) override;

protected:
  ~NkMenuBar() override;

private:
  NkSFNode frameSep;
  NkSFNode frame;
};
