#pragma once

#include "Panelix/Container.h"
#include "Panelix/NkDialogPushButton.h"
#include "Panelix/NkTopLevelDialog.h"

/// Push button that brings up dialogs of its own.
class PANELIX_API NkDialogPushButtonLauncher : public panelix::Container<NkDialogPushButton, NkTopLevelDialog> {
  NK_KIT_HEADER(NkDialogPushButtonLauncher);

public:
  NkDialogPushButtonLauncher();

  /// As those of a group, over the dialogs.
  void applyAuditors();
  NkPanelix* searchForAuditorId(NbString id);

protected:
  ~NkDialogPushButtonLauncher() override;
};
