#include "src/dialog/support/Auditing.h"

#include "Panelix/NkDialogAuditor.h"
#include "Panelix/NkDialogCheckBoxLauncher.h"
#include "Panelix/NkDialogComboBox.h"
#include "Panelix/NkDialogEditText.h"
#include "Panelix/NkDialogGroup.h"
#include "Panelix/NkDialogIntegerSlider.h"
#include "Panelix/NkDialogPushButtonLauncher.h"
#include "Panelix/NkDialogRadioButtons.h"
#include "Panelix/NkDialogRealSlider.h"
#include "Panelix/NkMenuBar.h"
#include "Panelix/NkMenuCheckBoxLauncher.h"
#include "Panelix/NkMenuFileSelection.h"
#include "Panelix/NkMenuPopup.h"
#include "Panelix/NkMenuPushButtonLauncher.h"
#include "Panelix/NkMenuRadioButtons.h"
#include "Panelix/NkTopLevelDialog.h"

namespace panelix {
namespace {

template <class Kind>
bool tell(NkDialogAuditor* auditor, void (NkDialogAuditor::*operation)(Kind*), NkPanelix* source) {
  Kind* component = arbora::as<Kind>(source);
  if (component) (auditor->*operation)(component);
  return component != nullptr;
}

/// Calls `visit` with the container as what it is, if it is of one of the classes.
template <class... Classes, class Visit>
bool visitAs(NkPanelix& container, Visit&& visit) {
  const auto tryClass = [&](auto* typed) {
    if (typed) visit(*typed);
    return typed != nullptr;
  };
  return (tryClass(arbora::as<Classes>(&container)) || ...);
}

} // namespace

void tellDialogKinds(NkDialogAuditor* auditor, NkPanelix* source) {
  tell(auditor, &NkDialogAuditor::dialogPushButton, source);
  tell(auditor, &NkDialogAuditor::dialogCheckBox, source);
  tell(auditor, &NkDialogAuditor::dialogComboBox, source);
  tell(auditor, &NkDialogAuditor::dialogEditText, source);
  tell(auditor, &NkDialogAuditor::dialogRadioButtons, source);
  tell(auditor, &NkDialogAuditor::dialogIntegerSlider, source);
  tell(auditor, &NkDialogAuditor::dialogRealSlider, source);
}

void tellMenuKinds(NkDialogAuditor* auditor, NkPanelix* source) {
  tell(auditor, &NkDialogAuditor::menuCheckBox, source);
  tell(auditor, &NkDialogAuditor::menuRadioButtons, source);
  // A file selection is a push button, too.
  if (!tell(auditor, &NkDialogAuditor::menuFileSelection, source))
    tell(auditor, &NkDialogAuditor::menuPushButton, source);
}

void tellAllKinds(NkDialogAuditor* auditor, NkPanelix* source) {
  tellDialogKinds(auditor, source);
  tellMenuKinds(auditor, source);
}

bool applyAuditorsOf(NkPanelix& child) {
  return visitAs<NkDialogGroup, NkDialogCheckBoxLauncher, NkDialogPushButtonLauncher, NkTopLevelDialog>(
      child, [](auto& container) { container.applyAuditors(); });
}

NkPanelix* findAuditorIdFrom(NkPanelix& child, const NbString& id) {
  if (child.auditorID.getValue() == id) return &child;
  NkPanelix* found = nullptr;
  visitAs<NkDialogGroup, NkDialogCheckBoxLauncher, NkDialogPushButtonLauncher, NkTopLevelDialog, NkMenuBar, NkMenuPopup,
          NkMenuCheckBoxLauncher, NkMenuPushButtonLauncher>(
      child, [&](auto& container) { found = findAuditorId(container, id); });
  return found;
}

} // namespace panelix
