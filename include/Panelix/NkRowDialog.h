#pragma once

#include "Panelix/StackDialog.h"

/// Group that stacks its children from top to bottom, with common columns for their labels and for what is right of
/// these.
class PANELIX_API NkRowDialog : public panelix::StackDialog {
  NK_KIT_HEADER(NkRowDialog);

public:
  NkSFInt32 rowSpacing; ///< Pixels between two children. 0.

  NkRowDialog();

  void setChildrenComponentSize() override;
  void setChildrenLabelSize() override;

protected:
  ~NkRowDialog() override;
};
