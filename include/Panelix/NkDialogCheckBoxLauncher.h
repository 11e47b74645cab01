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

  void buildWidget(HWND parent, NbVec2i32& size, NbVec2i32& position, int is2D) override;
  void eventNotify(unsigned int message, std::uint64_t value) override;

protected:
  ~NkDialogCheckBoxLauncher() override;

private:
  void draggerFinishCallback3D() override;
  /// The dialogs stand open, in each form that the launcher has, as long as it is checked.
  void showDialogs();
  void showWindow(NkTopLevelDialog& dialog) const;
};
