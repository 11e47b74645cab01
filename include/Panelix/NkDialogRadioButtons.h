#pragma once

#include "Panelix/NkDialogChoice.h"

/// Choice that shows all entries, one below the other in a box whose upper edge bears the label. Other than elsewhere
/// `labelAlignment` is LEFT in a new node.
class PANELIX_API NkDialogRadioButtons : public NkDialogChoice {
  NK_KIT_HEADER(NkDialogRadioButtons);
  NK_SKIN_HEADER(DialogRadioButtons);

public:
  NkDialogRadioButtons();

protected:
  ~NkDialogRadioButtons() override;

private:
  NkSFNode frameSep;
  NkSFNode frame;
  NkSFNode labelSep;
  NkSFNode labelSwitch;
  NkSFNode labelProp;
  NkSFNode itemsSep;
  NkSFNode itemSep;
  NkSFNode itemFrameSep;
  NkSFNode itemFrame;
  NkSFNode itemBtnSep;
  NkSFNode itemBtnSwtch;
  NkSFNode stateOff;
  NkSFNode stateOn;
  NkSFNode itemTextSep;
  NkSFNode itemTextProp;
};
