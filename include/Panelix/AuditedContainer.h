#pragma once

#include "Panelix/Container.h"
#include "Panelix/NkDialogAuditor.h"

namespace panelix {

/// A container that has auditors of its own.
template <class Base, class Child>
class AuditedContainer : public Container<Base, Child> {
public:
  /// The auditor hears of each user action in the container of which nobody further down has heard.
  void addAuditor(NkDialogAuditor* auditor) { this->NkPanelix::addAuditor(auditor); }
  void removeAuditor(NkDialogAuditor* auditor) { this->NkPanelix::removeAuditor(auditor); }

protected:
  using Container<Base, Child>::Container;
};

} // namespace panelix
