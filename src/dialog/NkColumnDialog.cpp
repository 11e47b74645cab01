#include "Panelix/NkColumnDialog.h"

NK_KIT_SOURCE(NkColumnDialog, NkDialogGroup, "ColumnDialog");

NkColumnDialog::NkColumnDialog() {
  NK_KIT_CONSTRUCTOR(NkColumnDialog);
  NK_NODE_ADD_FIELD(columnSpacing, (0));
  NK_KIT_INIT_INSTANCE();
}

NkColumnDialog::~NkColumnDialog() = default;
