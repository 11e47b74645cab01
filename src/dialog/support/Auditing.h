#pragma once

#include <vector>

#include "arbora/base/NbString.h"
#include "arbora/scene/NkRefCounter.h"

class NkDialogAuditor;
class NkPanelix;

/// What the containers share of the auditors' ways through a dialog. A container's `applyAuditor` gives one of the
/// `tell` functions to `NkPanelix::tellAuditors`, or to `callAuditors` if it has no parent to tell.
namespace panelix {

/// Calls the operation for the kind of `source`, if it is one of the kinds of components, or of entries of menus, or of
/// either.
void tellDialogKinds(NkDialogAuditor* auditor, NkPanelix* source);
void tellMenuKinds(NkDialogAuditor* auditor, NkPanelix* source);
void tellAllKinds(NkDialogAuditor* auditor, NkPanelix* source);

/// Has a child run the auditors below it; false if it isn't a container with components.
bool applyAuditorsOf(NkPanelix& child);

/// The first component with that `auditorID`, the child itself or one below it; NULL if there is none.
NkPanelix* findAuditorIdFrom(NkPanelix& child, const NbString& id);

/// Runs the auditors once over the state of every component in a container.
template <class Container>
void applyAuditorsBelow(Container& container) {
  const arbora::KeepAlive alive(&container);
  std::vector<arbora::Ref<NkPanelix>> children;
  for (int i = 0; i < container.getNumChildren(); ++i) children.emplace_back(container.getChild(i));
  int place = 0;
  for (const auto& child : children) {
    // An auditor may have taken it away.
    if (container.getChildren()->find(child.get(), place++) < 0) continue;
    if (!applyAuditorsOf(*child)) container.applyAuditor(child.get());
  }
}

/// The first component in a container, in the order of the file, with that `auditorID`; NULL if there is none.
template <class Container>
NkPanelix* findAuditorId(Container& container, const NbString& id) {
  for (int i = 0; i < container.getNumChildren(); ++i) {
    if (NkPanelix* found = findAuditorIdFrom(*container.getChild(i), id)) return found;
  }
  return nullptr;
}

} // namespace panelix
