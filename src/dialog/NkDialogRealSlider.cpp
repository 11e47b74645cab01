#include "Panelix/NkDialogRealSlider.h"

#include "Panelix/NkDialogRealSliderAuditor.h"

NK_KIT_SOURCE(NkDialogRealSlider, NkDialogSlider, "DialogRealSlider");

NkDialogRealSlider::NkDialogRealSlider() {
  NK_KIT_CONSTRUCTOR(NkDialogRealSlider);
  NK_NODE_ADD_FIELD(min, (0.0F));
  NK_NODE_ADD_FIELD(max, (1.0F));
  NK_NODE_ADD_FIELD(value, (0.0F));
  NK_KIT_INIT_INSTANCE();
  format = "%.3f";
  format.setDefault(true);
}

NkDialogRealSlider::~NkDialogRealSlider() = default;

// Events

void NkDialogRealSlider::addAuditor(NkDialogRealSliderAuditor* auditor) { NkPanelix::addAuditor(auditor); }

void NkDialogRealSlider::removeAuditor(NkDialogRealSliderAuditor* auditor) { NkPanelix::removeAuditor(auditor); }

void NkDialogRealSlider::applyDlgCptAuditor() { tellAuditors(&NkDialogRealSliderAuditor::dialogRealSlider, this); }
