#include "Panelix/NkDialogCheckBoxLauncher.h"

#include "src/dialog/support/Auditing.h"

NK_KIT_SOURCE(NkDialogCheckBoxLauncher, NkDialogCheckBox, "DialogCheckBoxLauncher");

namespace {

constexpr panelix::ContainerRules kRules{"NkDialogCheckBoxLauncher", panelix::kOutOfRangeBeCareful, false, false, true};

} // namespace

NkDialogCheckBoxLauncher::NkDialogCheckBoxLauncher() : Container(kRules) {
  NK_KIT_CONSTRUCTOR(NkDialogCheckBoxLauncher);
  NK_KIT_INIT_INSTANCE();
}

NkDialogCheckBoxLauncher::~NkDialogCheckBoxLauncher() = default;

// Auditors

void NkDialogCheckBoxLauncher::applyAuditors() { panelix::applyAuditorsBelow(*this); }

NkPanelix* NkDialogCheckBoxLauncher::searchForAuditorId(NbString id) { return panelix::findAuditorId(*this, id); }
