#pragma once

#include "Panelix/Container.h"
#include "Panelix/NkTopComponent.h"

class NkDialogAuditor;
class NkTopLevelAuditor;

/// Root of a dialog, a window of its own: it holds components and at most one menu bar, and stacks them as rows.
class PANELIX_API NkTopLevelDialog : public panelix::Container<NkPanelix, NkTopComponent> {
  NK_KIT_HEADER(NkTopLevelDialog);
  NK_SKIN_HEADER(TopLevelDialog);

public:
  enum ScrollVisibility { NEVER = 0, ALWAYS = 1, AUTO = 2 };

  // Sizes are in pixels, outside measure; 0 stands for computed.
  NkSFInt32 width;
  NkSFInt32 height;
  NkSFVec2i32 position; ///< Of the window on the screen, in pixels. (0, 0).
  NkSFVec3f position3D; ///< Top left corner of the panel: pixels to the right and down, and z. (0, 0, 0).
  NkSFBool resizable;   ///< By the user. TRUE.
  NkSFInt32 minWidth;
  NkSFInt32 minHeight;
  NkSFInt32 maxWidth;
  NkSFInt32 maxHeight;
  NkSFInt32 margin;              ///< Pixels left free along each side. 0.
  NkSFInt32 rowSpacing;          ///< Pixels between two children. 0.
  NkSFBool modalFrame;           ///< The window looks like a dialog's and stays on top; it disables nothing. FALSE.
  NkSFBool hideChildren;         ///< The children vanish when a drag of the panel begins. FALSE.
  NkSFBool minimized;            ///< The panel is folded to its title. FALSE.
  NkSFVec3f minimized3DPosition; ///< As `position3D`, for the folded panel. (0, 0, 0).
  NkSFBool independentMinimizedPosition; ///< The panel has a place of its own for each state. TRUE.
  NkSFBool windowResizedByChildren;      ///< A change of the children gives up the sizes of the window. FALSE.
  NkSFEnum vScrollVisibility;            ///< Of the vertical scroll bar of the 2D form. AUTO.
  NkSFEnum hScrollVisibility;            ///< AUTO.

  NkTopLevelDialog();

  /// The auditor hears of each user action in the dialog of which nobody further down has heard.
  void addAuditor(NkDialogAuditor* auditor);
  void removeAuditor(NkDialogAuditor* auditor);
  /// Runs the auditors once over the present state of every component below.
  void applyAuditors();
  /// The first component below, in the order of the file, with that `auditorID`; NULL if there is none.
  NkPanelix* searchForAuditorId(NbString id);

  void applyAuditor(NkPanelix* source) override;

protected:
  ~NkTopLevelDialog() override;

private:
  NkSFNode frameSep;
  NkSFNode frame;
  NkSFNode labelSep;
  NkSFNode labelProp;
  NkSFNode minSep;
  NkSFNode minSwtch;
  NkSFNode minReleased;
  NkSFNode minPressed;

  std::unique_ptr<NkTopLevelAuditor> m_defaultAuditor; ///< Hears of what no other auditor hears.
};
