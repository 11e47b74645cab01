#include "Panelix/NkDialogPushButtonLauncher.h"

#include "src/dialog/support/Auditing.h"
#include "src/dialog/support/Launching.h"

NK_KIT_SOURCE(NkDialogPushButtonLauncher, NkDialogPushButton, "DialogPushButtonLauncher");

namespace {

constexpr panelix::ContainerRules kRules = panelix::launcherRules("NkDialogPushButtonLauncher");

} // namespace

NkDialogPushButtonLauncher::NkDialogPushButtonLauncher() : Container(kRules) {
  NK_KIT_CONSTRUCTOR(NkDialogPushButtonLauncher);
  NK_KIT_INIT_INSTANCE();
}

NkDialogPushButtonLauncher::~NkDialogPushButtonLauncher() = default;

// Building

void NkDialogPushButtonLauncher::buildWidget(HWND parent, NbVec2i32& size, NbVec2i32& position, int is2D) {
  const arbora::KeepAlive alive(this);
  NkDialogPushButton::buildWidget(parent, size, position, is2D);
  forEachChild([this](NkTopLevelDialog* dialog) {
    if (m_built2D) panelix::openDialogOf(this, dialog);
    if (!isBuilt3D()) return;
    panelix::buildDialogOf(this, dialog);
    dialog->show3D(0);
  });
}

// Events

void NkDialogPushButtonLauncher::eventNotify(unsigned int message, std::uint64_t value) {
  const arbora::KeepAlive alive(this);
  NkDialogPushButton::eventNotify(message, value);
  forEachChild([this](NkTopLevelDialog* dialog) {
    panelix::openDialogOf(this, dialog);
    dialog->show();
    SetWindowPos(dialog->getBaseWidget(), nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE);
  });
}

// Auditors

void NkDialogPushButtonLauncher::applyAuditors() { panelix::applyAuditorsBelow(*this); }

NkPanelix* NkDialogPushButtonLauncher::searchForAuditorId(NbString id) { return panelix::findAuditorId(*this, id); }
