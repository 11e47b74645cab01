#pragma once

#include "Panelix/NkDialogComponent.h"

/// Component that shows its `label`, over its whole area. Other than elsewhere `labelAlignment` is LEFT by default.
class PANELIX_API NkDialogLabel : public NkDialogComponent {
  NK_KIT_HEADER(NkDialogLabel);

public:
  NkDialogLabel();

protected:
  ~NkDialogLabel() override;

private:
  NkSFNode labelSep;
  NkSFNode labelProp;
};
