#pragma once

#include <cstdint>

#include "Panelix/NkTopComponent.h"
#include "Panelix/Sizes.h"

class NkScale;

/// Base of what stands inside a dialog, the containers too: sizes, the frame around the component and, left of the
/// component proper, its label.
class PANELIX_API NkDialogComponent : public NkTopComponent {
  NK_KIT_HEADER(NkDialogComponent);
  NK_SKIN_HEADER(DialogComponent);

public:
  enum EdgeStyle { NONE = 0, SHADOW_IN = 1, SHADOW_OUT = 2 };

  // In pixels; 0 stands for not set. A layout writes the sizes that were negotiated here.
  NkSFInt32 width;
  NkSFInt32 height;
  NkSFBool fixedWidth;  ///< The width never changes: it is its own limit. FALSE.
  NkSFBool fixedHeight; ///< FALSE.
  NkSFInt32 minWidth;
  NkSFInt32 minHeight;
  NkSFInt32 maxWidth;
  NkSFInt32 maxHeight;
  NkSFBool labelVisibility; ///< There is a label area. TRUE.
  NkSFEnum edgeStyle;       ///< Of the frame. NONE.

  NkDialogComponent();

  /// The frame window; NULL without a 2D form.
  HWND getWidget() const { return m_widget; }

  // The last layout, in pixels
  const NbVec2i32& getLabelSize() const { return m_labelSize; }
  const NbVec2i32& getComponentSize() const { return m_componentSize; }
  /// Of the upper left corner within the parent.
  const NbVec2i32& getPosition() const { return m_position; }

  /// The area right of the label: within the frame window, from its upper left corner.
  void get2DComponentSize(NbVec2i32& size, NbVec2i32& position) const;
  /// The same in 3D: the position is the area's centre, from the centre of the component.
  void get3DComponentSize(NbVec2i32& size, NbVec2i32& position) const;

  void getBoundingBox(NkGetBoundingBoxAction* action) override;
  void rayPick(NkRayPickAction* action) override;

  void buildWidget(HWND parent, NbVec2i32& size, NbVec2i32& position, int is2D) override;
  void destroyWidget() override;
  void updateFromSensor(NkSensor* sensor) override;
  void resetSize() override;
  void changeEnable() override;

  /// The size that the component takes and its limits: the fields, and the class's defaults where these aren't set.
  void getSize(NbVec2i32& size, NbVec2i32& min, NbVec2i32& max) override;
  /// The window of the label, for classes that have one of its own; otherwise NULL.
  virtual HWND getLabelWidget();
  /// A message that concerns the controls came to the frame window: a notification code with the control's handle, or
  /// WM_HSCROLL, WM_NOTIFY or WM_DRAWITEM with its parameter.
  virtual void eventNotify(unsigned int message, std::uint64_t value);
  /// What the parent has decided for the two areas.
  virtual void setLabelSize(NbVec2i32& size);
  virtual void setComponentSize(NbVec2i32& size);
  /// Natural sizes of the two areas.
  virtual NbVec2i32 getComponentInitSize();
  virtual NbVec2i32 getLabelInitSize();
  virtual void setFocus();
  /// The parent's part of enabling: takes input only if both `on` and `enable` hold.
  virtual void changeWidgetEnable(int on);

protected:
  ~NkDialogComponent() override;

  /// Size and limits of a component for which nothing is set.
  virtual void getDefaultSize(NbVec2i32& size, NbVec2i32& min, NbVec2i32& max);
  virtual void changeLabelVisibility();
  virtual void changeEdgeStyle();
  /// Places the frame window.
  virtual void updateComponentWidget();
  virtual void changeWidth();
  virtual void changeHeight();
  virtual void changeMinMaxSize();
  virtual void change3DLabelVisibility();
  virtual void change3DEdgeStyle();

  /// What `fixedWidth` and `fixedHeight` make of the limits of a size.
  void holdFixed(panelix::SizeTriple& triple) const;
  /// The size fields as the file or the application set them, before any layout.
  void getDefaultState(NbVec2i32& size, NbVec2i32& min, NbVec2i32& max) const;

  /// What the edge and its room take of each axis, in pixels, whatever the edge style.
  static constexpr int kBorder = 6;
  /// Between the label and the component area.
  static constexpr int kGap = 2;
  /// What the border leaves of the component's size.
  NbVec2i32 sizeInBorder() const;
  /// Offset of the areas from the frame window's corner, in pixels: what the edge leaves free.
  int edgeInset() const;

  HWND m_widget = nullptr;
  NbVec2i32 m_componentSize{0, 0};       ///< Given by the parent.
  NbVec2i32 m_labelSize{0, 0};           ///< Given by the parent.
  NbVec2i32 m_componentInitSize{-1, -1}; ///< Cache of the classes' `getComponentInitSize`; x is -1 when not measured.
  NbVec2i32 m_labelInitSize{0, 0};
  NbVec2i32 m_position{0, 0}; ///< Upper left corner within the parent.
  float m_depth3D = -1;       ///< Cache for `apply3DTranslation`.
  arbora::Ref<NkTranslation> m_translation3D;
  arbora::Ref<NkTransform> m_transform3D;

  NkSFNode mainCptSeparator;
  NkSFNode edgeStyleSwitch;
  NkSFNode edgeStyleNone;
  NkSFNode edgeStyleShadowIn;
  NkSFNode edgeStyleShadowOut;

private:
  void setSize(panelix::SizeTriple triple);
  void setDefaultState();
  void createComponentWidget(HWND parent);
  void create3DDialogComponent();
  void update3DDialogComponent();
  bool isStack() const;

  panelix::SizeTriple m_defaultState;
  int m_firstBuild = 1;
  std::unique_ptr<NkFieldSensor> m_edgeStyleSensor, m_labelVisibilitySensor;
  panelix::SizeSensors m_sizeSensors;
  arbora::Ref<NkScale> m_scale3D;
  std::uint64_t m_measuredFrame = 0; // Id of the frame for which the transform stands.
};
