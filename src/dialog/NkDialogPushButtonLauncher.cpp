#include "Panelix/NkDialogPushButtonLauncher.h"

#include "src/dialog/support/Auditing.h"

NK_KIT_SOURCE(NkDialogPushButtonLauncher, NkDialogPushButton, "DialogPushButtonLauncher");

namespace {

constexpr panelix::ContainerRules kRules{"NkDialogPushButtonLauncher", panelix::kOutOfRangeBeCareful, false, false,
                                         true};

} // namespace

NkDialogPushButtonLauncher::NkDialogPushButtonLauncher() : Container(kRules) {
  NK_KIT_CONSTRUCTOR(NkDialogPushButtonLauncher);
  NK_KIT_INIT_INSTANCE();
}

NkDialogPushButtonLauncher::~NkDialogPushButtonLauncher() = default;

// Auditors

void NkDialogPushButtonLauncher::applyAuditors() { panelix::applyAuditorsBelow(*this); }

NkPanelix* NkDialogPushButtonLauncher::searchForAuditorId(NbString id) { return panelix::findAuditorId(*this, id); }
