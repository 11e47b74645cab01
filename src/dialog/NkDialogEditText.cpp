#include "Panelix/NkDialogEditText.h"

#include "Panelix/NkDialogEditTextAuditor.h"
#include "arbora/scene/NkSeparator.h"
#include "arbora/scene/NkSwitch.h"

NK_KIT_SOURCE(NkDialogEditText, NkDialogComponent, "DialogEditText");

NkDialogEditText::NkDialogEditText() {
  NK_KIT_CONSTRUCTOR(NkDialogEditText);
  NK_NODE_ADD_FIELD(editText, (""));
  NK_NODE_ADD_FIELD(editable, (TRUE));
  NK_NODE_ADD_FIELD(trigOnEnter, (TRUE));
  NK_NODE_ADD_FIELD(isNumeric, (FALSE));
  NK_NODE_ADD_FIELD(multiLine, (FALSE));
  NK_NODE_ADD_FIELD(wrapLine, (TRUE));
  NK_KIT_ADD_CATALOG_ENTRY(labelSep, NkSeparator, true, "geomSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(labelSwitch, NkSwitch, true, "labelSep", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(labelProp, NkGroup, true, "labelSwitch", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(scrollVSwitch, NkSwitch, true, "geomSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(downSep, NkSeparator, true, "scrollVSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(downSwitch, NkSwitch, true, "downSep", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(downReleased, NkGroup, true, "downSwitch", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(downPressed, NkGroup, true, "downSwitch", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(upSep, NkSeparator, true, "scrollVSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(upSwitch, NkSwitch, true, "upSep", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(upReleased, NkGroup, true, "upSwitch", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(upPressed, NkGroup, true, "upSwitch", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(scrollVSep, NkSeparator, true, "scrollVSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(scrollVBack, NkSeparator, true, "scrollVSep", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(scrollVFrame, NkGroup, true, "scrollVBack", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(cursorVSep, NkSeparator, true, "scrollVSep", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(cursorVFrame, NkGroup, true, "cursorVSep", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(scrollHSwitch, NkSwitch, true, "geomSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(leftSep, NkSeparator, true, "scrollHSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(leftSwitch, NkSwitch, true, "leftSep", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(leftReleased, NkGroup, true, "leftSwitch", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(leftPressed, NkGroup, true, "leftSwitch", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(rightSep, NkSeparator, true, "scrollHSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(rightSwitch, NkSwitch, true, "rightSep", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(rightReleased, NkGroup, true, "rightSwitch", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(rightPressed, NkGroup, true, "rightSwitch", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(scrollHSep, NkSeparator, true, "scrollHSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(scrollHBack, NkSeparator, true, "scrollHSep", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(scrollHFrame, NkGroup, true, "scrollHBack", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(cursorHSep, NkSeparator, true, "scrollHSep", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(cursorHFrame, NkGroup, true, "cursorHSep", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(editSep, NkSeparator, true, "geomSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(frameSep, NkSeparator, true, "editSep", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(frameSwitch, NkSwitch, true, "frameSep", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(frame, NkGroup, true, "frameSwitch", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(editFrame, NkGroup, true, "frameSwitch", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(textSep, NkSeparator, true, "editSep", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(textProp, NkGroup, true, "textSep", "", true);
  NK_KIT_INIT_INSTANCE();
}

NkDialogEditText::~NkDialogEditText() = default;

// Events

void NkDialogEditText::addAuditor(NkDialogEditTextAuditor* auditor) { NkPanelix::addAuditor(auditor); }

void NkDialogEditText::removeAuditor(NkDialogEditTextAuditor* auditor) { NkPanelix::removeAuditor(auditor); }

void NkDialogEditText::applyDlgCptAuditor() { tellAuditors(&NkDialogEditTextAuditor::dialogEditText, this); }

// Skin

const char* NkDialogEditText::DialogEditText = "DEF DialogEditTextFrame Group {"
                                               "  Material { diffuseColor 1 1 1 }"
                                               "  Translation { translation 0 0 0.5 }"
                                               "  Cube { width 1 height 1 depth 1 }"
                                               "  Translation { translation 0 0 0.5 }"
                                               "}"
                                               "DEF DialogEditTextEditingFrame Group {"
                                               "  Material { diffuseColor 1 0.6 0.6 }"
                                               "  Translation { translation 0 0 0.5 }"
                                               "  Cube { width 1 height 1 depth 1 }"
                                               "  Translation { translation 0 0 0.5 }"
                                               "}"
                                               "DEF DialogEditTextDownButtonReleased Group {"
                                               "  Material { diffuseColor 1 0.6 0.6 }"
                                               "  Translation { translation 0 0 0.5 }"
                                               "  Cube { width 1 height 1 depth 1 }"
                                               "  Translation { translation 0 0 0.5 }"
                                               "}"
                                               "DEF DialogEditTextDownButtonPressed Group {"
                                               "  Material { diffuseColor 0.7 0.8 0.7 }"
                                               "  Translation { translation 0 0 0.25 }"
                                               "  Cube { width 1 height 1 depth 0.5 }"
                                               "  Translation { translation 0 0 0.25 }"
                                               "}"
                                               "DEF DialogEditTextUpButtonReleased Group {"
                                               "  Material { diffuseColor 1 0.6 0.6 }"
                                               "  Translation { translation 0 0 0.5 }"
                                               "  Cube { width 1 height 1 depth 1 }"
                                               "  Translation { translation 0 0 0.5 }"
                                               "}"
                                               "DEF DialogEditTextUpButtonPressed Group {"
                                               "  Material { diffuseColor 0.7 0.8 0.7 }"
                                               "  Translation { translation 0 0 0.25 }"
                                               "  Cube { width 1 height 1 depth 0.5 }"
                                               "  Translation { translation 0 0 0.25 }"
                                               "}"
                                               "DEF DialogEditTextScrollFrame Group {"
                                               "  Material { diffuseColor 0.7 0.7 0.7 }"
                                               "  Translation { translation 0 0 0.5 }"
                                               "  Cube { width 1 height 1 depth 1 }"
                                               "  Translation { translation 0 0 0.5 }"
                                               "}"
                                               "DEF DialogEditTextCursorFrame Group {"
                                               "  Material { diffuseColor 0.7 0.9 0.7 }"
                                               "  Translation { translation 0 0 0.5 }"
                                               "  Cube { width 1 height 1 depth 1 }"
                                               "  Translation { translation 0 0 0.5 }"
                                               "}"
                                               "DEF DialogEditTextCaretFrame Group {"
                                               "  Material { diffuseColor 1 0 0 }"
                                               "  Translation { translation 0 0 0.25 }"
                                               "  Cube { width 1 height 1 depth 0.5 }"
                                               "  Translation { translation 0 0 0.25 }"
                                               "}";

NK_SKIN_SOURCE(NkDialogEditText, DialogEditText, "DialogEditTextFrame", "DialogEditTextEditingFrame",
               "DialogEditTextDownButtonPressed", "DialogEditTextDownButtonReleased", "DialogEditTextUpButtonPressed",
               "DialogEditTextUpButtonReleased", "DialogEditTextScrollFrame", "DialogEditTextCursorFrame",
               "DialogEditTextCaretFrame");
