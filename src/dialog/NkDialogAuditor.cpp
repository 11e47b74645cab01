#include "Panelix/NkDialogAuditor.h"

#include "Panelix/NkDialogCheckBox.h"
#include "Panelix/NkDialogComboBox.h"
#include "Panelix/NkDialogEditText.h"
#include "Panelix/NkDialogIntegerSlider.h"
#include "Panelix/NkDialogPushButton.h"
#include "Panelix/NkDialogRadioButtons.h"
#include "Panelix/NkDialogRealSlider.h"
#include "Panelix/NkMenuCheckBox.h"
#include "Panelix/NkMenuFileSelection.h"
#include "Panelix/NkMenuPushButton.h"
#include "Panelix/NkMenuRadioButtons.h"
#include "arbora/base/NkDebugError.h"
#include "arbora/base/NkPreferences.h"
#include "src/dialog/support/NumberFormat.h"

NK_AUDITOR_SOURCE(NkDialogAuditor, NkAuditor::getClassTypeId(), "NkDialogAuditor");

namespace {

/// Report of an action that the application doesn't listen to; nothing is done unless somebody asked for reports.
class Report {
public:
  Report(const char* location, const char* className)
      : m_location(location), m_isWanted(NkPreferences::getValue("DEBUG_PANELIX_AUDITORS") != nullptr) {
    if (!m_isWanted) return;
    m_text = "WARNING ! The DialogAuditor does not define the ";
    m_text += className;
    m_text += " component :";
  }

  Report& quoted(const char* name, const NkSFString& field) {
    return m_isWanted ? quoted(name, field.getValue()) : *this;
  }

  Report& selected(const NkSFInt32& selectedItem, const NkMFString& items) {
    if (!m_isWanted) return *this;
    const int index = selectedItem.getValue();
    detail("selectedItem ");
    m_text += NbString().setNum(index);
    m_text += " : ";
    if (index >= 0 && index < items.getNum()) m_text += items[index];
    return *this;
  }

  Report& number(const NkSFInt32& field) {
    if (m_isWanted) m_text += NbString().setNum(field.getValue());
    return *this;
  }

  Report& formatted(const char* name, const NkSFFloat& field, const NkSFString& format) {
    return m_isWanted ? quoted(name, panelix::formatReal(format.getValue(), field.getValue())) : *this;
  }

  void post() const {
    if (m_isWanted) NkDebugError::postInfo(m_location, "%s", m_text.toUtf8().c_str());
  }

private:
  void detail(const char* text) {
    m_text += "\n\t\t -> ";
    m_text += text;
  }

  Report& quoted(const char* name, const NbString& value) {
    detail(name);
    m_text += " \"";
    m_text += value;
    m_text += "\"";
    return *this;
  }

  const char* m_location;
  bool m_isWanted;
  NbString m_text;
};

} // namespace

void NkDialogAuditor::dialogPushButton(NkDialogPushButton* button) {
  Report("NkDialogAuditor::dialogPushButton", "NkDialogPushButton")
      .quoted("label", button->label)
      .quoted("buttonLabel", button->buttonLabel)
      .post();
}

void NkDialogAuditor::dialogCheckBox(NkDialogCheckBox* box) {
  Report("NkDialogAuditor::dialogCheckBox", "NkDialogCheckBox")
      .quoted("label", box->label)
      .quoted("onString", box->onString)
      .quoted("offString", box->offString)
      .post();
}

void NkDialogAuditor::dialogComboBox(NkDialogComboBox* box) {
  Report("NkDialogAuditor::dialogComboBox", "NkDialogComboBox")
      .quoted("label", box->label)
      .selected(box->selectedItem, box->items)
      .post();
}

void NkDialogAuditor::dialogEditText(NkDialogEditText* text) {
  Report("NkDialogAuditor::dialogEditText", "NkDialogEditText")
      .quoted("label", text->label)
      .quoted("editText", text->editText)
      .post();
}

void NkDialogAuditor::dialogIntegerSlider(NkDialogIntegerSlider* slider) {
  Report("NkDialogAuditor::dialogIntegerSlider", "NkDialogIntegerSlider")
      .quoted("label", slider->label)
      .number(slider->value)
      .post();
}

void NkDialogAuditor::dialogRadioButtons(NkDialogRadioButtons* buttons) {
  Report("NkDialogAuditor::dialogRadioButtons", "NkDialogRadioButtons")
      .quoted("label", buttons->label)
      .selected(buttons->selectedItem, buttons->items)
      .post();
}

void NkDialogAuditor::dialogRealSlider(NkDialogRealSlider* slider) {
  Report("NkDialogAuditor::dialogRealSlider", "NkDialogRealSlider")
      .quoted("label", slider->label)
      .formatted("value", slider->value, slider->format)
      .post();
}

void NkDialogAuditor::tabDialog(NkTabDialog*) {}

void NkDialogAuditor::menuPushButton(NkMenuPushButton* button) {
  Report("NkDialogAuditor::menuPushButton", "NkMenuPushButton").quoted("label", button->label).post();
}

void NkDialogAuditor::menuCheckBox(NkMenuCheckBox* box) {
  Report("NkDialogAuditor::menuCheckBox", "NkMenuCheckBox")
      .quoted("label", box->label)
      .quoted("onString", box->onString)
      .post();
}

void NkDialogAuditor::menuFileSelection(NkMenuFileSelection* selection) {
  Report("NkDialogAuditor::menuFileSelection", "NkMenuFileSelection")
      .quoted("title", selection->title)
      .quoted("filename", selection->filename)
      .post();
}

void NkDialogAuditor::menuRadioButtons(NkMenuRadioButtons* buttons) {
  Report("NkDialogAuditor::menuRadioButtons", "NkMenuRadioButtons")
      .quoted("label", buttons->label)
      .selected(buttons->selectedItem, buttons->items)
      .post();
}
