#include "Panelix/NkTopComponent.h"

#include "arbora/scene/NkSwitch.h"
#include "arbora/scene/NkTranslation.h"

NK_KIT_SOURCE(NkTopComponent, NkPanelix, "TopComponent");

NkTopComponent::NkTopComponent() {
  NK_KIT_CONSTRUCTOR(NkTopComponent);
  NK_KIT_INIT_INSTANCE();
}

NkTopComponent::~NkTopComponent() = default;

void NkTopComponent::getSize(NbVec2i32&, NbVec2i32&, NbVec2i32&) {}

void NkTopComponent::buildWidget(HWND parent, NbVec2i32& size, NbVec2i32& position, int is2D) {
  NkPanelix::buildWidget(parent, size, position, is2D);
}

void NkTopComponent::destroyWidget() { NkPanelix::destroyWidget(); }

void NkTopComponent::updateFromSensor(NkSensor* sensor) { NkPanelix::updateFromSensor(sensor); }

void NkTopComponent::addTranslation(NkTranslation* translation) {
  const arbora::KeepAlive alive(translation);
  auto* geometry = groupPart("geomSwitch");
  NkNode* first = geometry->getNumChildren() > 0 ? geometry->getChild(0) : nullptr;
  if (first && first->isOfType(NkTranslation::getClassTypeId()) && first->getName() == "parentPositionTranslation")
    static_cast<NkTranslation*>(first)->translation = translation->translation.getValue();
  else
    geometry->insertChild(translation, 0);
}
