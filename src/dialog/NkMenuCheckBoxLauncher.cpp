#include "Panelix/NkMenuCheckBoxLauncher.h"

#include "src/dialog/support/Auditing.h"

NK_KIT_SOURCE(NkMenuCheckBoxLauncher, NkMenuCheckBox, "MenuCheckBoxLauncher");

namespace {

constexpr panelix::ContainerRules kRules = panelix::launcherRules("NkMenuCheckBoxLauncher");

} // namespace

NkMenuCheckBoxLauncher::NkMenuCheckBoxLauncher() : Container(kRules) {
  NK_KIT_CONSTRUCTOR(NkMenuCheckBoxLauncher);
  NK_KIT_INIT_INSTANCE();
}

NkMenuCheckBoxLauncher::~NkMenuCheckBoxLauncher() = default;

// Auditors

NkPanelix* NkMenuCheckBoxLauncher::searchForAuditorId(NbString id) { return panelix::findAuditorId(*this, id); }
