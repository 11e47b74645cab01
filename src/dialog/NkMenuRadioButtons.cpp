#include "Panelix/NkMenuRadioButtons.h"

#include "Panelix/NkMenuRadioButtonsAuditor.h"
#include "arbora/scene/NkSeparator.h"
#include "arbora/scene/NkSwitch.h"

NK_KIT_SOURCE(NkMenuRadioButtons, NkMenuItem, "MenuRadioButtons");

NkMenuRadioButtons::NkMenuRadioButtons() {
  NK_KIT_CONSTRUCTOR(NkMenuRadioButtons);
  NK_NODE_ADD_FIELD(items, (""));
  NK_NODE_ADD_FIELD(selectedItem, (0));
  NK_NODE_ADD_FIELD(accelerators, (""));
  NK_KIT_ADD_CATALOG_ENTRY(radioSep, NkSeparator, true, "geomSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(itemsSep, NkSeparator, true, "radioSep", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(itemSwtch, NkSwitch, true, "itemsSep", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(stateOff, NkGroup, true, "itemSwtch", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(stateOn, NkGroup, true, "itemSwtch", "", true);
  NK_KIT_INIT_INSTANCE();
}

NkMenuRadioButtons::~NkMenuRadioButtons() = default;

// Events

void NkMenuRadioButtons::addAuditor(NkMenuRadioButtonsAuditor* auditor) { NkPanelix::addAuditor(auditor); }

void NkMenuRadioButtons::removeAuditor(NkMenuRadioButtonsAuditor* auditor) { NkPanelix::removeAuditor(auditor); }

void NkMenuRadioButtons::applyDlgCptAuditor() { tellAuditors(&NkMenuRadioButtonsAuditor::menuRadioButtons, this); }

// Skin

const char* NkMenuRadioButtons::MenuRadioButtons = "DEF MenuRadioButtonsStateOn Group {"
                                                   "  Material { diffuseColor 1 1 1 }"
                                                   "  Sphere { radius 0.5}"
                                                   "  Translation { translation 0 0 0.5}"
                                                   "  BaseColor { rgb  0 0 0 }"
                                                   "  Sphere { radius 0.2}"
                                                   "}"
                                                   "DEF MenuRadioButtonsStateOff Group {"
                                                   "  Material { diffuseColor 1 1 1 }"
                                                   "  Translation { translation 0 0 0.5}"
                                                   "  Sphere { radius 0.5}"
                                                   "}";

NK_SKIN_SOURCE(NkMenuRadioButtons, MenuRadioButtons, "MenuRadioButtonsStateOn", "MenuRadioButtonsStateOff");
