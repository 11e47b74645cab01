#pragma once

#include "Panelix/NkDialogComponent.h"

/// Base of the components that show a number between two limits as a bar with a thumb, beside it the number itself as
/// a text to edit, and a check box that flips `continuousTrigger`.
class PANELIX_API NkDialogSlider : public NkDialogComponent {
  NK_KIT_HEADER(NkDialogSlider);
  NK_SKIN_HEADER(DialogSlider);

public:
  NkSFBool valueVisible;      ///< The number is shown. TRUE.
  NkSFString format;          ///< How the number is printed. "%3f".
  NkSFBool continuousTrigger; ///< The number counts while the thumb moves, otherwise at its release. FALSE.
  NkSFBool toggleVisible;     ///< The check box is shown. TRUE.
  NkSFBool fixedLimits;       ///< A number that is typed is held within the limits; otherwise it moves them. FALSE.
  NkMFColor colors;           ///< Background of the bar, from left to right. Grey.
  NkSFBool shadedColors;      ///< Two or more colours go over into each other; otherwise they are bands. TRUE.

  NkDialogSlider();

protected:
  ~NkDialogSlider() override;

private:
  NkSFNode labelSep;
  NkSFNode labelSwitch;
  NkSFNode labelProp;
  NkSFNode checkSep;
  NkSFNode checkSwtch;
  NkSFNode checkStateOff;
  NkSFNode checkStateOn;
  NkSFNode sliderSep;
  NkSFNode frameSep;
  NkSFNode frame;
  NkSFNode cursorSep;
  NkSFNode cursor;
  NkSFNode edtSwtch;
  NkSFNode edtFrmSep;
  NkSFNode edtFrmSwtch;
  NkSFNode valueFrame;
  NkSFNode editValueFrame;
  NkSFNode editTextSep;
  NkSFNode editTextProp;
};
