#include "Panelix/NkDialogSeparator.h"

#include "arbora/scene/NkSeparator.h"
#include "arbora/scene/NkSwitch.h"

NK_KIT_SOURCE(NkDialogSeparator, NkDialogComponent, "DialogSeparator");

NkDialogSeparator::NkDialogSeparator() {
  NK_KIT_CONSTRUCTOR(NkDialogSeparator);
  NK_KIT_ADD_CATALOG_ENTRY(frameSep, NkSeparator, true, "geomSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(frameSwitch, NkSwitch, true, "frameSep", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(vFrame, NkGroup, true, "frameSwitch", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(hFrame, NkGroup, true, "frameSwitch", "", true);
  NK_KIT_INIT_INSTANCE();
}

NkDialogSeparator::~NkDialogSeparator() = default;

// Skin

const char* NkDialogSeparator::DialogSeparator = "DEF DialogSeparatorHorizontal Group {"
                                                 "  Material { diffuseColor 0.5 0.5 0.5 }"
                                                 "  Translation { translation 0 0 0.5 }"
                                                 "  Cube { width 1 height 1 depth 1 }"
                                                 "}"
                                                 "DEF DialogSeparatorVertical Group {"
                                                 "  Material { diffuseColor 0 1 0 }"
                                                 "  Translation { translation 0 0 0.5 }"
                                                 "  Cube { width 1 height 1 depth 1 }"
                                                 "}";

NK_SKIN_SOURCE(NkDialogSeparator, DialogSeparator, "DialogSeparatorVertical", "DialogSeparatorHorizontal");
