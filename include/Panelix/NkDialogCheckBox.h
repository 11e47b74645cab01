#pragma once

#include "Panelix/LabelledComponent.h"

class NkDialogCheckBoxAuditor;

/// Component with two states and a caption that tells the state.
class PANELIX_API NkDialogCheckBox : public panelix::LabelledComponent {
  NK_KIT_HEADER(NkDialogCheckBox);
  NK_SKIN_HEADER(DialogCheckBox);

public:
  NkSFBool state;       ///< Checked. FALSE.
  NkSFString onString;  ///< Caption when checked, and otherwise too if there is no `offString`. Empty.
  NkSFString offString; ///< Caption when not checked. Empty.

  NkDialogCheckBox();

  void addAuditor(NkDialogCheckBoxAuditor* auditor);
  void removeAuditor(NkDialogCheckBoxAuditor* auditor);
  /// A user's action: tells the auditors or, if there are none, the parent.
  void applyDlgCptAuditor();

  void updateCheckBoxWidget();
  /// Show the state, and the caption for it, in a form.
  void changeState();
  void changeOnOffString();
  void change3DOnOffString();
  static void finishCB3D(void* data, NkDragger* dragger);

  void buildWidget(HWND parent, NbVec2i32& size, NbVec2i32& position, int is2D) override;
  void destroyWidget() override;
  void updateFromSensor(NkSensor* sensor) override;
  void changeEnable() override;
  void eventNotify(unsigned int message, std::uint64_t value) override;
  NbVec2i32 getComponentInitSize() override;
  void changeWidgetEnable(int on) override;

protected:
  ~NkDialogCheckBox() override;

  void getDefaultSize(NbVec2i32& size, NbVec2i32& min, NbVec2i32& max) override;
  void changeLabelVisibility() override;
  void changeEdgeStyle() override;
  void change3DLabelVisibility() override;
  virtual void change3DState();

  std::unique_ptr<NkFieldSensor> m_stateSensor;

private:
  virtual void draggerFinishCallback3D();
  const NbString& caption() const;
  void createCheckBoxWidget();
  void create3DDialogCheckBox();
  void update3DCheckBox();

  HWND m_checkBoxWidget = nullptr;
  NbVec2i32 m_onStringSize{0, 0}; // With the room around it and for the box.
  NbVec2i32 m_offStringSize{0, 0};
  std::unique_ptr<NkFieldSensor> m_onStringSensor, m_offStringSensor;
  panelix::PlacedText m_onOffStringText3D;
  NbBox3f m_onOffStringBBox = kNotMeasured;
  arbora::Ref<NkTranslation> m_frameTranslation, m_stateTranslation;
  arbora::Ref<NkScale> m_frameScale;
  arbora::Ref<NkTransform> m_stateTransform; // Onto the front of the frame.
  std::uint64_t m_measuredFrame = 0;         // Id of the frame for which the transform stands.

  NkSFNode frameSep;
  NkSFNode frame;
  NkSFNode stateSep;
  NkSFNode stateSwitch;
  NkSFNode stateOff;
  NkSFNode stateOn;
  NkSFNode onOffStringSep;
  NkSFNode onOffStringProp;
};
