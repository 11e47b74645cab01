#pragma once

#include "Panelix/NkDialogComponent.h"

/// Line between components. It lies in a row and stands in a column.
class PANELIX_API NkDialogSeparator : public NkDialogComponent {
  NK_KIT_HEADER(NkDialogSeparator);
  NK_SKIN_HEADER(DialogSeparator);

public:
  NkDialogSeparator();

protected:
  ~NkDialogSeparator() override;

private:
  NkSFNode frameSep;
  NkSFNode frameSwitch;
  NkSFNode vFrame;
  NkSFNode hFrame;
};
