#pragma once

#include "Panelix/LabelledComponent.h"

class NkDialogPushButtonAuditor;

/// Button with a caption. It has no value: the application hears of each press.
class PANELIX_API NkDialogPushButton : public panelix::LabelledComponent {
  NK_KIT_HEADER(NkDialogPushButton);
  NK_SKIN_HEADER(DialogPushButton);

public:
  NkSFString buttonLabel; ///< Caption. Empty.

  NkDialogPushButton();

  void addAuditor(NkDialogPushButtonAuditor* auditor);
  void removeAuditor(NkDialogPushButtonAuditor* auditor);
  /// A user's action: tells the auditors or, if there are none, the parent.
  void applyDlgCptAuditor();

  /// The native button goes down, and with it the one in the scene.
  void activateButton();
  void updateButtonWidget();
  /// Exchanges the geometry of a state. Each goes into the place of the other state: what `set3DPressedGeometry` is
  /// given shows while the button is released. Nothing happens before the 3D form is built.
  void set3DPressedGeometry(NkNode* geometry);
  void set3DReleasedGeometry(NkNode* geometry);

  void buildWidget(HWND parent, NbVec2i32& size, NbVec2i32& position, int is2D) override;
  void destroyWidget() override;
  void updateFromSensor(NkSensor* sensor) override;
  void changeEnable() override;
  void eventNotify(unsigned int message, std::uint64_t value) override;
  NbVec2i32 getComponentInitSize() override;
  void changeWidgetEnable(int on) override;

protected:
  ~NkDialogPushButton() override;

  void getDefaultSize(NbVec2i32& size, NbVec2i32& min, NbVec2i32& max) override;
  void changeLabelVisibility() override;
  void changeEdgeStyle() override;
  void change3DLabelVisibility() override;
  void changeButtonLabel();
  /// Shows the native button pressed, or released with 0.
  void changeButtonState(int state);

private:
  void createButtonWidget();
  void create3DDialogPushButton();
  void update3DButton();
  void change3DButtonLabel();
  void change3DButtonState(int state);
  void set3DGeometry(int place, NkNode* geometry);
  static void startCB3D(void* data, NkDragger* dragger);
  static void finishCB3D(void* data, NkDragger* dragger);
  void draggerStartCallback3D();
  void draggerFinishCallback3D();
  bool isButtonPicked() const;

  HWND m_buttonWidget = nullptr;
  NbVec2i32 m_buttonTextSize{0, 0}; // With the room around it.
  std::unique_ptr<NkFieldSensor> m_buttonLabelSensor;
  panelix::PlacedText m_buttonText3D;
  NbBox3f m_buttonTextBBox = kNotMeasured;
  arbora::Ref<NkTranslation> m_frameTranslation;
  arbora::Ref<NkScale> m_frameScale;
  arbora::Ref<NkTransform> m_buttonTextTransform; // Onto the face of the button.
  std::uint64_t m_measuredButton = 0;             // Id of the button for which the transform stands.

  NkSFNode frameSep;
  NkSFNode frameSwitch;
  NkSFNode released;
  NkSFNode pressed;
  NkSFNode buttonLabelSep;
  NkSFNode buttonLabelProp;
};
