#include "Panelix/NkDialogCheckBoxLauncher.h"

#include "src/dialog/support/Auditing.h"
#include "src/dialog/support/Launching.h"
#include "src/dialog/support/SensorPause.h"

NK_KIT_SOURCE(NkDialogCheckBoxLauncher, NkDialogCheckBox, "DialogCheckBoxLauncher");

namespace {

constexpr panelix::ContainerRules kRules = panelix::launcherRules("NkDialogCheckBoxLauncher");

} // namespace

NkDialogCheckBoxLauncher::NkDialogCheckBoxLauncher() : Container(kRules) {
  NK_KIT_CONSTRUCTOR(NkDialogCheckBoxLauncher);
  NK_KIT_INIT_INSTANCE();
}

NkDialogCheckBoxLauncher::~NkDialogCheckBoxLauncher() = default;

// Building

void NkDialogCheckBoxLauncher::buildWidget(HWND parent, NbVec2i32& size, NbVec2i32& position, int is2D) {
  const arbora::KeepAlive alive(this);
  NkDialogCheckBox::buildWidget(parent, size, position, is2D);
  showDialogs();
}

void NkDialogCheckBoxLauncher::showDialogs() {
  forEachChild([this](NkTopLevelDialog* dialog) {
    if (m_built2D) {
      panelix::openDialogOf(this, dialog);
      showWindow(*dialog);
    }
    if (isBuilt3D()) dialog->show3D(state.getValue());
  });
}

void NkDialogCheckBoxLauncher::showWindow(NkTopLevelDialog& dialog) const {
  if (state.getValue())
    dialog.show();
  else
    dialog.hide();
}

// Events

void NkDialogCheckBoxLauncher::eventNotify(unsigned int message, std::uint64_t value) {
  const arbora::KeepAlive alive(this);
  NkDialogCheckBox::eventNotify(message, value);
  showDialogs();
}

void NkDialogCheckBoxLauncher::draggerFinishCallback3D() {
  const arbora::KeepAlive alive(this);
  {
    const panelix::SensorPause quiet(m_stateSensor, state);
    state = !state.getValue();
    if (m_built2D) changeOnOffString();
    if (isLive3D()) change3DOnOffString();
    applyDlgCptAuditor();
  }
  forEachChild([this](NkTopLevelDialog* dialog) {
    dialog->show3D(state.getValue());
    if (m_built2D) showWindow(*dialog);
  });
  // The write was not heard.
  change3DState();
}

// Auditors

void NkDialogCheckBoxLauncher::applyAuditors() { panelix::applyAuditorsBelow(*this); }

NkPanelix* NkDialogCheckBoxLauncher::searchForAuditorId(NbString id) { return panelix::findAuditorId(*this, id); }
