#include "arbora/scene/NkNodeKitDetail.h"

NkType NkNodeKitDetail::s_classTypeId;

NkNodeKitDetail::NkNodeKitDetail() = default;

NkNodeKitDetail::~NkNodeKitDetail() = default;

NkType NkNodeKitDetail::getClassTypeId() { return s_classTypeId; }

NkType NkNodeKitDetail::getTypeId() const { return s_classTypeId; }

void NkNodeKitDetail::initClass() { s_classTypeId = NkType::createType(NkDetail::getClassTypeId(), "NodeKitDetail"); }

void NkNodeKitDetail::exitClass() {
  NkType::removeType("NodeKitDetail");
  s_classTypeId = NkType::badType();
}

NkNodeKitDetail* NkNodeKitDetail::copy() const { return new NkNodeKitDetail(*this); }
