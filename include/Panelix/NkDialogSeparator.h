#pragma once

#include "Panelix/NkDialogComponent.h"

/// Line between components. It lies in a row and stands in a column.
class PANELIX_API NkDialogSeparator : public NkDialogComponent {
  NK_KIT_HEADER(NkDialogSeparator);
  NK_SKIN_HEADER(DialogSeparator);

public:
  NkDialogSeparator();

  /// Lies, or stands with 0; told by the container that measures it.
  void setOrientationHorz(int isHorizontal);
  void updateSeparatorWidget();

  void buildWidget(HWND parent, NbVec2i32& size, NbVec2i32& position, int is2D) override;
  void destroyWidget() override;

protected:
  ~NkDialogSeparator() override;

  void getDefaultSize(NbVec2i32& size, NbVec2i32& min, NbVec2i32& max) override;
  void changeEdgeStyle() override;

private:
  void createSeparatorWidget();
  void create3DSeparator();
  void update3DSeparator();
  void showOrientation();

  NkSFNode frameSep;
  NkSFNode frameSwitch;
  NkSFNode vFrame;
  NkSFNode hFrame;

  HWND m_separatorWidget = nullptr;
  int m_orientationHorz = 1;
  arbora::Ref<NkScale> m_separatorScale;
};
