#include "Panelix/NkMenuPushButtonLauncher.h"

#include "src/dialog/support/Auditing.h"

NK_KIT_SOURCE(NkMenuPushButtonLauncher, NkMenuPushButton, "MenuPushButtonLauncher");

namespace {

constexpr panelix::ContainerRules kRules = panelix::launcherRules("NkMenuPushButtonLauncher");

} // namespace

NkMenuPushButtonLauncher::NkMenuPushButtonLauncher() : Container(kRules) {
  NK_KIT_CONSTRUCTOR(NkMenuPushButtonLauncher);
  NK_KIT_INIT_INSTANCE();
}

NkMenuPushButtonLauncher::~NkMenuPushButtonLauncher() = default;

// Auditors

NkPanelix* NkMenuPushButtonLauncher::searchForAuditorId(NbString id) { return panelix::findAuditorId(*this, id); }
