#include "Panelix/NkTopLevelDialog.h"

#include "Panelix/NkTopLevelAuditor.h"
#include "arbora/scene/NkSeparator.h"
#include "arbora/scene/NkSwitch.h"
#include "src/dialog/support/Auditing.h"
#include "src/dialog/support/BevelledButton.h"

NK_KIT_SOURCE(NkTopLevelDialog, NkPanelix, "TopLevelDialog");

namespace {

constexpr panelix::ContainerRules kRules{"NkTopLevelDialog", panelix::kOutOfRangeBeCareful, true, false};

} // namespace

NkTopLevelDialog::NkTopLevelDialog() : Container(kRules), m_defaultAuditor(std::make_unique<NkTopLevelAuditor>()) {
  NK_KIT_CONSTRUCTOR(NkTopLevelDialog);
  NK_NODE_ADD_FIELD(width, (0));
  NK_NODE_ADD_FIELD(height, (0));
  NK_NODE_ADD_FIELD(position, (0, 0));
  NK_NODE_ADD_FIELD(position3D, (0, 0, 0));
  NK_NODE_ADD_FIELD(resizable, (TRUE));
  NK_NODE_ADD_FIELD(minWidth, (0));
  NK_NODE_ADD_FIELD(minHeight, (0));
  NK_NODE_ADD_FIELD(maxWidth, (0));
  NK_NODE_ADD_FIELD(maxHeight, (0));
  NK_NODE_ADD_FIELD(margin, (0));
  NK_NODE_ADD_FIELD(rowSpacing, (0));
  NK_NODE_ADD_FIELD(modalFrame, (FALSE));
  NK_NODE_ADD_FIELD(hideChildren, (FALSE));
  NK_NODE_ADD_FIELD(minimized, (FALSE));
  NK_NODE_ADD_FIELD(minimized3DPosition, (0, 0, 0));
  NK_NODE_ADD_FIELD(independentMinimizedPosition, (TRUE));
  NK_NODE_ADD_FIELD(windowResizedByChildren, (FALSE));
  NK_NODE_ADD_FIELD(vScrollVisibility, (AUTO));
  NK_NODE_ADD_FIELD(hScrollVisibility, (AUTO));
  NK_NODE_DEFINE_ENUM_VALUE(ScrollVisibility, NEVER);
  NK_NODE_DEFINE_ENUM_VALUE(ScrollVisibility, ALWAYS);
  NK_NODE_DEFINE_ENUM_VALUE(ScrollVisibility, AUTO);
  NK_NODE_SET_SF_ENUM_TYPE(vScrollVisibility, ScrollVisibility);
  NK_NODE_SET_SF_ENUM_TYPE(hScrollVisibility, ScrollVisibility);
  NK_KIT_ADD_CATALOG_ENTRY(frameSep, NkSeparator, true, "geomSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(frame, NkGroup, true, "frameSep", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(labelSep, NkSeparator, true, "geomSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(labelProp, NkGroup, true, "labelSep", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(minSep, NkSeparator, true, "geomSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(minSwtch, NkSwitch, true, "minSep", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(minReleased, NkGroup, true, "minSwtch", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(minPressed, NkGroup, true, "minSwtch", "", true);
  NK_KIT_INIT_INSTANCE();
}

NkTopLevelDialog::~NkTopLevelDialog() = default;

// Auditors

void NkTopLevelDialog::addAuditor(NkDialogAuditor* auditor) { NkPanelix::addAuditor(auditor); }

void NkTopLevelDialog::removeAuditor(NkDialogAuditor* auditor) { NkPanelix::removeAuditor(auditor); }

void NkTopLevelDialog::applyAuditors() { panelix::applyAuditorsBelow(*this); }

NkPanelix* NkTopLevelDialog::searchForAuditorId(NbString id) { return panelix::findAuditorId(*this, id); }

void NkTopLevelDialog::applyAuditor(NkPanelix* source) {
  if (!callAuditors(&panelix::tellAllKinds, source)) panelix::tellAllKinds(m_defaultAuditor.get(), source);
}

// Skin

const char* NkTopLevelDialog::TopLevelDialog =
    "DEF TopLevelDialogFrame Group {"
    "  Material { diffuseColor 0.7 0.7 1 }"
    "  Translation { translation 0 0 0.5 }"
    "  Cube { width 1 height 1 depth 1 }"
    "  Translation { translation 0 0 0.5 }"
    "}"
    "DEF TopLevelDialogMinReleased Group { " PANELIX_BEVELLED_BUTTON(
        "0.7 0.7 1", "0.2 0.2 1", "1 1 1", "0.5 0.5 1",
        "0.7 0.7 1") "  }"
                     "DEF TopLevelDialogMinPressed Group { " PANELIX_BEVELLED_BUTTON("0.5 0.5 1", "1 1 1", "0.2 0.2 1",
                                                                                     "0.7 0.7 1", "0.7 0.7 1") "  }";

NK_SKIN_SOURCE(NkTopLevelDialog, TopLevelDialog, "TopLevelDialogFrame", "TopLevelDialogMinReleased",
               "TopLevelDialogMinPressed");
