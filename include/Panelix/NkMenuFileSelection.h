#pragma once

#include "Panelix/NkMenuPushButton.h"

class NkMenuFileSelectionAuditor;

/// Push button of a menu that lets the user choose a file in the system's dialog.
class PANELIX_API NkMenuFileSelection : public NkMenuPushButton {
  NK_KIT_HEADER(NkMenuFileSelection);

public:
  enum Mode { OPEN = 1, SAVE = 2 };

  NkSFString title;                 ///< Of the dialog. Empty.
  NkMFString filter;                ///< Pairs of a pattern and its description. "*.arb", "Arbora file".
  NkSFInt32 defaultFilter;          ///< Index of the pair that the dialog starts with. 0.
  NkSFFilePathString fileDirectory; ///< Where the dialog starts; then that of the chosen file. ".".
  NkSFFilePathString filename;      ///< What the dialog proposes; then the chosen file, without its directory. Empty.
  NkSFEnum mode;                    ///< OPEN.

  NkMenuFileSelection();

  void addAuditor(NkMenuFileSelectionAuditor* auditor);
  void removeAuditor(NkMenuFileSelectionAuditor* auditor);
  /// The user has chosen a file: tells the auditors or, if there are none, the parent.
  void validateFilename();
  /// For the application's own use.
  void setIsOpened(int isOpened);

protected:
  ~NkMenuFileSelection() override;

  void tellOwnAuditors() override;

private:
  int m_isOpened = 0;
};
