#include "Panelix/NkTabDialog.h"

#include "Panelix/NkTabDialogAuditor.h"
#include "arbora/scene/NkSeparator.h"
#include "arbora/scene/NkSwitch.h"
#include "src/dialog/support/BevelledButton.h"

NK_KIT_SOURCE(NkTabDialog, NkDialogGroup, "TabDialog");

NkTabDialog::NkTabDialog() {
  NK_KIT_CONSTRUCTOR(NkTabDialog);
  NK_NODE_ADD_FIELD(selectedPage, (0));
  NK_NODE_ADD_FIELD(tabsLocation, (TOP));
  NK_NODE_DEFINE_ENUM_VALUE(TabsLocation, TOP);
  NK_NODE_DEFINE_ENUM_VALUE(TabsLocation, BOTTOM);
  NK_NODE_DEFINE_ENUM_VALUE(TabsLocation, LEFT);
  NK_NODE_DEFINE_ENUM_VALUE(TabsLocation, RIGHT);
  NK_NODE_SET_SF_ENUM_TYPE(tabsLocation, TabsLocation);
  NK_KIT_ADD_CATALOG_ENTRY(pagesSep, NkSeparator, true, "geomSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(pageSwitch, NkSwitch, true, "pagesSep", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(pageSep, NkSeparator, true, "pageSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(labelSep, NkSeparator, true, "pageSep", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(labelSwitch, NkSwitch, true, "labelSep", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(unselected, NkGroup, true, "labelSwitch", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(selected, NkGroup, true, "labelSwitch", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(textSep, NkSeparator, true, "pageSep", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(textProp, NkGroup, true, "textSep", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(buttonsSep, NkSeparator, true, "geomSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(lButtonSep, NkSeparator, true, "buttonsSep", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(lButtonSwtch, NkSwitch, true, "lButtonSep", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(lButtonReleased, NkGroup, true, "lButtonSwtch", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(lButtonPressed, NkGroup, true, "lButtonSwtch", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(rButtonSep, NkSeparator, true, "buttonsSep", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(rButtonSwtch, NkSwitch, true, "rButtonSep", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(rButtonReleased, NkGroup, true, "rButtonSwtch", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(rButtonPressed, NkGroup, true, "rButtonSwtch", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(frameSep, NkSeparator, true, "geomSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(frame, NkGroup, true, "frameSep", "", true);
  NK_KIT_INIT_INSTANCE();
}

NkTabDialog::~NkTabDialog() = default;

// Children: misuse of these three is posted under the name of this class, of the others under the group's.

void NkTabDialog::addChild(NkDialogComponent* child) {
  if (child)
    NkDialogGroup::addChild(child);
  else
    NkDebugError::post("NkTabDialog::addChild", panelix::kNullChild);
}

void NkTabDialog::insertChild(NkDialogComponent* child, int index) {
  if (child)
    NkDialogGroup::insertChild(child, index);
  else
    NkDebugError::post("NkTabDialog::insertChild", panelix::kNullChild);
}

void NkTabDialog::removeChild(int index) {
  if (index >= 0 && index < getNumChildren())
    NkDialogGroup::removeChild(index);
  else
    NkDebugError::post("NkTabDialog::removeChild", panelix::kOutOfRange, index, 0, getNumChildren() - 1);
}

// Events

void NkTabDialog::addAuditor(NkTabDialogAuditor* auditor) { NkPanelix::addAuditor(auditor); }

void NkTabDialog::removeAuditor(NkTabDialogAuditor* auditor) { NkPanelix::removeAuditor(auditor); }

void NkTabDialog::applyDlgCptAuditor() { tellAuditors(&NkTabDialogAuditor::tabDialog, this); }

// Skin

const char* NkTabDialog::TabDialog =
    "DEF TabDialogFrame Group {"
    "  Material { diffuseColor 0.7 0.7 0.7 }"
    "  Translation { translation 0 0 0.5 }"
    "  Cube { width 1 height 1 depth 1}"
    "  Translation { translation 0 0 0.5 }"
    "}"
    "DEF TabDialogSelectedTabFrame Group {"
    "  Material { diffuseColor 0.6 0.6 0.6 }"
    "  Translation { translation 0 0 0.5 }"
    "  Cube { width 1 height 1 depth 1 }"
    "  Translation { translation 0 0 0.5 }"
    "}"
    "DEF TabDialogUnselectedTabFrame Group {"
    "  Material { diffuseColor 0.7 0.7 0.7 }"
    "  Translation { translation 0 -0.2 0.4}"
    "  Cube { width 1 height 1 depth 0.8}"
    "  Translation { translation 0 0 0.4 }"
    "}"
    "DEF _TabDialogButtonPressed_ Group { " PANELIX_BEVELLED_BUTTON(
        "0.5 0.5 0.5", "1 1 1", "0.2 0.2 0.2", "0.7 0.7 0.7",
        "0.7 0.7 0.7") "}"
                       "DEF _TabDialogButtonReleased_ Group { " PANELIX_BEVELLED_BUTTON(
                           "0.7 0.7 0.7", "0.2 0.2 0.2", "1 1 1", "0.5 0.5 0.5",
                           "0.7 0.7 0.7") "}"
                                          "DEF TabDialogLeftButtonPressed Group {"
                                          "  USE _TabDialogButtonPressed_"
                                          "}"
                                          "DEF TabDialogLeftButtonReleased Group {"
                                          "  USE _TabDialogButtonReleased_"
                                          "}"
                                          "DEF TabDialogRightButtonPressed Group {"
                                          "  USE _TabDialogButtonPressed_"
                                          "}"
                                          "DEF TabDialogRightButtonReleased Group {"
                                          "  USE _TabDialogButtonReleased_"
                                          "}";

NK_SKIN_SOURCE(NkTabDialog, TabDialog, "TabDialogSelectedTabFrame", "TabDialogUnselectedTabFrame",
               "TabDialogLeftButtonPressed", "TabDialogLeftButtonReleased", "TabDialogRightButtonPressed",
               "TabDialogRightButtonReleased", "TabDialogFrame");
