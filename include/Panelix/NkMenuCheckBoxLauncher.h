#pragma once

#include "Panelix/Container.h"
#include "Panelix/NkMenuCheckBox.h"
#include "Panelix/NkTopLevelDialog.h"

/// Check box of a menu that shows and hides dialogs of its own with its state.
class PANELIX_API NkMenuCheckBoxLauncher : public panelix::Container<NkMenuCheckBox, NkTopLevelDialog> {
  NK_KIT_HEADER(NkMenuCheckBoxLauncher);

public:
  NkMenuCheckBoxLauncher();

  /// As that of a group, over the dialogs.
  NkPanelix* searchForAuditorId(NbString id);

protected:
  ~NkMenuCheckBoxLauncher() override;
};
