#pragma once

#include <string>

#include "Panelix/NkDialogAuditor.h"
#include "Panelix/NkTabDialogAuditor.h"

class NkField;
class NkPanelix;
class NkTopLevelDialog;

namespace panelix {

class SceneFile;

/// Prints each action of the user as one line, at once, for who reads them from a pipe: the `auditorID` of the
/// component, its type, and the value that the action left, as files have it, with a tab between two of them. It has to
/// live longer than the dialogs.
class ActionPrinter : public NkDialogAuditor {
public:
  ActionPrinter();

  /// All dialogs of a file, and all that else can be dragged in it.
  void listenTo(const SceneFile& scene);
  void listenTo(NkTopLevelDialog& dialog);

  void dialogPushButton(NkDialogPushButton* button) override;
  void dialogCheckBox(NkDialogCheckBox* box) override;
  void dialogComboBox(NkDialogComboBox* box) override;
  void dialogEditText(NkDialogEditText* text) override;
  void dialogIntegerSlider(NkDialogIntegerSlider* slider) override;
  void dialogRadioButtons(NkDialogRadioButtons* buttons) override;
  void dialogRealSlider(NkDialogRealSlider* slider) override;
  void tabDialog(NkTabDialog* dialog) override;
  void menuPushButton(NkMenuPushButton* button) override;
  void menuCheckBox(NkMenuCheckBox* box) override;
  void menuFileSelection(NkMenuFileSelection* selection) override;
  void menuRadioButtons(NkMenuRadioButtons* buttons) override;

private:
  /// Only the auditors of a tab dialog itself hear of its pages.
  struct PagePrinter : NkTabDialogAuditor {
    explicit PagePrinter(ActionPrinter& owner) : printer(owner) {}
    void tabDialog(NkTabDialog* dialog) override { printer.tabDialog(dialog); }
    ActionPrinter& printer;
  };

  PagePrinter m_pages;
};

} // namespace panelix
