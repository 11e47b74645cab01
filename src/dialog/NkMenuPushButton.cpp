#include "Panelix/NkMenuPushButton.h"

#include "Panelix/NkMenuPushButtonAuditor.h"
#include "arbora/scene/NkSeparator.h"
#include "arbora/scene/NkSwitch.h"

NK_KIT_SOURCE(NkMenuPushButton, NkMenuItem, "MenuPushButton");

NkMenuPushButton::NkMenuPushButton() {
  NK_KIT_CONSTRUCTOR(NkMenuPushButton);
  NK_NODE_ADD_FIELD(accelerator, (""));
  NK_KIT_ADD_CATALOG_ENTRY(btnSep, NkSeparator, true, "geomSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(btnSwtch, NkSwitch, true, "btnSep", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(released, NkGroup, true, "btnSwtch", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(pressed, NkGroup, true, "btnSwtch", "", true);
  NK_KIT_INIT_INSTANCE();
}

NkMenuPushButton::~NkMenuPushButton() = default;

// Events

void NkMenuPushButton::addAuditor(NkMenuPushButtonAuditor* auditor) { NkPanelix::addAuditor(auditor); }

void NkMenuPushButton::removeAuditor(NkMenuPushButtonAuditor* auditor) { NkPanelix::removeAuditor(auditor); }

void NkMenuPushButton::applyDlgCptAuditor() { tellOwnAuditors(); }

void NkMenuPushButton::tellOwnAuditors() { tellAuditors(&NkMenuPushButtonAuditor::menuPushButton, this); }

// Skin

const char* NkMenuPushButton::MenuPushButton = "DEF MenuPushButtonPressed Group {"
                                               "  Material { diffuseColor 1 0.6 0.6 }"
                                               "  Translation { translation 0 0 0.25}"
                                               "  Cube { width 1 height 1 depth 0.5 }"
                                               "  Translation { translation 0 0 0.25}"
                                               "}"
                                               "DEF MenuPushButtonReleased Group {"
                                               "  Material { diffuseColor 0.8 0.8 0.8 }"
                                               "  Translation { translation 0 0 0.5}"
                                               "  Cube { width 1 height 1 depth 1 }"
                                               "  Translation { translation 0 0 0.5}"
                                               "}";

NK_SKIN_SOURCE(NkMenuPushButton, MenuPushButton, "MenuPushButtonReleased", "MenuPushButtonPressed");
