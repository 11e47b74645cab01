#include "arbora/scene/NkNodeKit.h"

#include "arbora/scene/NkDB.h"

int NkNodeKit::s_initCount = 0;

void NkNodeKit::init() {
  if (s_initCount++ == 0)
    NkDB::init();
}

void NkNodeKit::finish() {
  if (s_initCount > 0 && --s_initCount == 0)
    NkDB::finish();
}
