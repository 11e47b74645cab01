#include "Panelix/NkMenuSeparator.h"

#include "arbora/scene/NkSeparator.h"

NK_KIT_SOURCE(NkMenuSeparator, NkMenuItem, "MenuSeparator");

NkMenuSeparator::NkMenuSeparator() {
  NK_KIT_CONSTRUCTOR(NkMenuSeparator);
  NK_KIT_ADD_CATALOG_ENTRY(sepSep, NkSeparator, true, "geomSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(sepFrame, NkGroup, true, "sepSep", "", true);
  NK_KIT_INIT_INSTANCE();
}

NkMenuSeparator::~NkMenuSeparator() = default;

// Skin

const char* NkMenuSeparator::MenuSeparator = "DEF MenuSeparatorFrame Group {"
                                             "  Material { diffuseColor 0.6 0.6 0.6 }"
                                             "  Translation { translation 0 0 0.5}"
                                             "  Cube { width 1 height 1 depth 1 }"
                                             "}";

NK_SKIN_SOURCE(NkMenuSeparator, MenuSeparator, "MenuSeparatorFrame");
