#pragma once

#include "Panelix/AuditedContainer.h"
#include "Panelix/NkTopComponent.h"
#include "Panelix/SizeDatabase.h"
#include "arbora/base/NbPlaneProjector.h"

class NkMenuBar;
class NkScale;
class NkTopLevelAuditor;

/// Root of a dialog, a window of its own: it holds components and at most one menu bar, and stacks them as rows.
class PANELIX_API NkTopLevelDialog : public panelix::AuditedContainer<NkPanelix, NkTopComponent> {
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

  /// Runs the auditors once over the present state of every component below.
  void applyAuditors();
  /// The first component below, in the order of the file, with that `auditorID`; NULL if there is none.
  NkPanelix* searchForAuditorId(NbString id);

  /// Builds the 2D form. With `adopt` the window becomes the dialog's frame; otherwise it doesn't count, as the dialog
  /// gets a window of its own. Where no window can be made, the 3D form is built.
  void buildDialog(HWND window, int adopt);
  /// Hides the window and gives up a reference: the end of a dialog that its caller owns.
  void close();
  /// What the close box does: hides the window; an adopted one ends the message loop instead. Gives 0.
  int destroyDialog();

  /// The window inside the frame, which holds the components.
  HWND getWidget() const { return m_topLevelWidget; }
  /// The framed window.
  HWND getBaseWidget() const { return m_baseWidget; }
  /// The control from which the Tab key goes on, and the window that the wheel scrolls.
  HWND getCurrentFocusedWidget() const { return m_currentFocusedWidget; }
  void setCurrentFocusedWidget(HWND window) { m_currentFocusedWidget = window; }
  HWND getCurrentScrolledWidget() const { return m_currentScrolledWidget; }
  void setCurrentScrolledWidget(HWND window) { m_currentScrolledWidget = window; }

  /// The sizes as they were at the first build.
  void getDefaultState(NbVec2i32& size, NbVec2i32& min, NbVec2i32& max) const;
  /// What the window tells about itself: these don't come back as changes of the window.
  void setPosition(const NbVec2i32& corner);
  void setSize(int w, int h, int minW, int minH, int maxW, int maxH);
  /// The size that the dialog takes and its limits.
  void getSize(NbVec2i32& size, NbVec2i32& min, NbVec2i32& max);
  /// Scale of the panel: its width, its height and 1, in scene units.
  NbVec3f getTopLevelSize() const;
  /// The menu bar, NULL without one.
  NkMenuBar* widgetHasMenuBar() const;

  /// Builds both forms anew, as far as they are there, after a change of the tree.
  void updateAfterSceneGraphChange();
  void updateDialogBuild(int is2D);

  void getBoundingBox(NkGetBoundingBoxAction* action) override;

  void buildWidget(HWND parent, NbVec2i32& size, NbVec2i32& position, int is2D) override;
  void updateFromSensor(NkSensor* sensor) override;
  void applyAuditor(NkPanelix* source) override;
  void resetSize() override;
  void changeEnable() override;
  void changeLabel() override;
  void show3D(int on) override;
  void change3DPosition() override;
  void change3DLabel() override;

  /// Shows and hides the window, unless it is adopted.
  virtual void show();
  virtual void hide();

protected:
  ~NkTopLevelDialog() override;

  void afterChange(Change change, NkTopComponent* child, int index) override;
  virtual void changeWidth();
  virtual void changeHeight();

private:
  struct Procedures;
  friend struct Procedures;

  // Sizes
  void fixSizeWithBorder(NbVec2i32& size, int factor) const;
  void getDefaultSize(NbVec2i32& size, NbVec2i32& min, NbVec2i32& max);
  void computeNewChildrenHeight(const NbVec2i32& target);
  void setChildrenLabelSize();
  void setChildrenComponentSize();
  void setDefaultState();
  void changeMinMaxSize();
  /// Calls `use` with each child but the menu bars.
  template <class Use>
  void forEachComponent(Use&& use);

  // 2D form
  void createBaseWidget(HWND parent);
  void createTopLevelWidget();
  void updateBaseWidget();
  void updateTopLevelWidget();
  void updateChildren();
  /// Calls `build(child, size, corner, isMenuBar)` with the place of each child, which it may take otherwise.
  template <class Build>
  void placeChildren(Build&& build);
  void setScrollProperties();
  void updateTopLevelWidgetScrollPosition();
  void changePosition();
  void changeResizable();
  void changeModalFrame();
  void focusNext(bool backwards);

  // 3D form
  void create3DTopLevelDialog();
  void update3DTopLevelDialog();
  /// What stands behind the frame stands at its front, unscaled.
  void undoFrame();
  void update3DLabel();
  void update3DChildren();
  void update3DChildrenPosition();
  NbVec3f childrenTranslation();
  void show3DChildren(int on);
  void updateMinimizedState();
  void minimize3DDialog();
  void restore3DDialog();
  void changeIndependentMinimizedPosition();
  void connectPositions(bool connect);
  static void startCB3D(void* data, NkDragger* dragger);
  static void motionCB3D(void* data, NkDragger* dragger);
  static void finishCB3D(void* data, NkDragger* dragger);
  void draggerStartCallback3D();
  void draggerMotionCallback3D();
  void draggerFinishCallback3D();

  int m_adoptParent = 0;
  HWND m_baseWidget = nullptr;
  HWND m_topLevelWidget = nullptr;
  HWND m_currentFocusedWidget = nullptr;
  HWND m_currentScrolledWidget = nullptr;
  int m_holdUpdates = 1; // Until the first build.
  panelix::SizeDatabase m_sizes;
  int m_hScrollOn = 0; // The bar shows.
  int m_vScrollOn = 0;
  // In pixels, as the system draws.
  int m_frameWidth;
  int m_frameHeight;
  int m_menuBarHeight;
  int m_scrollBarSize;
  int m_captionHeight = 0; // 0 until it was measured.
  int m_firstBuild = 1;
  panelix::SizeTriple m_defaultState;

  std::unique_ptr<NkFieldSensor> m_marginSensor, m_modalFrameSensor, m_rowSpacingSensor, m_resizableSensor,
      m_positionSensor, m_position3DSensor, m_minimizedSensor, m_independentMinimizedPositionSensor,
      m_minimized3DPositionSensor;
  panelix::SizeSensors m_sizeSensors;

  NbPlaneProjector m_planeProjector;
  NbVec3f m_dragWorldPoint;
  NbVec3f m_dragStartPosition;
  float m_depth3D = kDepthNotMeasured;
  int m_firstMinimize = 1; // The strip first opens where the panel stands.
  arbora::Ref<NkScale> m_frameScale;
  arbora::Ref<NkText3> m_labelText;
  arbora::Ref<NkTranslation> m_panelTranslation, m_minTranslation, m_labelTranslation;
  arbora::Ref<NkTransform> m_undoTransform;
  std::uint64_t m_measuredFrame = 0; // Id of the frame for which the transform stands.

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
