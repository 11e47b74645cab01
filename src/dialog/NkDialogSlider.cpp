#include "Panelix/NkDialogSlider.h"

#include "arbora/scene/NkSeparator.h"
#include "arbora/scene/NkSwitch.h"

NK_KIT_SOURCE(NkDialogSlider, NkDialogComponent, "DialogSlider");

NkDialogSlider::NkDialogSlider() {
  NK_KIT_CONSTRUCTOR(NkDialogSlider);
  NK_NODE_ADD_FIELD(valueVisible, (TRUE));
  NK_NODE_ADD_FIELD(format, ("%3f"));
  NK_NODE_ADD_FIELD(continuousTrigger, (FALSE));
  NK_NODE_ADD_FIELD(toggleVisible, (TRUE));
  NK_NODE_ADD_FIELD(fixedLimits, (FALSE));
  NK_NODE_ADD_FIELD(colors, (NbColor(0.66F, 0.66F, 0.66F)));
  NK_NODE_ADD_FIELD(shadedColors, (TRUE));
  NK_KIT_ADD_CATALOG_ENTRY(labelSep, NkSeparator, true, "geomSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(labelSwitch, NkSwitch, true, "labelSep", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(labelProp, NkGroup, true, "labelSwitch", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(checkSep, NkSeparator, true, "geomSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(checkSwtch, NkSwitch, true, "checkSep", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(checkStateOff, NkGroup, true, "checkSwtch", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(checkStateOn, NkGroup, true, "checkSwtch", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(sliderSep, NkSeparator, true, "geomSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(frameSep, NkSeparator, true, "sliderSep", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(frame, NkGroup, true, "frameSep", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(cursorSep, NkSeparator, true, "sliderSep", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(cursor, NkGroup, true, "cursorSep", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(edtSwtch, NkSwitch, true, "geomSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(edtFrmSep, NkSeparator, true, "edtSwtch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(edtFrmSwtch, NkSwitch, true, "edtFrmSep", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(valueFrame, NkGroup, true, "edtFrmSwtch", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(editValueFrame, NkGroup, true, "edtFrmSwtch", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(editTextSep, NkSeparator, true, "edtSwtch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(editTextProp, NkGroup, true, "editTextSep", "", true);
  NK_KIT_INIT_INSTANCE();
}

NkDialogSlider::~NkDialogSlider() = default;

// Skin

const char* NkDialogSlider::DialogSlider = "DEF DialogSliderFrame Group {"
                                           "  Material { diffuseColor 0.6 0.6 0.6}"
                                           "  Translation { translation 0 0 0.5}"
                                           "  Cube { width 1 height 1 depth 1}"
                                           "}"
                                           "DEF DialogSliderCursor Group {"
                                           "  Material { diffuseColor 0.6 1 0.6}"
                                           "  Translation { translation 0 0 0.5}"
                                           "  Scale { scaleFactor 1 1 1}"
                                           "  Cone { bottomRadius 0.5 height 1}"
                                           "}";

NK_SKIN_SOURCE(NkDialogSlider, DialogSlider, "DialogSliderFrame", "DialogSliderCursor");
