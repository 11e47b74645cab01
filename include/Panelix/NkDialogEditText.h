#pragma once

#include "Panelix/NkDialogComponent.h"

class NkDialogEditTextAuditor;

/// Component that shows a text and lets the user edit it.
class PANELIX_API NkDialogEditText : public NkDialogComponent {
  NK_KIT_HEADER(NkDialogEditText);
  NK_SKIN_HEADER(DialogEditText);

public:
  NkSFString editText;  ///< The text. It may hold line ends, as such or as `\n`, and the escapes `\t` and `\"`. Empty.
  NkSFBool editable;    ///< The user may change the text. TRUE.
  NkSFBool trigOnEnter; ///< A new text counts when the user types Return, otherwise with every key. TRUE.
  NkSFBool isNumeric;   ///< The 2D form takes nothing but a number. FALSE.
  NkSFBool multiLine;   ///< There may be several lines, which can be scrolled. FALSE.
  NkSFBool wrapLine;    ///< Several lines are wrapped at the edge, otherwise scrolled sideways. TRUE.

  NkDialogEditText();

  void addAuditor(NkDialogEditTextAuditor* auditor);
  void removeAuditor(NkDialogEditTextAuditor* auditor);
  /// A user's action: tells the auditors or, if there are none, the parent.
  void applyDlgCptAuditor();

protected:
  ~NkDialogEditText() override;

private:
  NkSFNode labelSep;
  NkSFNode labelSwitch;
  NkSFNode labelProp;
  NkSFNode scrollVSwitch;
  NkSFNode downSep;
  NkSFNode downSwitch;
  NkSFNode downReleased;
  NkSFNode downPressed;
  NkSFNode upSep;
  NkSFNode upSwitch;
  NkSFNode upReleased;
  NkSFNode upPressed;
  NkSFNode scrollVSep;
  NkSFNode scrollVBack;
  NkSFNode scrollVFrame;
  NkSFNode cursorVSep;
  NkSFNode cursorVFrame;
  NkSFNode scrollHSwitch;
  NkSFNode leftSep;
  NkSFNode leftSwitch;
  NkSFNode leftReleased;
  NkSFNode leftPressed;
  NkSFNode rightSep;
  NkSFNode rightSwitch;
  NkSFNode rightReleased;
  NkSFNode rightPressed;
  NkSFNode scrollHSep;
  NkSFNode scrollHBack;
  NkSFNode scrollHFrame;
  NkSFNode cursorHSep;
  NkSFNode cursorHFrame;
  NkSFNode editSep;
  NkSFNode frameSep;
  NkSFNode frameSwitch;
  NkSFNode frame;
  NkSFNode editFrame;
  NkSFNode textSep;
  NkSFNode textProp;
};
