#include "Panelix/NkDialogLabel.h"

#include "arbora/scene/NkSeparator.h"

NK_KIT_SOURCE(NkDialogLabel, NkDialogComponent, "DialogLabel");

NkDialogLabel::NkDialogLabel() {
  NK_KIT_CONSTRUCTOR(NkDialogLabel);
  NK_KIT_ADD_CATALOG_ENTRY(labelSep, NkSeparator, true, "geomSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(labelProp, NkGroup, true, "labelSep", "", true);
  NK_KIT_INIT_INSTANCE();
  labelAlignment = LEFT;
  labelAlignment.setDefault(true);
}

NkDialogLabel::~NkDialogLabel() = default;
