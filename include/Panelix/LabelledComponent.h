#pragma once

#include "Panelix/NkDialogComponent.h"
#include "Panelix/PlacedText.h"

namespace panelix {

/// A component that shows its `label` on the left of its control: in a window of its own, and as a text in 3D. The
/// class registers the label's three parts in its catalog and says when each step of the label's forms is due.
class PANELIX_API LabelledComponent : public NkDialogComponent {
public:
  /// Places the label's window, and shows or hides it.
  void updateLabelWidget();

  void changeLabel() override;
  void changeLabelAlignment() override;
  void change3DLabel() override;
  void change3DLabelAlignment() override;
  HWND getLabelWidget() override;

protected:
  LabelledComponent();
  ~LabelledComponent() override;

  /// Size and limits of label and control, before the control's own demands.
  void getLabelledSize(NbVec2i32& size, NbVec2i32& min, NbVec2i32& max);

  // 2D form
  void createLabelWidget();
  /// Makes a control in the frame window, without a place yet.
  HWND createControl(const wchar_t* windowClass, const NbString& text, DWORD style);
  /// Places the control in the area right of the label.
  void updateControl(HWND control);
  void showLabelWidget();

  // 3D form
  void create3DLabel();
  void update3DLabel();
  void show3DLabel();

  NkSFNode labelSep;
  NkSFNode labelSwitch;
  NkSFNode labelProp;

  HWND m_labelWidget = nullptr;
  PlacedText m_label3D;
};

} // namespace panelix
