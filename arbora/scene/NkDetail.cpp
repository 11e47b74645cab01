#include "arbora/scene/NkDetail.h"

NkType NkDetail::s_classTypeId;

NkType NkDetail::getClassTypeId() { return s_classTypeId; }

void NkDetail::initClass() { s_classTypeId = NkType::createType(NkTypedObject::getClassTypeId(), "Detail"); }

void NkDetail::exitClass() {
  NkType::removeType("Detail");
  s_classTypeId = NkType::badType();
}
