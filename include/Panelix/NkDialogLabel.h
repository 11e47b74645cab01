#pragma once

#include "Panelix/NkDialogComponent.h"

/// Component that shows its `label`, over its whole area. Other than elsewhere `labelAlignment` is LEFT by default.
class PANELIX_API NkDialogLabel : public NkDialogComponent {
  NK_KIT_HEADER(NkDialogLabel);

public:
  NkDialogLabel();

  void updateLabelWidget();

  void buildWidget(HWND parent, NbVec2i32& size, NbVec2i32& position, int is2D) override;
  void destroyWidget() override;
  void changeEnable() override;
  void changeLabel() override;
  void changeLabelAlignment() override;
  void change3DLabel() override;
  void change3DLabelAlignment() override;
  NbVec2i32 getComponentInitSize() override;
  NbVec2i32 getLabelInitSize() override;
  void changeWidgetEnable(int on) override;

protected:
  ~NkDialogLabel() override;

  void getDefaultSize(NbVec2i32& size, NbVec2i32& min, NbVec2i32& max) override;
  void changeEdgeStyle() override;

private:
  void createLabelWidget();
  void create3DDialogLabel();
  void update3DLabel();

  NkSFNode labelSep;
  NkSFNode labelProp;

  HWND m_labelWidget = nullptr;
  NbVec2i32 m_textPixelSize{0, 0};
  arbora::Ref<NkText3> m_text3D;
  arbora::Ref<NkTranslation> m_textTranslation;
};
