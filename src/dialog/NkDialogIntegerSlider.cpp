#include "Panelix/NkDialogIntegerSlider.h"

#include "Panelix/NkDialogIntegerSliderAuditor.h"

NK_KIT_SOURCE(NkDialogIntegerSlider, NkDialogSlider, "DialogIntegerSlider");

NkDialogIntegerSlider::NkDialogIntegerSlider() {
  NK_KIT_CONSTRUCTOR(NkDialogIntegerSlider);
  NK_NODE_ADD_FIELD(min, (0));
  NK_NODE_ADD_FIELD(max, (1));
  NK_NODE_ADD_FIELD(value, (0));
  NK_KIT_INIT_INSTANCE();
  format = "%d";
}

NkDialogIntegerSlider::~NkDialogIntegerSlider() = default;

// Events

void NkDialogIntegerSlider::addAuditor(NkDialogIntegerSliderAuditor* auditor) { NkPanelix::addAuditor(auditor); }

void NkDialogIntegerSlider::removeAuditor(NkDialogIntegerSliderAuditor* auditor) { NkPanelix::removeAuditor(auditor); }

void NkDialogIntegerSlider::applyDlgCptAuditor() {
  tellAuditors(&NkDialogIntegerSliderAuditor::dialogIntegerSlider, this);
}
