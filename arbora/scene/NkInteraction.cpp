#include "arbora/scene/NkInteraction.h"

#include "arbora/scene/NkNodeKit.h"

int NkInteraction::s_initCount = 0;

void NkInteraction::init() {
  if (s_initCount++ == 0)
    NkNodeKit::init();
}

void NkInteraction::finish() {
  if (s_initCount > 0 && --s_initCount == 0)
    NkNodeKit::finish();
}
