#pragma once

#include "Panelix/NkDialogChoice.h"

/// Choice that shows the selected entry, and the list only when it is opened.
class PANELIX_API NkDialogComboBox : public NkDialogChoice {
  NK_KIT_HEADER(NkDialogComboBox);
  NK_SKIN_HEADER(DialogComboBox);

public:
  NkDialogComboBox();

protected:
  ~NkDialogComboBox() override;

private:
  NkSFNode labelSep;
  NkSFNode labelSwitch;
  NkSFNode labelProp;
  NkSFNode frameSep;
  NkSFNode frame;
  NkSFNode textSep;
  NkSFNode textProp;
  NkSFNode buttonSep;
  NkSFNode buttonSwitch;
  NkSFNode buttonReleased;
  NkSFNode buttonPressed;
  NkSFNode itemsSwitch;
  NkSFNode itemStrucSep;
  NkSFNode itemSep;
  NkSFNode itemFrame;
  NkSFNode itemTextSep;
  NkSFNode itemTextProp;
};
