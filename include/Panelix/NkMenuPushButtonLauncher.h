#pragma once

#include "Panelix/Container.h"
#include "Panelix/NkMenuPushButton.h"
#include "Panelix/NkTopLevelDialog.h"

/// Push button of a menu that shows dialogs of its own.
class PANELIX_API NkMenuPushButtonLauncher : public panelix::Container<NkMenuPushButton, NkTopLevelDialog> {
  NK_KIT_HEADER(NkMenuPushButtonLauncher);

public:
  NkMenuPushButtonLauncher();

  /// As that of a group, over the dialogs.
  NkPanelix* searchForAuditorId(NbString id);

protected:
  ~NkMenuPushButtonLauncher() override;
};
