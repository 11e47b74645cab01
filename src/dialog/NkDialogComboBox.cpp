#include "Panelix/NkDialogComboBox.h"

#include "arbora/scene/NkSeparator.h"
#include "arbora/scene/NkSwitch.h"
#include "src/dialog/support/BevelledButton.h"

NK_KIT_SOURCE(NkDialogComboBox, NkDialogChoice, "DialogComboBox");

NkDialogComboBox::NkDialogComboBox() {
  NK_KIT_CONSTRUCTOR(NkDialogComboBox);
  NK_KIT_ADD_CATALOG_ENTRY(labelSep, NkSeparator, true, "geomSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(labelSwitch, NkSwitch, true, "labelSep", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(labelProp, NkGroup, true, "labelSwitch", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(frameSep, NkSeparator, true, "geomSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(frame, NkGroup, true, "frameSep", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(textSep, NkSeparator, true, "geomSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(textProp, NkGroup, true, "textSep", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(buttonSep, NkSeparator, true, "geomSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(buttonSwitch, NkSwitch, true, "buttonSep", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(buttonReleased, NkGroup, true, "buttonSwitch", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(buttonPressed, NkGroup, true, "buttonSwitch", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(itemsSwitch, NkSwitch, true, "geomSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(itemStrucSep, NkSeparator, true, "itemsSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(itemSep, NkSeparator, true, "itemStrucSep", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(itemFrame, NkGroup, true, "itemSep", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(itemTextSep, NkSeparator, true, "itemStrucSep", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(itemTextProp, NkGroup, true, "itemTextSep", "", true);
  NK_KIT_INIT_INSTANCE();
}

NkDialogComboBox::~NkDialogComboBox() = default;

// Skin

// clang-format off
const char* NkDialogComboBox::DialogComboBox =
    "DEF DialogComboBoxFrame Group {"
    "  Material { diffuseColor 0.7 0.7 0.7 }"
    "  Translation { translation 0 0 0.5 }"
    "  Cube { width 1 height 1 depth 1 }"
    "  Translation { translation 0 0 0.5 }"
    "}"
    "DEF DialogComboBoxItemFrame Group {"
    "  Material { diffuseColor 0.8 0.8 0.8 }"
    "  Translation { translation 0 0 0.5 }"
    "  Cube { width 1 height 1 depth 1 }"
    "  Translation { translation 0 0 0.5 }"
    "}"
    "DEF DialogComboBoxButtonReleased Group {"
    PANELIX_BEVELLED_BUTTON("0.7 0.7 0.7", "0.2 0.2 0.2", "1 1 1", "0.5 0.5 0.5", "0.7 0.7 0.7")
    "}"
    "DEF DialogComboBoxButtonPressed Group {"
    PANELIX_BEVELLED_BUTTON("0.5 0.5 0.5", "1 1 1", "0.2 0.2 0.2", "0.7 0.7 0.7", "0 0 0")
    "}";
// clang-format on

NK_SKIN_SOURCE(NkDialogComboBox, DialogComboBox, "DialogComboBoxFrame", "DialogComboBoxItemFrame",
               "DialogComboBoxButtonReleased", "DialogComboBoxButtonPressed");
