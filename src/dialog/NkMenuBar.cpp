#include "Panelix/NkMenuBar.h"

#include "arbora/scene/NkSeparator.h"
#include "src/dialog/support/Auditing.h"

NK_KIT_SOURCE(NkMenuBar, NkTopComponent, "MenuBar");

namespace {

constexpr panelix::ContainerRules kRules{"NkMenuBar", panelix::kOutOfRange, false, true};

} // namespace

NkMenuBar::NkMenuBar() : AuditedContainer(kRules) {
  NK_KIT_CONSTRUCTOR(NkMenuBar);
  NK_KIT_ADD_CATALOG_ENTRY(frameSep, NkSeparator, true, "geomSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(frame, NkGroup, true, "frameSep", "", true);
  NK_KIT_INIT_INSTANCE();
}

NkMenuBar::~NkMenuBar() = default;

// Auditors

NkPanelix* NkMenuBar::searchForAuditorId(NbString id) { return panelix::findAuditorId(*this, id); }

void NkMenuBar::applyAuditor(NkPanelix* source) { tellAuditors(panelix::tellMenuKinds, source); }

// Skin

const char* NkMenuBar::MenuBar = "DEF MenuBarFrame Group {"
                                 "  BaseColor { rgb [0.6 0.6 0.6 ] }"
                                 "  Translation { translation 0 0 0.5}"
                                 "  Cube { width 1 height 1 depth 1 }"
                                 "  Translation { translation 0 0 0.5}"
                                 "}";

NK_SKIN_SOURCE(NkMenuBar, MenuBar, "MenuBarFrame");
