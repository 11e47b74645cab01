#include "Panelix/NkDialogCheckBox.h"

#include <algorithm>

#include "Panelix/NkDialogCheckBoxAuditor.h"
#include "arbora/scene/NkScale.h"
#include "arbora/scene/NkSeparator.h"
#include "arbora/scene/NkSwitch.h"
#include "arbora/scene/NkText3.h"
#include "arbora/scene/NkTransform.h"
#include "arbora/scene/NkTranslation.h"
#include "src/dialog/support/Controls.h"
#include "src/dialog/support/SensorPause.h"

using panelix::writeChange;

NK_KIT_SOURCE(NkDialogCheckBox, NkDialogComponent, "DialogCheckBox");

NkDialogCheckBox::NkDialogCheckBox() {
  NK_KIT_CONSTRUCTOR(NkDialogCheckBox);
  NK_NODE_ADD_FIELD(state, (FALSE));
  NK_NODE_ADD_FIELD(onString, (""));
  NK_NODE_ADD_FIELD(offString, (""));
  NK_KIT_ADD_CATALOG_ENTRY(labelSep, NkSeparator, true, "geomSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(labelSwitch, NkSwitch, true, "labelSep", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(labelProp, NkGroup, true, "labelSwitch", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(frameSep, NkSeparator, true, "geomSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(frame, NkGroup, true, "frameSep", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(stateSep, NkSeparator, true, "geomSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(stateSwitch, NkSwitch, true, "stateSep", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(stateOff, NkGroup, true, "stateSwitch", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(stateOn, NkGroup, true, "stateSwitch", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(onOffStringSep, NkSeparator, true, "geomSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(onOffStringProp, NkGroup, true, "onOffStringSep", "", true);
  NK_KIT_INIT_INSTANCE();
}

NkDialogCheckBox::~NkDialogCheckBox() { panelix::destroyControl(m_checkBoxWidget); }

const NbString& NkDialogCheckBox::caption() const {
  const NbString& off = offString.getValue();
  return state.getValue() || off.isEmpty() ? onString.getValue() : off;
}

// Sizes

NbVec2i32 NkDialogCheckBox::getComponentInitSize() {
  // For the native box and what is left free around it and the caption.
  const NbVec2i32 room(26, 8);
  if (m_componentInitSize[0] == -1) {
    m_onStringSize = getLabelPixelSize(onString.getValue(), nullptr) + room;
    m_offStringSize = getLabelPixelSize(offString.getValue(), nullptr) + room;
    for (int axis = 0; axis < 2; ++axis)
      m_componentInitSize[axis] = std::max(m_onStringSize[axis], m_offStringSize[axis]);
    if (!labelVisibility.getValue()) m_componentInitSize[0] -= m_labelSize[0];
  }
  return m_componentInitSize;
}

void NkDialogCheckBox::getDefaultSize(NbVec2i32& size, NbVec2i32& min, NbVec2i32& max) {
  getLabelledSize(size, min, max);
  size[1] = std::max({size[1], m_onStringSize[1], m_offStringSize[1]});
}

// Building

void NkDialogCheckBox::buildWidget(HWND parent, NbVec2i32& size, NbVec2i32& position, int is2D) {
  const arbora::KeepAlive alive(this);
  NkDialogComponent::buildWidget(parent, size, position, is2D);
  if (is2D) {
    if (!existWidget(m_labelWidget)) createLabelWidget();
    updateLabelWidget();
    if (!existWidget(m_checkBoxWidget)) createCheckBoxWidget();
    updateCheckBoxWidget();
  } else {
    if (!m_frameScale) create3DDialogCheckBox();
    update3DCheckBox();
    update3DLabel();
  }
  if (m_stateSensor) return;
  attachSensor(m_stateSensor, state);
  attachSensor(m_onStringSensor, onString);
  attachSensor(m_offStringSensor, offString);
}

void NkDialogCheckBox::updateFromSensor(NkSensor* sensor) {
  const arbora::KeepAlive alive(this);
  if (sensor == m_stateSensor.get()) {
    if (m_built2D) changeState();
    if (isLive3D()) change3DState();
  } else if (sensor != m_onStringSensor.get() && sensor != m_offStringSensor.get()) {
    NkDialogComponent::updateFromSensor(sensor);
    return;
  }
  if (m_built2D) changeOnOffString();
  if (isLive3D()) change3DOnOffString();
}

// 2D form

namespace {

WNDPROC s_savedCheckBoxProc = nullptr;

LRESULT CALLBACK checkBoxProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (auto* box = panelix::componentOf<NkDialogCheckBox>(window)) {
    const arbora::KeepAlive alive(box);
    panelix::forwardFocusKeys(*box, message, wParam, lParam);
  }
  return CallWindowProcA(s_savedCheckBoxProc, window, message, wParam, lParam);
}

} // namespace

void NkDialogCheckBox::createCheckBoxWidget() {
  m_checkBoxWidget = createControl(L"BUTTON", convertToCString(caption(), this),
                                   WS_CHILD | WS_CLIPCHILDREN | WS_TABSTOP | BS_MULTILINE | BS_AUTOCHECKBOX);
  panelix::subclassControl(m_checkBoxWidget, this, checkBoxProcedure, s_savedCheckBoxProc);
  setWidgetFont(m_checkBoxWidget);
  SendMessageA(m_checkBoxWidget, BM_SETCHECK, state.getValue() ? BST_CHECKED : BST_UNCHECKED, 0);
  ShowWindow(m_checkBoxWidget, SW_SHOW);
  EnableWindow(m_checkBoxWidget, enable.getValue());
}

void NkDialogCheckBox::updateCheckBoxWidget() { updateControl(m_checkBoxWidget); }

void NkDialogCheckBox::destroyWidget() {
  if (m_built2D) {
    panelix::destroyControl(m_checkBoxWidget);
    panelix::destroyControl(m_labelWidget);
  }
  NkDialogComponent::destroyWidget();
}

void NkDialogCheckBox::changeEnable() {
  EnableWindow(m_labelWidget, enable.getValue());
  EnableWindow(m_checkBoxWidget, enable.getValue());
  NkDialogComponent::changeEnable();
}

void NkDialogCheckBox::changeWidgetEnable(int on) {
  EnableWindow(m_labelWidget, on && enable.getValue());
  EnableWindow(m_checkBoxWidget, on && enable.getValue());
  NkDialogComponent::changeWidgetEnable(on);
}

void NkDialogCheckBox::changeLabelVisibility() {
  showLabelWidget();
  updateCheckBoxWidget();
}

void NkDialogCheckBox::changeEdgeStyle() {
  updateLabelWidget();
  updateCheckBoxWidget();
  NkDialogComponent::changeEdgeStyle();
}

void NkDialogCheckBox::changeState() {
  SendMessageA(m_checkBoxWidget, BM_SETCHECK, state.getValue() ? BST_CHECKED : BST_UNCHECKED, 0);
  if (m_built2D) changeOnOffString();
  if (isLive3D()) change3DOnOffString();
}

void NkDialogCheckBox::changeOnOffString() { setWindowTextOf(m_checkBoxWidget, convertToCString(caption(), this)); }

// 3D form

void NkDialogCheckBox::create3DDialogCheckBox() {
  constexpr float kMarkerSize = 14;
  useSkin(s_skin);
  setPartAsDefault("frame", "DialogCheckBoxFrame", true);
  setPartAsDefault("labelProp", "DialogTextProperties", true);
  setPartAsDefault("stateOff", "DialogCheckBoxStateOff", true);
  setPartAsDefault("stateOn", "DialogCheckBoxStateOn", true);
  setPartAsDefault("onOffStringProp", "DialogTextProperties", true);
  NkGroup* geometry = groupPart("geomSwitch");
  m_frameScale = arbora::Ref<NkScale>(new NkScale);
  groupPart("frameSep")->insertChild(m_frameScale.get(), 0);
  m_frameTranslation = arbora::Ref<NkTranslation>(new NkTranslation);
  geometry->insertChild(m_frameTranslation.get(), geometry->findChild(frameSep.getValue()));
  NkGroup* states = groupPart("stateSep");
  m_stateTransform = arbora::Ref<NkTransform>(new NkTransform);
  geometry->insertChild(m_stateTransform.get(), geometry->findChild(states));
  auto* markerScale = new NkScale;
  markerScale->scaleFactor = NbVec3f(kMarkerSize, kMarkerSize, 1);
  states->insertChild(markerScale, 0);
  m_stateTranslation = arbora::Ref<NkTranslation>(new NkTranslation);
  states->insertChild(m_stateTranslation.get(), 0);
  create3DLabel();
  m_onOffStringText3D.addTo(groupPart("onOffStringSep"));
  change3DOnOffString();
  setSwitchValue(stateSwitch.getValue(), state.getValue() ? 1 : 0);
  show3DLabel();
  addFinishCallback(finishCB3D);
  setBuilt3D(1);
}

void NkDialogCheckBox::update3DCheckBox() {
  constexpr float kMarkerX = 10;
  constexpr float kCaptionX = 20;
  NbVec2i32 size;
  NbVec2i32 corner;
  get2DComponentSize(size, corner);
  const auto w = static_cast<float>(size[0]);
  // The label stands left of the frame, so that the frame's right side is that of the component.
  const float x = static_cast<float>(sizeInBorder()[0]) / 2 - w / 2;
  writeChange(m_frameTranslation->translation, NbVec3f(x, 0, 0));
  writeChange(m_frameScale->scaleFactor, NbVec3f(w, static_cast<float>(size[1]), 1));
  undoTransformMatrix(frameSep.getValue(), m_stateTransform.get(), m_measuredFrame);
  writeChange(m_stateTranslation->translation, NbVec3f(-w / 2 + kMarkerX, 0, 0));
  measure3DText(m_onOffStringBBox, onOffStringProp.getValue(), m_onOffStringText3D.text.get());
  writeChange(m_onOffStringText3D.translation->translation,
              NbVec3f(-w / 2 + kCaptionX, -m_onOffStringBBox.getCenter()[1], 0));
}

void NkDialogCheckBox::change3DOnOffString() {
  if (!m_onOffStringText3D.text) return;
  setStringToText3(m_onOffStringText3D.text.get(), convertToCString(caption(), this));
  m_onOffStringBBox = kNotMeasured;
}

void NkDialogCheckBox::change3DState() {
  setSwitchValue(stateSwitch.getValue(), state.getValue() ? 1 : 0);
  change3DOnOffString();
}

void NkDialogCheckBox::change3DLabelVisibility() {
  if (!m_onOffStringText3D.text) return;
  show3DLabel();
  update3DCheckBox();
}

// Events

void NkDialogCheckBox::eventNotify(unsigned int message, std::uint64_t) {
  if (message != BN_CLICKED) return;
  const arbora::KeepAlive alive(this);
  const panelix::SensorPause quiet(m_stateSensor, state);
  state = SendMessageA(m_checkBoxWidget, BM_GETCHECK, 0, 0) != BST_UNCHECKED;
  setWindowTextOf(m_checkBoxWidget,
                  convertToCString(state.getValue() ? onString.getValue() : offString.getValue(), this));
  SetFocus(m_checkBoxWidget);
  panelix::setFocusedControl(*this, m_checkBoxWidget);
  if (m_built2D) changeState();
  if (isLive3D()) change3DState();
  applyDlgCptAuditor();
}

void NkDialogCheckBox::finishCB3D(void*, NkDragger* dragger) {
  static_cast<NkDialogCheckBox*>(dragger)->draggerFinishCallback3D();
}

void NkDialogCheckBox::draggerFinishCallback3D() {
  if (!isPicked(frameSep) && !isPicked(stateSep) && !isPicked(onOffStringSep)) return;
  const arbora::KeepAlive alive(this);
  set3DCurrentActive(this);
  set3DInactive();
  state = !state.getValue();
  if (m_built2D) changeOnOffString();
  if (isLive3D()) change3DOnOffString();
  applyDlgCptAuditor();
}

void NkDialogCheckBox::addAuditor(NkDialogCheckBoxAuditor* auditor) { NkPanelix::addAuditor(auditor); }

void NkDialogCheckBox::removeAuditor(NkDialogCheckBoxAuditor* auditor) { NkPanelix::removeAuditor(auditor); }

void NkDialogCheckBox::applyDlgCptAuditor() { tellAuditors(&NkDialogCheckBoxAuditor::dialogCheckBox, this); }

// Skin

const char* NkDialogCheckBox::DialogCheckBox = "DEF DialogCheckBoxFrame Group {"
                                               "  Material { diffuseColor 0.7 0.7 0.7 }"
                                               "  Translation { translation 0 0 0.5 }"
                                               "  Cube { width 1 height 1 depth 1}"
                                               "  Translation { translation 0 0 0.5 }"
                                               "}"
                                               "DEF DialogCheckBoxStateOff Group {"
                                               "  Material { diffuseColor 1 1 1 }"
                                               "  Translation { translation 0 0 0.5 }"
                                               "  Cube { width 1 height 1 depth 1}"
                                               "}"
                                               "DEF DialogCheckBoxStateOn Group { "
                                               "  Material { diffuseColor 0 0 0 }"
                                               "  Translation { translation 0 0 0.5 }"
                                               "  Cube { width 1 height 1 depth 1}"
                                               "}";

NK_SKIN_SOURCE(NkDialogCheckBox, DialogCheckBox, "DialogCheckBoxFrame", "DialogCheckBoxStateOff",
               "DialogCheckBoxStateOn");
