#pragma once

#include "Panelix/AuditedContainer.h"
#include "Panelix/NkDialogComponent.h"
#include "Panelix/SizeDatabase.h"

/// Base of the containers inside a dialog. It holds components, and leaves their places to its subclasses.
class PANELIX_API NkDialogGroup : public panelix::AuditedContainer<NkDialogComponent, NkDialogComponent> {
  NK_KIT_HEADER(NkDialogGroup);

public:
  enum ScrollVisibility { NEVER = 0, ALWAYS = 1, AUTO = 2 };

  NkSFBool windowResizedByChildren; ///< A change of the children gives up the sizes of the group. TRUE.
  NkSFInt32 margin;                 ///< Pixels left free along each side. 0.
  NkSFEnum vScrollVisibility;       ///< Of the vertical scroll bar of the 2D form. AUTO.
  NkSFEnum hScrollVisibility;       ///< AUTO.

  NkDialogGroup();

  /// Runs the auditors once over the present state of every component below.
  void applyAuditors();
  /// The first component below, in the order of the file, with that `auditorID`; NULL if there is none.
  NkPanelix* searchForAuditorId(NbString id);

  void getBoundingBox(NkGetBoundingBoxAction* action) override;

  void buildWidget(HWND parent, NbVec2i32& size, NbVec2i32& position, int is2D) override;
  void destroyWidget() override;
  void applyAuditor(NkPanelix* source) override;
  void resetSize() override;
  void changeEnable() override;
  void show3D(int on) override;
  void change3DPosition() override;
  void change3DWidgetEnable(int on) override;
  void change3DEnable() override;
  void getSize(NbVec2i32& size, NbVec2i32& min, NbVec2i32& max) override;
  void setLabelSize(NbVec2i32& size) override;
  void setComponentSize(NbVec2i32& size) override;
  NbVec2i32 getComponentInitSize() override;
  NbVec2i32 getLabelInitSize() override;
  void changeWidgetEnable(int on) override;

  /// Makes a size of the content one of the group with factor 1, and the reverse with -1. In pixels; with 1 what is
  /// unbounded stays so.
  virtual void fixSizeWithBorder(NbVec2i32& size, int factor);
  /// Hands the sizes of the two areas down to the children.
  virtual void setChildrenComponentSize();
  virtual void setChildrenLabelSize();

  /// The tree below changed after it was built: forgets all sizes and goes on upwards to the dialog, which is built
  /// anew.
  void updateAfterSceneGraphChange();

protected:
  ~NkDialogGroup() override;

  void afterChange(Change change, NkDialogComponent* child, int index) override;
  /// Decides the scroll bars.
  void setScrollProperties();
  /// Moves the children, placed anew, to where the scroll bars say.
  void updateGroupWidgetScrollPosition();
  void updateChildrenSizeDB();

  panelix::SizeDatabase m_sizes;

private:
  int m_hScrollOn = 0; // The bar shows.
  int m_vScrollOn = 0;
  int m_holdUpdates = 1; // Until the first build.
  std::unique_ptr<NkDialogAuditor> m_defaultAuditor;
};
