#pragma once

#include "Panelix/StackDialog.h"

/// Group that sets its children side by side from left to right.
class PANELIX_API NkColumnDialog : public panelix::StackDialog {
  NK_KIT_HEADER(NkColumnDialog);

public:
  NkSFInt32 columnSpacing; ///< Pixels between two children. 0.

  NkColumnDialog();

  void setChildrenComponentSize() override;
  void setChildrenLabelSize() override;

protected:
  ~NkColumnDialog() override;
};
