#include "Panelix/NkDialogChoice.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "Panelix/NkDialogChoiceAuditor.h"

NK_KIT_SOURCE(NkDialogChoice, NkDialogComponent, "DialogChoice");

NkDialogChoice::NkDialogChoice() {
  NK_KIT_CONSTRUCTOR(NkDialogChoice);
  NK_NODE_ADD_FIELD(items, (""));
  NK_NODE_ADD_FIELD(selectedItem, (0));
  NK_KIT_INIT_INSTANCE();
}

NkDialogChoice::~NkDialogChoice() = default;

// Entries

void NkDialogChoice::addItem(NbString text) {
  const int index = getNumEntries() > 0 ? items.getNum() : 0;
  m_numPlaceholders = 0;
  items.set1Value(index, text);
}

void NkDialogChoice::insertItem(int index, NbString text) {
  if (getNumEntries() <= 0) {
    addItem(text);
    return;
  }
  m_numPlaceholders = 0;
  // One change for those who listen, not a gap and then the entry.
  std::vector<NbString> texts(items.getValues(), items.getValues() + items.getNum());
  texts.insert(texts.begin() + std::clamp(index, 0, items.getNum()), text);
  items.setValues(std::move(texts));
}

void NkDialogChoice::removeItem(int index) {
  if (index >= 0 && index < getNumEntries()) items.deleteValues(index, 1);
}

void NkDialogChoice::fixItemsNumber() {
  if (items.getNum() == 0) {
    m_numPlaceholders = 1;
    items = "";
  } else if (items.getNum() > 1 || !items[0].isEmpty()) {
    m_numPlaceholders = 0;
  }
}

// Events

void NkDialogChoice::addAuditor(NkDialogChoiceAuditor* auditor) { NkPanelix::addAuditor(auditor); }

void NkDialogChoice::removeAuditor(NkDialogChoiceAuditor* auditor) { NkPanelix::removeAuditor(auditor); }

void NkDialogChoice::applyDlgCptAuditor() { tellAuditors(&NkDialogChoiceAuditor::dialogChoice, this); }
