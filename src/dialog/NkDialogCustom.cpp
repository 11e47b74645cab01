#include "Panelix/NkDialogCustom.h"

NK_KIT_SOURCE(NkDialogCustom, NkDialogComponent, "DialogCustom");

NkDialogCustom::NkDialogCustom() {
  NK_KIT_CONSTRUCTOR(NkDialogCustom);
  NK_KIT_INIT_INSTANCE();
}

NkDialogCustom::~NkDialogCustom() = default;

void NkDialogCustom::addChildWidget() {}
