#include "arbora/scene/NkInteraction.h"

#include "arbora/scene/NkNodeKit.h"
#include "arbora/scene/NkPlaneDragger.h"

int NkInteraction::s_initCount = 0;

void NkInteraction::init() {
  if (s_initCount++ > 0) return;
  NkNodeKit::init();
  NkInteractionKit::initClass();
  NkDragger::initClass();
  NkPlaneDragger::initClass();
}

void NkInteraction::finish() {
  if (s_initCount == 0 || --s_initCount > 0) return;
  NkPlaneDragger::exitClass();
  NkDragger::exitClass();
  NkInteractionKit::exitClass();
  NkNodeKit::finish();
}
