#pragma once

#include "Panelix/Container.h"
#include "Panelix/NkDialogComponent.h"

class NkDialogAuditor;

/// Base of the containers inside a dialog. It holds components, and leaves their places to its subclasses.
class PANELIX_API NkDialogGroup : public panelix::Container<NkDialogComponent, NkDialogComponent> {
  NK_KIT_HEADER(NkDialogGroup);

public:
  enum ScrollVisibility { NEVER = 0, ALWAYS = 1, AUTO = 2 };

  NkSFBool windowResizedByChildren; ///< A change of the children gives up the sizes of the group. TRUE.
  NkSFInt32 margin;                 ///< Pixels left free along each side. 0.
  NkSFEnum vScrollVisibility;       ///< Of the vertical scroll bar of the 2D form. AUTO.
  NkSFEnum hScrollVisibility;       ///< AUTO.

  NkDialogGroup();

  /// The auditor hears of each user action in the group of which nobody further down has heard.
  void addAuditor(NkDialogAuditor* auditor);
  void removeAuditor(NkDialogAuditor* auditor);
  /// Runs the auditors once over the present state of every component below.
  void applyAuditors();
  /// The first component below, in the order of the file, with that `auditorID`; NULL if there is none.
  NkPanelix* searchForAuditorId(NbString id);

  void applyAuditor(NkPanelix* source) override;

protected:
  ~NkDialogGroup() override;
};
