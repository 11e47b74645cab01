#pragma once

#include "Panelix/Container.h"
#include "Panelix/NkDialogPushButton.h"
#include "Panelix/NkTopLevelDialog.h"

/// Push button that brings up dialogs of its own: a click opens their windows, or raises them if they are open. From
/// the scene nothing is opened.
class PANELIX_API NkDialogPushButtonLauncher : public panelix::Container<NkDialogPushButton, NkTopLevelDialog> {
  NK_KIT_HEADER(NkDialogPushButtonLauncher);

public:
  NkDialogPushButtonLauncher();

  /// As those of a group, over the dialogs.
  void applyAuditors();
  NkPanelix* searchForAuditorId(NbString id);

  void buildWidget(HWND parent, NbVec2i32& size, NbVec2i32& position, int is2D) override;
  void eventNotify(unsigned int message, std::uint64_t value) override;

protected:
  ~NkDialogPushButtonLauncher() override;
};
