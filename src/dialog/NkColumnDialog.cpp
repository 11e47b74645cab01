#include "Panelix/NkColumnDialog.h"

#include "src/dialog/support/StackLayout.h"

NK_KIT_SOURCE(NkColumnDialog, NkDialogGroup, "ColumnDialog");

NkColumnDialog::NkColumnDialog() : StackDialog(0, columnSpacing) {
  NK_KIT_CONSTRUCTOR(NkColumnDialog);
  NK_NODE_ADD_FIELD(columnSpacing, (0));
  NK_KIT_INIT_INSTANCE();
  watchSpacing();
}

NkColumnDialog::~NkColumnDialog() = default;

// Sizes: side by side nothing lines up

void NkColumnDialog::setChildrenLabelSize() {
  forEachChild([](NkDialogComponent* child) {
    NbVec2i32 size = child->labelVisibility.getValue() ? child->getLabelInitSize() : NbVec2i32(0, 0);
    child->setLabelSize(size);
  });
}

void NkColumnDialog::setChildrenComponentSize() {
  forEachChild([](NkDialogComponent* child) {
    NbVec2i32 size(child->getComponentInitSize()[0], panelix::areaHeight(*child));
    child->setComponentSize(size);
  });
}
