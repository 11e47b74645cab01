#include "tools/panelix/ActionPrinter.h"

#include <cstdio>

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
#include "Panelix/NkTabDialog.h"
#include "Panelix/NkTopLevelDialog.h"
#include "tools/panelix/Json.h"
#include "tools/panelix/SceneFile.h"

namespace panelix {
namespace {

void printLine(const std::string& line) {
  std::puts(line.c_str());
  std::fflush(stdout);
}

void printFinish(void* /*data*/, NkDragger* dragger) {
  std::string line = dragger->getFileFormatName();
  if (dragger->getName().getLength() > 0) line += std::string(" ") + dragger->getName().getString();
  printLine(line + ": finish");
}

void print(const NkPanelix& component, const std::string& value) {
  // What would break the line is escaped.
  const std::string id = toJson(component.auditorID.getValue().toUtf8());
  printLine(id.substr(1, id.size() - 2) + "\t" + component.getFileFormatName() + "\t" + value);
}

void print(const NkPanelix& component, const NkField& value) { print(component, value.get().toUtf8()); }

void print(const NkPanelix& component, const NbString& text) { print(component, toJson(text.toUtf8())); }

} // namespace

ActionPrinter::ActionPrinter() : m_pages(*this) {}

void ActionPrinter::listenTo(const SceneFile& scene) {
  for (const auto& node : scene.findAll(NkDragger::getClassTypeId())) {
    if (auto* dialog = dynamic_cast<NkTopLevelDialog*>(node.get()))
      listenTo(*dialog);
    else if (auto* tabs = dynamic_cast<NkTabDialog*>(node.get()))
      tabs->addAuditor(&m_pages);
    else if (!node->isOfType(NkPanelix::getClassTypeId()))
      static_cast<NkDragger*>(node.get())->addFinishCallback(printFinish);
  }
}

void ActionPrinter::listenTo(NkTopLevelDialog& dialog) { dialog.addAuditor(this); }

void ActionPrinter::dialogPushButton(NkDialogPushButton* button) { print(*button, std::string()); }

void ActionPrinter::dialogCheckBox(NkDialogCheckBox* box) { print(*box, box->state); }

void ActionPrinter::dialogComboBox(NkDialogComboBox* box) { print(*box, box->selectedItem); }

void ActionPrinter::dialogEditText(NkDialogEditText* text) { print(*text, text->editText.getValue()); }

void ActionPrinter::dialogIntegerSlider(NkDialogIntegerSlider* slider) { print(*slider, slider->value); }

void ActionPrinter::dialogRadioButtons(NkDialogRadioButtons* buttons) { print(*buttons, buttons->selectedItem); }

void ActionPrinter::dialogRealSlider(NkDialogRealSlider* slider) { print(*slider, slider->value); }

void ActionPrinter::tabDialog(NkTabDialog* dialog) { print(*dialog, dialog->selectedPage); }

void ActionPrinter::menuPushButton(NkMenuPushButton* button) { print(*button, std::string()); }

void ActionPrinter::menuCheckBox(NkMenuCheckBox* box) { print(*box, box->state); }

void ActionPrinter::menuFileSelection(NkMenuFileSelection* selection) {
  print(*selection, selection->fileDirectory.getValue() + "/" + selection->filename.getValue());
}

void ActionPrinter::menuRadioButtons(NkMenuRadioButtons* buttons) { print(*buttons, buttons->selectedItem); }

} // namespace panelix
