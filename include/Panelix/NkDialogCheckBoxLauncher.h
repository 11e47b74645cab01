#pragma once

#include "Panelix/Container.h"
#include "Panelix/NkDialogCheckBox.h"
#include "Panelix/NkTopLevelDialog.h"

/// Check box that shows and hides dialogs of its own with its state.
class PANELIX_API NkDialogCheckBoxLauncher : public panelix::Container<NkDialogCheckBox, NkTopLevelDialog> {
  NK_KIT_HEADER(NkDialogCheckBoxLauncher);

public:
  NkDialogCheckBoxLauncher();

  /// As those of a group, over the dialogs.
  void applyAuditors();
  NkPanelix* searchForAuditorId(NbString id);

protected:
  ~NkDialogCheckBoxLauncher() override;
};
