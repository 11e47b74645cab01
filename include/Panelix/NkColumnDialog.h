#pragma once

#include "Panelix/NkDialogGroup.h"

/// Group that sets its children side by side, from left to right.
class PANELIX_API NkColumnDialog : public NkDialogGroup {
  NK_KIT_HEADER(NkColumnDialog);

public:
  NkSFInt32 columnSpacing; ///< Pixels between two children. 0.

  NkColumnDialog();

protected:
  ~NkColumnDialog() override;
};
