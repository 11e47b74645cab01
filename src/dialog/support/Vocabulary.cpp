#include "Panelix/Vocabulary.h"

#include "Panelix/NkColumnDialog.h"
#include "Panelix/NkDialogCheckBox.h"
#include "Panelix/NkDialogCheckBoxLauncher.h"
#include "Panelix/NkDialogChoice.h"
#include "Panelix/NkDialogComboBox.h"
#include "Panelix/NkDialogComponent.h"
#include "Panelix/NkDialogCustom.h"
#include "Panelix/NkDialogEditText.h"
#include "Panelix/NkDialogGroup.h"
#include "Panelix/NkDialogIntegerSlider.h"
#include "Panelix/NkDialogLabel.h"
#include "Panelix/NkDialogPushButton.h"
#include "Panelix/NkDialogPushButtonLauncher.h"
#include "Panelix/NkDialogRadioButtons.h"
#include "Panelix/NkDialogRealSlider.h"
#include "Panelix/NkDialogSeparator.h"
#include "Panelix/NkDialogSlider.h"
#include "Panelix/NkMenuBar.h"
#include "Panelix/NkMenuCheckBox.h"
#include "Panelix/NkMenuCheckBoxLauncher.h"
#include "Panelix/NkMenuFileSelection.h"
#include "Panelix/NkMenuItem.h"
#include "Panelix/NkMenuPopup.h"
#include "Panelix/NkMenuPushButton.h"
#include "Panelix/NkMenuPushButtonLauncher.h"
#include "Panelix/NkMenuRadioButtons.h"
#include "Panelix/NkMenuSeparator.h"
#include "Panelix/NkMessageDialog.h"
#include "Panelix/NkPanelix.h"
#include "Panelix/NkRowDialog.h"
#include "Panelix/NkTabDialog.h"
#include "Panelix/NkTopComponent.h"
#include "Panelix/NkTopLevelDialog.h"

namespace panelix {
namespace {

template <class Class>
constexpr VocabularyRow row(const char* className, const char* parentName, const char* childKeyword = nullptr) {
  return {className,         parentName,        className + 2, &Class::getClassTypeId,
          &Class::initClass, &Class::exitClass, childKeyword};
}

constexpr VocabularyRow kRows[] = {
    row<NkPanelix>("NkPanelix", "NkDragger"),
    row<NkMenuItem>("NkMenuItem", "NkPanelix"),
    row<NkMenuCheckBox>("NkMenuCheckBox", "NkMenuItem"),
    row<NkMenuCheckBoxLauncher>("NkMenuCheckBoxLauncher", "NkMenuCheckBox", "TopLevelDialog"),
    row<NkMenuPopup>("NkMenuPopup", "NkMenuItem", "MenuItem"),
    row<NkMenuPushButton>("NkMenuPushButton", "NkMenuItem"),
    row<NkMenuFileSelection>("NkMenuFileSelection", "NkMenuPushButton"),
    row<NkMenuPushButtonLauncher>("NkMenuPushButtonLauncher", "NkMenuPushButton", "TopLevelDialog"),
    row<NkMenuRadioButtons>("NkMenuRadioButtons", "NkMenuItem"),
    row<NkMenuSeparator>("NkMenuSeparator", "NkMenuItem"),
    row<NkTopComponent>("NkTopComponent", "NkPanelix"),
    row<NkDialogComponent>("NkDialogComponent", "NkTopComponent"),
    row<NkDialogCheckBox>("NkDialogCheckBox", "NkDialogComponent"),
    row<NkDialogCheckBoxLauncher>("NkDialogCheckBoxLauncher", "NkDialogCheckBox", "TopLevelDialog"),
    row<NkDialogChoice>("NkDialogChoice", "NkDialogComponent"),
    row<NkDialogComboBox>("NkDialogComboBox", "NkDialogChoice"),
    row<NkDialogRadioButtons>("NkDialogRadioButtons", "NkDialogChoice"),
    row<NkDialogCustom>("NkDialogCustom", "NkDialogComponent"),
    row<NkDialogEditText>("NkDialogEditText", "NkDialogComponent"),
    row<NkDialogGroup>("NkDialogGroup", "NkDialogComponent", "DialogComponent"),
    row<NkColumnDialog>("NkColumnDialog", "NkDialogGroup", "DialogComponent"),
    row<NkRowDialog>("NkRowDialog", "NkDialogGroup", "DialogComponent"),
    row<NkTabDialog>("NkTabDialog", "NkDialogGroup", "DialogComponent"),
    row<NkDialogLabel>("NkDialogLabel", "NkDialogComponent"),
    row<NkDialogPushButton>("NkDialogPushButton", "NkDialogComponent"),
    row<NkDialogPushButtonLauncher>("NkDialogPushButtonLauncher", "NkDialogPushButton", "TopLevelDialog"),
    row<NkDialogSeparator>("NkDialogSeparator", "NkDialogComponent"),
    row<NkDialogSlider>("NkDialogSlider", "NkDialogComponent"),
    row<NkDialogIntegerSlider>("NkDialogIntegerSlider", "NkDialogSlider"),
    row<NkDialogRealSlider>("NkDialogRealSlider", "NkDialogSlider"),
    row<NkMenuBar>("NkMenuBar", "NkTopComponent", "MenuPopup"),
    row<NkTopLevelDialog>("NkTopLevelDialog", "NkPanelix", "TopComponent"),
    row<NkMessageDialog>("NkMessageDialog", "NkPanelix"),
};

} // namespace

std::span<const VocabularyRow> vocabulary() { return kRows; }

} // namespace panelix
