#include "Panelix/NkRowDialog.h"

#include "src/dialog/support/StackLayout.h"

NK_KIT_SOURCE(NkRowDialog, NkDialogGroup, "RowDialog");

NkRowDialog::NkRowDialog() : StackDialog(1, rowSpacing) {
  NK_KIT_CONSTRUCTOR(NkRowDialog);
  NK_NODE_ADD_FIELD(rowSpacing, (0));
  NK_KIT_INIT_INSTANCE();
  watchSpacing();
}

NkRowDialog::~NkRowDialog() = default;

// Sizes

void NkRowDialog::setChildrenLabelSize() {
  panelix::alignLabels([this](auto&& use) { forEachChild([&](NkDialogComponent* child) { use(*child); }); }, true);
}

void NkRowDialog::setChildrenComponentSize() {
  panelix::alignComponents([this](auto&& use) { forEachChild([&](NkDialogComponent* child) { use(*child); }); });
}
