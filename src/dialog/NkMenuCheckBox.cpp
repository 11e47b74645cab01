#include "Panelix/NkMenuCheckBox.h"

#include "Panelix/NkMenuCheckBoxAuditor.h"
#include "arbora/scene/NkSeparator.h"
#include "arbora/scene/NkSwitch.h"

NK_KIT_SOURCE(NkMenuCheckBox, NkMenuItem, "MenuCheckBox");

NkMenuCheckBox::NkMenuCheckBox() {
  NK_KIT_CONSTRUCTOR(NkMenuCheckBox);
  NK_NODE_ADD_FIELD(state, (FALSE));
  NK_NODE_ADD_FIELD(onString, (""));
  NK_NODE_ADD_FIELD(accelerator, (""));
  NK_KIT_ADD_CATALOG_ENTRY(chkSep, NkSeparator, true, "geomSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(chkSwtch, NkSwitch, true, "chkSep", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(stateOff, NkGroup, true, "chkSwtch", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(stateOn, NkGroup, true, "chkSwtch", "", true);
  NK_KIT_INIT_INSTANCE();
}

NkMenuCheckBox::~NkMenuCheckBox() = default;

// Events

void NkMenuCheckBox::addAuditor(NkMenuCheckBoxAuditor* auditor) { NkPanelix::addAuditor(auditor); }

void NkMenuCheckBox::removeAuditor(NkMenuCheckBoxAuditor* auditor) { NkPanelix::removeAuditor(auditor); }

void NkMenuCheckBox::applyDlgCptAuditor() { tellAuditors(&NkMenuCheckBoxAuditor::menuCheckBox, this); }

// Skin

const char* NkMenuCheckBox::MenuCheckBox = "DEF MenuCheckBoxStateOff Group {"
                                           "  Material { diffuseColor 1 1 1 }"
                                           "  Translation { translation 0 0 0.5 }"
                                           "  Cube { width 1 height 1 depth 1}"
                                           "}"
                                           "DEF MenuCheckBoxStateOn Group {"
                                           "  Material { diffuseColor 0 0 0 }"
                                           "  Translation { translation 0 0 0.5 }"
                                           "  Cube { width 1 height 1 depth 1}"
                                           "}";

NK_SKIN_SOURCE(NkMenuCheckBox, MenuCheckBox, "MenuCheckBoxStateOn", "MenuCheckBoxStateOff");
