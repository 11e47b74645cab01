#pragma once

#include "Panelix/NkAuditor.h"

class NkDialogCheckBox;
class NkDialogComboBox;
class NkDialogEditText;
class NkDialogIntegerSlider;
class NkDialogPushButton;
class NkDialogRadioButtons;
class NkDialogRealSlider;
class NkMenuCheckBox;
class NkMenuFileSelection;
class NkMenuPushButton;
class NkMenuRadioButtons;
class NkTabDialog;

/// Hears of the user's actions in a container. An application overrides the operations for the kinds that it listens
/// to. The others report the action under the name of the operation if the preference `DEBUG_PANELIX_AUDITORS` exists.
class PANELIX_API NkDialogAuditor : public NkAuditor {
  NK_AUDITOR_HEADER(NkDialogAuditor);

public:
  virtual void dialogPushButton(NkDialogPushButton* button);
  virtual void dialogCheckBox(NkDialogCheckBox* box);
  virtual void dialogComboBox(NkDialogComboBox* box);
  virtual void dialogEditText(NkDialogEditText* text);
  virtual void dialogIntegerSlider(NkDialogIntegerSlider* slider);
  virtual void dialogRadioButtons(NkDialogRadioButtons* buttons);
  virtual void dialogRealSlider(NkDialogRealSlider* slider);
  /// Never called by a container: a page is told to the auditors of its tab dialog alone.
  virtual void tabDialog(NkTabDialog* dialog);
  virtual void menuPushButton(NkMenuPushButton* button);
  virtual void menuCheckBox(NkMenuCheckBox* box);
  virtual void menuFileSelection(NkMenuFileSelection* selection);
  virtual void menuRadioButtons(NkMenuRadioButtons* buttons);

protected:
  NkDialogAuditor() = default;
};
