#include "Panelix/NkRowDialog.h"

NK_KIT_SOURCE(NkRowDialog, NkDialogGroup, "RowDialog");

NkRowDialog::NkRowDialog() {
  NK_KIT_CONSTRUCTOR(NkRowDialog);
  NK_NODE_ADD_FIELD(rowSpacing, (0));
  NK_KIT_INIT_INSTANCE();
}

NkRowDialog::~NkRowDialog() = default;
