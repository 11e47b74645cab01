#pragma once

#include "Panelix/NkDialogComponent.h"

class NkDialogChoiceAuditor;

/// Base of the components that offer a list of entries, one of which is selected. In the place of an empty list stands
/// one empty string, the placeholder, which is no entry.
class PANELIX_API NkDialogChoice : public NkDialogComponent {
  NK_KIT_HEADER(NkDialogChoice);

public:
  NkMFString items;       ///< The entries. The placeholder.
  NkSFInt32 selectedItem; ///< Index of the selected entry. 0.

  NkDialogChoice();

  void addItem(NbString text);
  /// Ahead of the entry at `index`, which is held within the list.
  void insertItem(int index, NbString text);
  /// Does nothing for an index outside the list.
  void removeItem(int index);

  void addAuditor(NkDialogChoiceAuditor* auditor);
  void removeAuditor(NkDialogChoiceAuditor* auditor);
  /// A user's action: tells the auditors or, if there are none, the parent.
  void applyDlgCptAuditor();

protected:
  ~NkDialogChoice() override;

  /// Puts the placeholder into an empty list, and looks again whether the list holds entries.
  void fixItemsNumber();
  /// Number of entries, without the placeholder.
  int getNumEntries() const { return items.getNum() - m_numPlaceholders; }

private:
  int m_numPlaceholders = 1;
};
