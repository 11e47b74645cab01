#include "Panelix/NkDialogGroup.h"

#include "Panelix/NkDialogAuditor.h"
#include "src/dialog/support/Auditing.h"

NK_KIT_SOURCE(NkDialogGroup, NkDialogComponent, "DialogGroup");

namespace {

constexpr panelix::ContainerRules kRules{"NkDialogGroup", panelix::kOutOfRange, true, true};

} // namespace

NkDialogGroup::NkDialogGroup() : Container(kRules) {
  NK_KIT_CONSTRUCTOR(NkDialogGroup);
  NK_NODE_ADD_FIELD(windowResizedByChildren, (TRUE));
  NK_NODE_ADD_FIELD(margin, (0));
  NK_NODE_ADD_FIELD(vScrollVisibility, (AUTO));
  NK_NODE_ADD_FIELD(hScrollVisibility, (AUTO));
  NK_NODE_DEFINE_ENUM_VALUE(ScrollVisibility, NEVER);
  NK_NODE_DEFINE_ENUM_VALUE(ScrollVisibility, ALWAYS);
  NK_NODE_DEFINE_ENUM_VALUE(ScrollVisibility, AUTO);
  NK_NODE_SET_SF_ENUM_TYPE(vScrollVisibility, ScrollVisibility);
  NK_NODE_SET_SF_ENUM_TYPE(hScrollVisibility, ScrollVisibility);
  NK_KIT_INIT_INSTANCE();
}

NkDialogGroup::~NkDialogGroup() = default;

// Auditors

void NkDialogGroup::addAuditor(NkDialogAuditor* auditor) { NkPanelix::addAuditor(auditor); }

void NkDialogGroup::removeAuditor(NkDialogAuditor* auditor) { NkPanelix::removeAuditor(auditor); }

void NkDialogGroup::applyAuditors() { panelix::applyAuditorsBelow(*this); }

NkPanelix* NkDialogGroup::searchForAuditorId(NbString id) { return panelix::findAuditorId(*this, id); }

void NkDialogGroup::applyAuditor(NkPanelix* source) { tellAuditors(panelix::tellDialogKinds, source); }
