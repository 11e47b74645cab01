#include "Panelix/NkDialogCheckBox.h"

#include "Panelix/NkDialogCheckBoxAuditor.h"
#include "arbora/scene/NkSeparator.h"
#include "arbora/scene/NkSwitch.h"

NK_KIT_SOURCE(NkDialogCheckBox, NkDialogComponent, "DialogCheckBox");

NkDialogCheckBox::NkDialogCheckBox() {
  NK_KIT_CONSTRUCTOR(NkDialogCheckBox);
  NK_NODE_ADD_FIELD(state, (FALSE));
  NK_NODE_ADD_FIELD(onString, (""));
  NK_NODE_ADD_FIELD(offString, (""));
  NK_KIT_ADD_CATALOG_ENTRY(labelSep, NkSeparator, true, "geomSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(labelSwitch, NkSwitch, true, "labelSep", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(labelProp, NkGroup, true, "labelSwitch", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(frameSep, NkSeparator, true, "geomSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(frame, NkGroup, true, "frameSep", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(stateSep, NkSeparator, true, "geomSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(stateSwitch, NkSwitch, true, "stateSep", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(stateOff, NkGroup, true, "stateSwitch", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(stateOn, NkGroup, true, "stateSwitch", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(onOffStringSep, NkSeparator, true, "geomSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(onOffStringProp, NkGroup, true, "onOffStringSep", "", true);
  NK_KIT_INIT_INSTANCE();
}

NkDialogCheckBox::~NkDialogCheckBox() = default;

// Events

void NkDialogCheckBox::addAuditor(NkDialogCheckBoxAuditor* auditor) { NkPanelix::addAuditor(auditor); }

void NkDialogCheckBox::removeAuditor(NkDialogCheckBoxAuditor* auditor) { NkPanelix::removeAuditor(auditor); }

void NkDialogCheckBox::applyDlgCptAuditor() { tellAuditors(&NkDialogCheckBoxAuditor::dialogCheckBox, this); }

// Skin

const char* NkDialogCheckBox::DialogCheckBox = "DEF DialogCheckBoxFrame Group {"
                                               "  Material { diffuseColor 0.7 0.7 0.7 }"
                                               "  Translation { translation 0 0 0.5 }"
                                               "  Cube { width 1 height 1 depth 1}"
                                               "  Translation { translation 0 0 0.5 }"
                                               "}"
                                               "DEF DialogCheckBoxStateOff Group {"
                                               "  Material { diffuseColor 1 1 1 }"
                                               "  Translation { translation 0 0 0.5 }"
                                               "  Cube { width 1 height 1 depth 1}"
                                               "}"
                                               "DEF DialogCheckBoxStateOn Group { "
                                               "  Material { diffuseColor 0 0 0 }"
                                               "  Translation { translation 0 0 0.5 }"
                                               "  Cube { width 1 height 1 depth 1}"
                                               "}";

NK_SKIN_SOURCE(NkDialogCheckBox, DialogCheckBox, "DialogCheckBoxFrame", "DialogCheckBoxStateOff",
               "DialogCheckBoxStateOn");
