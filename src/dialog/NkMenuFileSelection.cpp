#include "Panelix/NkMenuFileSelection.h"

#include "Panelix/NkMenuFileSelectionAuditor.h"
#include "Panelix/NkMenuPushButtonAuditor.h"

NK_KIT_SOURCE(NkMenuFileSelection, NkMenuPushButton, "MenuFileSelection");

NkMenuFileSelection::NkMenuFileSelection() {
  NK_KIT_CONSTRUCTOR(NkMenuFileSelection);
  NK_NODE_ADD_FIELD(title, (""));
  NK_NODE_ADD_FIELD(filter, (""));
  NK_NODE_ADD_FIELD(defaultFilter, (0));
  NK_NODE_ADD_FIELD(fileDirectory, ("."));
  NK_NODE_ADD_FIELD(filename, (""));
  NK_NODE_ADD_FIELD(mode, (OPEN));
  NK_NODE_DEFINE_ENUM_VALUE(Mode, OPEN);
  NK_NODE_DEFINE_ENUM_VALUE(Mode, SAVE);
  NK_NODE_SET_SF_ENUM_TYPE(mode, Mode);
  NK_KIT_INIT_INSTANCE();
  filter = "*.arb";
  filter.set1Value(1, "Arbora file");
}

NkMenuFileSelection::~NkMenuFileSelection() = default;

void NkMenuFileSelection::setIsOpened(int isOpened) { m_isOpened = isOpened; }

// Events

void NkMenuFileSelection::addAuditor(NkMenuFileSelectionAuditor* auditor) { NkPanelix::addAuditor(auditor); }

void NkMenuFileSelection::removeAuditor(NkMenuFileSelectionAuditor* auditor) { NkPanelix::removeAuditor(auditor); }

void NkMenuFileSelection::validateFilename() { applyDlgCptAuditor(); }

namespace {

/// Who holds a file selection as a push button may have given it an auditor of push buttons.
void tellEitherKind(NkAuditor* auditor, NkMenuFileSelection* selection) {
  if (auto* ofFiles = dynamic_cast<NkMenuFileSelectionAuditor*>(auditor))
    ofFiles->menuFileSelection(selection);
  else if (auto* ofButtons = dynamic_cast<NkMenuPushButtonAuditor*>(auditor))
    ofButtons->menuPushButton(selection);
}

} // namespace

void NkMenuFileSelection::tellOwnAuditors() { tellAuditors(tellEitherKind, this); }
