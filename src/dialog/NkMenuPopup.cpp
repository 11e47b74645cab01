#include "Panelix/NkMenuPopup.h"

#include "arbora/scene/NkSeparator.h"
#include "arbora/scene/NkSwitch.h"
#include "src/dialog/support/Auditing.h"

NK_KIT_SOURCE(NkMenuPopup, NkMenuItem, "MenuPopup");

namespace {

constexpr panelix::ContainerRules kRules{"NkMenuPopup", panelix::kOutOfRange, false, true};

} // namespace

NkMenuPopup::NkMenuPopup() : AuditedContainer(kRules) {
  NK_KIT_CONSTRUCTOR(NkMenuPopup);
  NK_KIT_ADD_CATALOG_ENTRY(frameSep, NkSeparator, true, "geomSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(frameSwitch, NkSwitch, true, "frameSep", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(released, NkGroup, true, "frameSwitch", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(pressed, NkGroup, true, "frameSwitch", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(shapeReleased, NkGroup, true, "frameSwitch", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(shapePressed, NkGroup, true, "frameSwitch", "", true);
  NK_KIT_INIT_INSTANCE();
}

NkMenuPopup::~NkMenuPopup() = default;

// Auditors

NkPanelix* NkMenuPopup::searchForAuditorId(NbString id) { return panelix::findAuditorId(*this, id); }

void NkMenuPopup::applyAuditor(NkPanelix* source) { tellAuditors(panelix::tellMenuKinds, source); }

// Skin

// The shapes, of popups inside popups, are arrows to the right.
const char* NkMenuPopup::MenuPopup =
    "DEF MenuPopupPressedFrame Group {"
    "  Material { diffuseColor 1 0.6 0.6 }"
    "  Translation { translation 0 0 0.25}"
    "  Cube { width 1 height 1 depth 0.5 }"
    "  Translation { translation 0 0 0.25}"
    "}"
    "DEF MenuPopupReleasedFrame Group {"
    "  Material { diffuseColor 0.7 0.7 0.7 }"
    "  Translation { translation 0 0 0.5}"
    "  Cube { width 1 height 1 depth 1 }"
    "  Translation { translation 0 0 0.5}"
    "}"
    "DEF MenuPopupReleasedShape Group {"
    "  Material { diffuseColor 0.6 0.6 0.6 }"
    "  MatrixTransform { matrix 0.2 0 0 0 0 0.2 0 0 0 0 0.2 0 -0.5 -0.5 0 1 }"
    "  Coordinate3 { point [0 0 0, 5 2.5 0, 0 5 0, 0 0 1, 5 2.5 1, 0 5 1] }"
    "  IndexedFaceSet { coordIndex [3,4,5,-1, 0,2,1,-1, 0,1,4,3,-1, 1,2,5,4,-1, 2,0,3,5,-1] }"
    "}"
    "DEF MenuPopupPressedShape Group {"
    "  Material { diffuseColor 1 0.6 0.6 }"
    "  Translation { translation 0 0 -0.2 }"
    "  MatrixTransform { matrix 0.2 0 0 0 0 0.2 0 0 0 0 0.2 0 -0.5 -0.5 0 1 }"
    "  Coordinate3 { point [0 0 0, 5 2.5 0, 0 5 0, 0 0 1, 5 2.5 1, 0 5 1] }"
    "  IndexedFaceSet { coordIndex [3,4,5,-1, 0,2,1,-1, 0,1,4,3,-1, 1,2,5,4,-1, 2,0,3,5,-1] }"
    "}";

NK_SKIN_SOURCE(NkMenuPopup, MenuPopup, "MenuPopupPressedFrame", "MenuPopupReleasedFrame", "MenuPopupReleasedShape",
               "MenuPopupPressedShape");
