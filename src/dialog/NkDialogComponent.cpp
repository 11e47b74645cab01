#include "Panelix/NkDialogComponent.h"

#include "arbora/scene/NkSeparator.h"
#include "arbora/scene/NkSwitch.h"

NK_KIT_SOURCE(NkDialogComponent, NkTopComponent, "DialogComponent");

NkDialogComponent::NkDialogComponent() {
  NK_KIT_CONSTRUCTOR(NkDialogComponent);
  NK_NODE_ADD_FIELD(width, (0));
  NK_NODE_ADD_FIELD(height, (0));
  NK_NODE_ADD_FIELD(fixedWidth, (FALSE));
  NK_NODE_ADD_FIELD(fixedHeight, (FALSE));
  NK_NODE_ADD_FIELD(minWidth, (0));
  NK_NODE_ADD_FIELD(minHeight, (0));
  NK_NODE_ADD_FIELD(maxWidth, (0));
  NK_NODE_ADD_FIELD(maxHeight, (0));
  NK_NODE_ADD_FIELD(labelVisibility, (TRUE));
  NK_NODE_ADD_FIELD(edgeStyle, (NONE));
  NK_NODE_DEFINE_ENUM_VALUE(EdgeStyle, NONE);
  NK_NODE_DEFINE_ENUM_VALUE(EdgeStyle, SHADOW_IN);
  NK_NODE_DEFINE_ENUM_VALUE(EdgeStyle, SHADOW_OUT);
  NK_NODE_SET_SF_ENUM_TYPE(edgeStyle, EdgeStyle);
  // The three looks stand in the order of the values of the enum, which is the switch's.
  NK_KIT_ADD_CATALOG_ENTRY(mainCptSeparator, NkSeparator, true, "geomSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(edgeStyleSwitch, NkSwitch, true, "mainCptSeparator", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(edgeStyleNone, NkGroup, true, "edgeStyleSwitch", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(edgeStyleShadowIn, NkGroup, true, "edgeStyleSwitch", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(edgeStyleShadowOut, NkGroup, true, "edgeStyleSwitch", "", true);
  NK_KIT_INIT_INSTANCE();
}

NkDialogComponent::~NkDialogComponent() = default;

// Skin

const char* NkDialogComponent::DialogComponent = "DEF DialogComponentEdgeStyleNone Group {"
                                                 "  Material { diffuseColor 0.75 0.75 0.75}"
                                                 "  Translation { translation 0 0 0.5 }"
                                                 "  Cube { width 1 height 1 depth 1 }"
                                                 "  Translation { translation 0 0 0.5 }"
                                                 "}"
                                                 "DEF DialogComponentEdgeStyleShadowIn Group {"
                                                 "  Material { diffuseColor 0.5 0.5 0.5 }"
                                                 "  Translation { translation 0 0 0.5 }"
                                                 "  Cube { width 1 height 1 depth 1 }"
                                                 "  Translation { translation 0 0 0.5 }"
                                                 "}"
                                                 "DEF DialogComponentEdgeStyleShadowOut Group {"
                                                 "  Material { diffuseColor 0.8 0.8 0.8 }"
                                                 "  Translation { translation 0 0 0.5 }"
                                                 "  Cube { width 1 height 1 depth 1 }"
                                                 "  Translation { translation 0 0 0.5 }"
                                                 "}";

NK_SKIN_SOURCE(NkDialogComponent, DialogComponent, "DialogComponentEdgeStyleNone", "DialogComponentEdgeStyleShadowIn",
               "DialogComponentEdgeStyleShadowOut");
