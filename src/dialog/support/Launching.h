#pragma once

#include "Panelix/NkTopLevelDialog.h"
#include "arbora/win/NkWin.h"

namespace panelix {

/// Builds a launcher's dialog as a window of the application's.
inline void buildDialogOf(NkPanelix* launcher, NkTopLevelDialog* dialog) {
  dialog->buildDialog(NkWin::getTopLevelWidget(), 0);
  dialog->setParent(launcher);
}

/// The same, unless its window is there.
inline void openDialogOf(NkPanelix* launcher, NkTopLevelDialog* dialog) {
  if (!NkPanelix::existWidget(dialog->getBaseWidget())) buildDialogOf(launcher, dialog);
}

} // namespace panelix
