#include "ClassFacts.h"

#include <ostream>

namespace {

const ClassFacts kClasses[] = {
    {"Panelix", "", R"(
SFBool enable TRUE
SFString label ""
SFString auditorID ""
SFEnum labelAlignment RIGHT of LabelAlignment LEFT 0, CENTER 1, RIGHT 2
)",
     R"(
Switch geomSwitch < geomSeparator
)",
     "", ""},
    {"MenuItem", "Panelix", "",
     R"(
Separator itemFrameSep < geomSwitch
Group frame < itemFrameSep +
Separator labelSep < geomSwitch
Group labelProp < labelSep +
)",
     "", ""},
    {"MenuCheckBox", "MenuItem", R"(
SFBool state FALSE
SFString onString ""
SFString accelerator ""
)",
     R"(
Separator chkSep < geomSwitch
Switch chkSwtch < chkSep
Group stateOff < chkSwtch +
Group stateOn < chkSwtch +
)",
     "", ""},
    {"MenuCheckBoxLauncher", "MenuCheckBox", "", "", "", "TopLevelDialog"},
    {"MenuPopup", "MenuItem", "",
     R"(
Separator frameSep < geomSwitch
Switch frameSwitch < frameSep
Group released < frameSwitch +
Group pressed < frameSwitch +
Group shapeReleased < frameSwitch +
Group shapePressed < frameSwitch +
)",
     "", "MenuItem"},
    {"MenuPushButton", "MenuItem", R"(
SFString accelerator ""
)",
     R"(
Separator btnSep < geomSwitch
Switch btnSwtch < btnSep
Group released < btnSwtch +
Group pressed < btnSwtch +
)",
     "", ""},
    {"MenuFileSelection", "MenuPushButton", R"(
SFString title ""
MFString filter [ "*.arb", "Arbora file" ]
SFInt32 defaultFilter 0
SFFilePathString fileDirectory "."
SFFilePathString filename ""
SFEnum mode OPEN of Mode OPEN 1, SAVE 2
)",
     "", R"(
filter [ "*.arb", "Arbora file" ], written
)",
     ""},
    {"MenuPushButtonLauncher", "MenuPushButton", "", "", "", "TopLevelDialog"},
    {"MenuRadioButtons", "MenuItem", R"(
MFString items ""
SFInt32 selectedItem 0
MFString accelerators ""
)",
     R"(
Separator radioSep < geomSwitch
Separator itemsSep < radioSep
Switch itemSwtch < itemsSep
Group stateOff < itemSwtch +
Group stateOn < itemSwtch +
)",
     "", ""},
    {"MenuSeparator", "MenuItem", "",
     R"(
Separator sepSep < geomSwitch
Group sepFrame < sepSep +
)",
     "", ""},
    {"TopComponent", "Panelix", "", "", "", ""},
    {"DialogComponent", "TopComponent", R"(
SFInt32 width 0
SFInt32 height 0
SFBool fixedWidth FALSE
SFBool fixedHeight FALSE
SFInt32 minWidth 0
SFInt32 minHeight 0
SFInt32 maxWidth 0
SFInt32 maxHeight 0
SFBool labelVisibility TRUE
SFEnum edgeStyle NONE of EdgeStyle NONE 0, SHADOW_IN 1, SHADOW_OUT 2
)",
     R"(
Separator mainCptSeparator < geomSwitch
Switch edgeStyleSwitch < mainCptSeparator
Group edgeStyleNone < edgeStyleSwitch +
Group edgeStyleShadowIn < edgeStyleSwitch +
Group edgeStyleShadowOut < edgeStyleSwitch +
)",
     "", ""},
    {"DialogCheckBox", "DialogComponent", R"(
SFBool state FALSE
SFString onString ""
SFString offString ""
)",
     R"(
Separator labelSep < geomSwitch
Switch labelSwitch < labelSep
Group labelProp < labelSwitch +
Separator frameSep < geomSwitch
Group frame < frameSep +
Separator stateSep < geomSwitch
Switch stateSwitch < stateSep
Group stateOff < stateSwitch +
Group stateOn < stateSwitch +
Separator onOffStringSep < geomSwitch
Group onOffStringProp < onOffStringSep +
)",
     "", ""},
    {"DialogCheckBoxLauncher", "DialogCheckBox", "", "", "", "TopLevelDialog"},
    {"DialogChoice", "DialogComponent", R"(
MFString items ""
SFInt32 selectedItem 0
)",
     "", "", ""},
    {"DialogComboBox", "DialogChoice", "",
     R"(
Separator labelSep < geomSwitch
Switch labelSwitch < labelSep
Group labelProp < labelSwitch +
Separator frameSep < geomSwitch
Group frame < frameSep +
Separator textSep < geomSwitch
Group textProp < textSep +
Separator buttonSep < geomSwitch
Switch buttonSwitch < buttonSep
Group buttonReleased < buttonSwitch +
Group buttonPressed < buttonSwitch +
Switch itemsSwitch < geomSwitch
Separator itemStrucSep < itemsSwitch
Separator itemSep < itemStrucSep
Group itemFrame < itemSep +
Separator itemTextSep < itemStrucSep
Group itemTextProp < itemTextSep +
)",
     "", ""},
    {"DialogRadioButtons", "DialogChoice", "",
     R"(
Separator frameSep < geomSwitch
Group frame < frameSep +
Separator labelSep < geomSwitch
Switch labelSwitch < labelSep
Group labelProp < labelSwitch +
Switch itemsSep < geomSwitch
Separator itemSep < itemsSep
Separator itemFrameSep < itemSep
Group itemFrame < itemFrameSep +
Separator itemBtnSep < itemSep
Switch itemBtnSwtch < itemBtnSep
Group stateOff < itemBtnSwtch +
Group stateOn < itemBtnSwtch +
Separator itemTextSep < itemSep
Group itemTextProp < itemTextSep +
)",
     R"(
labelAlignment LEFT, written
)",
     ""},
    {"DialogCustom", "DialogComponent", "", "", "", ""},
    {"DialogEditText", "DialogComponent", R"(
SFString editText ""
SFBool editable TRUE
SFBool trigOnEnter TRUE
SFBool isNumeric FALSE
SFBool multiLine FALSE
SFBool wrapLine TRUE
)",
     R"(
Separator labelSep < geomSwitch
Switch labelSwitch < labelSep
Group labelProp < labelSwitch +
Switch scrollVSwitch < geomSwitch
Separator downSep < scrollVSwitch
Switch downSwitch < downSep
Group downReleased < downSwitch +
Group downPressed < downSwitch +
Separator upSep < scrollVSwitch
Switch upSwitch < upSep
Group upReleased < upSwitch +
Group upPressed < upSwitch +
Separator scrollVSep < scrollVSwitch
Separator scrollVBack < scrollVSep +
Group scrollVFrame < scrollVBack +
Separator cursorVSep < scrollVSep
Group cursorVFrame < cursorVSep +
Switch scrollHSwitch < geomSwitch
Separator leftSep < scrollHSwitch
Switch leftSwitch < leftSep
Group leftReleased < leftSwitch +
Group leftPressed < leftSwitch +
Separator rightSep < scrollHSwitch
Switch rightSwitch < rightSep
Group rightReleased < rightSwitch +
Group rightPressed < rightSwitch +
Separator scrollHSep < scrollHSwitch
Separator scrollHBack < scrollHSep +
Group scrollHFrame < scrollHBack +
Separator cursorHSep < scrollHSep
Group cursorHFrame < cursorHSep +
Separator editSep < geomSwitch
Separator frameSep < editSep
Switch frameSwitch < frameSep
Group frame < frameSwitch +
Group editFrame < frameSwitch +
Separator textSep < editSep
Group textProp < textSep +
)",
     "", ""},
    {"DialogGroup", "DialogComponent", R"(
SFBool windowResizedByChildren TRUE
SFInt32 margin 0
SFEnum vScrollVisibility AUTO of ScrollVisibility NEVER 0, ALWAYS 1, AUTO 2
SFEnum hScrollVisibility AUTO of ScrollVisibility NEVER 0, ALWAYS 1, AUTO 2
)",
     "", "", "DialogComponent"},
    {"ColumnDialog", "DialogGroup", R"(
SFInt32 columnSpacing 0
)",
     "", "", "DialogComponent"},
    {"RowDialog", "DialogGroup", R"(
SFInt32 rowSpacing 0
)",
     "", "", "DialogComponent"},
    {"TabDialog", "DialogGroup", R"(
SFInt32 selectedPage 0
SFEnum tabsLocation TOP of TabsLocation TOP 0, BOTTOM 1, LEFT 2, RIGHT 3
)",
     R"(
Separator pagesSep < geomSwitch
Switch pageSwitch < pagesSep
Separator pageSep < pageSwitch
Separator labelSep < pageSep
Switch labelSwitch < labelSep
Group unselected < labelSwitch +
Group selected < labelSwitch +
Separator textSep < pageSep
Group textProp < textSep +
Separator buttonsSep < geomSwitch
Separator lButtonSep < buttonsSep
Switch lButtonSwtch < lButtonSep
Group lButtonReleased < lButtonSwtch +
Group lButtonPressed < lButtonSwtch +
Separator rButtonSep < buttonsSep
Switch rButtonSwtch < rButtonSep
Group rButtonReleased < rButtonSwtch +
Group rButtonPressed < rButtonSwtch +
Separator frameSep < geomSwitch
Group frame < frameSep +
)",
     "", "DialogComponent"},
    {"DialogLabel", "DialogComponent", "",
     R"(
Separator labelSep < geomSwitch
Group labelProp < labelSep +
)",
     R"(
labelAlignment LEFT
)",
     ""},
    {"DialogPushButton", "DialogComponent", R"(
SFString buttonLabel ""
)",
     R"(
Separator labelSep < geomSwitch
Switch labelSwitch < labelSep
Group labelProp < labelSwitch +
Separator frameSep < geomSwitch
Switch frameSwitch < frameSep
Group released < frameSwitch +
Group pressed < frameSwitch +
Separator buttonLabelSep < geomSwitch
Group buttonLabelProp < buttonLabelSep +
)",
     "", ""},
    {"DialogPushButtonLauncher", "DialogPushButton", "", "", "", "TopLevelDialog"},
    {"DialogSeparator", "DialogComponent", "",
     R"(
Separator frameSep < geomSwitch
Switch frameSwitch < frameSep
Group vFrame < frameSwitch +
Group hFrame < frameSwitch +
)",
     "", ""},
    {"DialogSlider", "DialogComponent", R"(
SFBool valueVisible TRUE
SFString format "%3f"
SFBool continuousTrigger FALSE
SFBool toggleVisible TRUE
SFBool fixedLimits FALSE
MFColor colors 0.66 0.66 0.66
SFBool shadedColors TRUE
)",
     R"(
Separator labelSep < geomSwitch
Switch labelSwitch < labelSep
Group labelProp < labelSwitch +
Separator checkSep < geomSwitch
Switch checkSwtch < checkSep
Group checkStateOff < checkSwtch +
Group checkStateOn < checkSwtch +
Separator sliderSep < geomSwitch
Separator frameSep < sliderSep
Group frame < frameSep +
Separator cursorSep < sliderSep
Group cursor < cursorSep +
Switch edtSwtch < geomSwitch
Separator edtFrmSep < edtSwtch
Switch edtFrmSwtch < edtFrmSep
Group valueFrame < edtFrmSwtch +
Group editValueFrame < edtFrmSwtch +
Separator editTextSep < edtSwtch
Group editTextProp < editTextSep +
)",
     "", ""},
    {"DialogIntegerSlider", "DialogSlider", R"(
SFInt32 min 0
SFInt32 max 1
SFInt32 value 0
)",
     "", R"(
format "%d", written
)",
     ""},
    {"DialogRealSlider", "DialogSlider", R"(
SFFloat min 0
SFFloat max 1
SFFloat value 0
)",
     "", R"(
format "%.3f"
)",
     ""},
    {"MenuBar", "TopComponent", "",
     R"(
Separator frameSep < geomSwitch
Group frame < frameSep +
)",
     "", "MenuPopup"},
    {"TopLevelDialog", "Panelix", R"(
SFInt32 width 0
SFInt32 height 0
SFVec2i32 position 0 0
SFVec3f position3D 0 0 0
SFBool resizable TRUE
SFInt32 minWidth 0
SFInt32 minHeight 0
SFInt32 maxWidth 0
SFInt32 maxHeight 0
SFInt32 margin 0
SFInt32 rowSpacing 0
SFBool modalFrame FALSE
SFBool hideChildren FALSE
SFBool minimized FALSE
SFVec3f minimized3DPosition 0 0 0
SFBool independentMinimizedPosition TRUE
SFBool windowResizedByChildren FALSE
SFEnum vScrollVisibility AUTO of ScrollVisibility NEVER 0, ALWAYS 1, AUTO 2
SFEnum hScrollVisibility AUTO of ScrollVisibility NEVER 0, ALWAYS 1, AUTO 2
)",
     R"(
Separator frameSep < geomSwitch
Group frame < frameSep +
Separator labelSep < geomSwitch
Group labelProp < labelSep +
Separator minSep < geomSwitch
Switch minSwtch < minSep
Group minReleased < minSwtch +
Group minPressed < minSwtch +
)",
     "", "TopComponent"},
    {"MessageDialog", "Panelix", R"(
SFString title ""
SFEnum type MD_MESSAGE of Type MD_ERROR 0, MD_INFORMATION 1, MD_MESSAGE 2, MD_QUESTION 3, MD_WARNING 4, MD_WORKING 5
)",
     "", "", ""},
};

} // namespace

std::span<const ClassFacts> classFacts() { return kClasses; }

void PrintTo(const ClassFacts& facts, std::ostream* out) { *out << facts.keyword; }
