#include "Panelix/NkDialogPushButton.h"

#include "Panelix/NkDialogPushButtonAuditor.h"
#include "arbora/scene/NkSeparator.h"
#include "arbora/scene/NkSwitch.h"

NK_KIT_SOURCE(NkDialogPushButton, NkDialogComponent, "DialogPushButton");

NkDialogPushButton::NkDialogPushButton() {
  NK_KIT_CONSTRUCTOR(NkDialogPushButton);
  NK_NODE_ADD_FIELD(buttonLabel, (""));
  NK_KIT_ADD_CATALOG_ENTRY(labelSep, NkSeparator, true, "geomSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(labelSwitch, NkSwitch, true, "labelSep", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(labelProp, NkGroup, true, "labelSwitch", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(frameSep, NkSeparator, true, "geomSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(frameSwitch, NkSwitch, true, "frameSep", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(released, NkGroup, true, "frameSwitch", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(pressed, NkGroup, true, "frameSwitch", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(buttonLabelSep, NkSeparator, true, "geomSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(buttonLabelProp, NkGroup, true, "buttonLabelSep", "", true);
  NK_KIT_INIT_INSTANCE();
}

NkDialogPushButton::~NkDialogPushButton() = default;

// Events

void NkDialogPushButton::addAuditor(NkDialogPushButtonAuditor* auditor) { NkPanelix::addAuditor(auditor); }

void NkDialogPushButton::removeAuditor(NkDialogPushButtonAuditor* auditor) { NkPanelix::removeAuditor(auditor); }

void NkDialogPushButton::applyDlgCptAuditor() { tellAuditors(&NkDialogPushButtonAuditor::dialogPushButton, this); }

// Skin

const char* NkDialogPushButton::DialogPushButton = "DEF DialogPushButtonPressed Group {"
                                                   "  Material { diffuseColor 1 0.6 0.6 }"
                                                   "  Translation { translation 0 0 0.5 }"
                                                   "  Cube { width 1 height 1 depth 1 }"
                                                   "  Translation { translation 0 0 0.5 }"
                                                   "}"
                                                   "DEF DialogPushButtonReleased Group {"
                                                   "  Material { diffuseColor 0.7 0.7 0.7 }"
                                                   "  Translation { translation 0 0 1 }"
                                                   "  Cube { width 1 height 1 depth 1 }"
                                                   "  Translation { translation 0 0 1 }"
                                                   "}";

NK_SKIN_SOURCE(NkDialogPushButton, DialogPushButton, "DialogPushButtonReleased", "DialogPushButtonPressed");
