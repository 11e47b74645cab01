#include "Panelix/NkDialogRadioButtons.h"

#include "arbora/scene/NkSeparator.h"
#include "arbora/scene/NkSwitch.h"

NK_KIT_SOURCE(NkDialogRadioButtons, NkDialogChoice, "DialogRadioButtons");

NkDialogRadioButtons::NkDialogRadioButtons() {
  NK_KIT_CONSTRUCTOR(NkDialogRadioButtons);
  NK_KIT_ADD_CATALOG_ENTRY(frameSep, NkSeparator, true, "geomSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(frame, NkGroup, true, "frameSep", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(labelSep, NkSeparator, true, "geomSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(labelSwitch, NkSwitch, true, "labelSep", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(labelProp, NkGroup, true, "labelSwitch", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(itemsSep, NkSwitch, true, "geomSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(itemSep, NkSeparator, true, "itemsSep", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(itemFrameSep, NkSeparator, true, "itemSep", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(itemFrame, NkGroup, true, "itemFrameSep", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(itemBtnSep, NkSeparator, true, "itemSep", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(itemBtnSwtch, NkSwitch, true, "itemBtnSep", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(stateOff, NkGroup, true, "itemBtnSwtch", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(stateOn, NkGroup, true, "itemBtnSwtch", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(itemTextSep, NkSeparator, true, "itemSep", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(itemTextProp, NkGroup, true, "itemTextSep", "", true);
  NK_KIT_INIT_INSTANCE();
  labelAlignment = LEFT;
}

NkDialogRadioButtons::~NkDialogRadioButtons() = default;

// Skin

const char* NkDialogRadioButtons::DialogRadioButtons = "DEF DialogRadioButtonsFrame Group {"
                                                       "  Material { diffuseColor 0.8 0.8 0.8 }"
                                                       "  Translation { translation 0 0 0.5 }"
                                                       "  Cube { width 1 height 1 depth 1}"
                                                       "  Translation { translation 0 0 0.5 }"
                                                       "}"
                                                       "DEF DialogRadioButtonsItemFrame Group {"
                                                       "  Material { diffuseColor 0.7 0.7 0.7 }"
                                                       "  Translation { translation 0 0 0.5 }"
                                                       "  Cube { width 1 height 1 depth 1}"
                                                       "  Translation { translation 0 0 0.5 }"
                                                       "}"
                                                       "DEF DialogRadioButtonsStateOff Group {"
                                                       "  Material { diffuseColor 1 1 1 }"
                                                       "  Sphere { radius 0.5}"
                                                       "}"
                                                       "DEF DialogRadioButtonsStateOn Group {"
                                                       "  Material { diffuseColor 1 1 1 }"
                                                       "  Sphere { radius 0.5 }"
                                                       "  Translation { translation 0 0 0.4 }"
                                                       "  BaseColor { rgb  0 0 0 }"
                                                       "  Sphere { radius 0.2 }"
                                                       "}";

NK_SKIN_SOURCE(NkDialogRadioButtons, DialogRadioButtons, "DialogRadioButtonsFrame", "DialogRadioButtonsItemFrame",
               "DialogRadioButtonsStateOff", "DialogRadioButtonsStateOn");
