#include "arbora/scene/NkNodeKit.h"

#include "arbora/scene/NkDB.h"
#include "arbora/scene/NkNodeKitDetail.h"
#include "arbora/scene/NkNodeKitListPart.h"

int NkNodeKit::s_initCount = 0;

void NkNodeKit::init() {
  if (s_initCount++ > 0) return;
  NkDB::init();
  NkNodeKitDetail::initClass();
  NkBaseKit::initClass();
  NkNodeKitListPart::initClass();
}

void NkNodeKit::finish() {
  if (s_initCount == 0 || --s_initCount > 0) return;
  NkNodeKitListPart::exitClass();
  NkBaseKit::exitClass();
  NkNodeKitDetail::exitClass();
  NkDB::finish();
}
