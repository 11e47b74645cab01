#pragma once

#include "Panelix/NkDialogGroup.h"

class NkTabDialogAuditor;

/// Group that shows one of its children at a time: each is a page, whose `label` stands on its tab.
class PANELIX_API NkTabDialog : public NkDialogGroup {
  NK_KIT_HEADER(NkTabDialog);
  NK_SKIN_HEADER(TabDialog);

public:
  enum TabsLocation { TOP = 0, BOTTOM = 1, LEFT = 2, RIGHT = 3 };

  NkSFInt32 selectedPage; ///< Index of the page on show. 0.
  NkSFEnum tabsLocation;  ///< Side of the tabs in the 2D form. TOP.

  NkTabDialog();

  /// The auditor hears when the user selects a page.
  void addAuditor(NkTabDialogAuditor* auditor);
  void removeAuditor(NkTabDialogAuditor* auditor);
  /// A user's action: tells the auditors or, if there are none, the parent.
  void applyDlgCptAuditor();

  void addChild(NkDialogComponent* child) override;
  void insertChild(NkDialogComponent* child, int index) override;
  using NkDialogGroup::removeChild;
  void removeChild(int index) override;

protected:
  ~NkTabDialog() override;

private:
  NkSFNode pagesSep;
  NkSFNode pageSwitch;
  NkSFNode pageSep;
  NkSFNode labelSep;
  NkSFNode labelSwitch;
  NkSFNode unselected;
  NkSFNode selected;
  NkSFNode textSep;
  NkSFNode textProp;
  NkSFNode buttonsSep;
  NkSFNode lButtonSep;
  NkSFNode lButtonSwtch;
  NkSFNode lButtonReleased;
  NkSFNode lButtonPressed;
  NkSFNode rButtonSep;
  NkSFNode rButtonSwtch;
  NkSFNode rButtonReleased;
  NkSFNode rButtonPressed;
  NkSFNode frameSep;
  NkSFNode frame;
};
