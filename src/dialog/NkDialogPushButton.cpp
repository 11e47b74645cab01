#include "Panelix/NkDialogPushButton.h"

#include <algorithm>

#include "Panelix/NkDialogPushButtonAuditor.h"
#include "arbora/scene/NkScale.h"
#include "arbora/scene/NkSeparator.h"
#include "arbora/scene/NkSwitch.h"
#include "arbora/scene/NkText3.h"
#include "arbora/scene/NkTransform.h"
#include "arbora/scene/NkTranslation.h"
#include "src/dialog/support/Controls.h"
#include "src/dialog/support/SensorPause.h"

using panelix::writeChange;

NK_KIT_SOURCE(NkDialogPushButton, NkDialogComponent, "DialogPushButton");

NkDialogPushButton::NkDialogPushButton() {
  NK_KIT_CONSTRUCTOR(NkDialogPushButton);
  NK_NODE_ADD_FIELD(buttonLabel, (""));
  NK_KIT_ADD_CATALOG_ENTRY(labelSep, NkSeparator, true, "geomSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(labelSwitch, NkSwitch, true, "labelSep", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(labelProp, NkGroup, true, "labelSwitch", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(frameSep, NkSeparator, true, "geomSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(frameSwitch, NkSwitch, true, "frameSep", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(released, NkGroup, true, "frameSwitch", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(pressed, NkGroup, true, "frameSwitch", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(buttonLabelSep, NkSeparator, true, "geomSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(buttonLabelProp, NkGroup, true, "buttonLabelSep", "", true);
  NK_KIT_INIT_INSTANCE();
}

NkDialogPushButton::~NkDialogPushButton() { panelix::destroyControl(m_buttonWidget); }

// Sizes

NbVec2i32 NkDialogPushButton::getComponentInitSize() {
  constexpr int kRoom = 12;
  if (m_componentInitSize[0] == -1) {
    m_buttonTextSize = getLabelPixelSize(buttonLabel.getValue(), this) + NbVec2i32(kRoom, kRoom);
    m_componentInitSize = m_buttonTextSize;
    if (!labelVisibility.getValue()) m_componentInitSize[0] -= m_labelSize[0];
  }
  return m_componentInitSize;
}

void NkDialogPushButton::getDefaultSize(NbVec2i32& size, NbVec2i32& min, NbVec2i32& max) {
  getLabelledSize(size, min, max);
  size[1] = std::max(size[1], m_buttonTextSize[1]);
}

// Building

void NkDialogPushButton::buildWidget(HWND parent, NbVec2i32& size, NbVec2i32& position, int is2D) {
  const arbora::KeepAlive alive(this);
  NkDialogComponent::buildWidget(parent, size, position, is2D);
  if (is2D) {
    if (!existWidget(m_labelWidget)) createLabelWidget();
    updateLabelWidget();
    if (!existWidget(m_buttonWidget)) createButtonWidget();
    updateButtonWidget();
  } else {
    if (!m_frameScale) create3DDialogPushButton();
    update3DButton();
    update3DLabel();
  }
  if (!m_buttonLabelSensor) attachSensor(m_buttonLabelSensor, buttonLabel);
}

void NkDialogPushButton::updateFromSensor(NkSensor* sensor) {
  const arbora::KeepAlive alive(this);
  if (sensor == m_buttonLabelSensor.get() && m_built2D) changeButtonLabel();
  // A button that stands in a scene shows no other change.
  if (isLive3D())
    change3DButtonLabel();
  else
    NkDialogComponent::updateFromSensor(sensor);
}

// 2D form

namespace {

WNDPROC s_savedButtonProc = nullptr;

LRESULT CALLBACK buttonProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (auto* button = panelix::componentOf<NkDialogPushButton>(window)) {
    const arbora::KeepAlive alive(button);
    panelix::forwardFocusKeys(*button, message, wParam, lParam);
    if (message == WM_LBUTTONDOWN) button->activateButton();
  }
  return CallWindowProcA(s_savedButtonProc, window, message, wParam, lParam);
}

} // namespace

void NkDialogPushButton::createButtonWidget() {
  m_buttonWidget = createControl(L"BUTTON", convertToCString(buttonLabel.getValue()),
                                 WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_TABSTOP | BS_MULTILINE);
  panelix::subclassControl(m_buttonWidget, this, buttonProcedure, s_savedButtonProc);
  setWidgetFont(m_buttonWidget);
  EnableWindow(m_buttonWidget, enable.getValue());
}

void NkDialogPushButton::updateButtonWidget() { updateControl(m_buttonWidget); }

void NkDialogPushButton::destroyWidget() {
  if (m_built2D) {
    panelix::destroyControl(m_buttonWidget);
    panelix::destroyControl(m_labelWidget);
  }
  NkDialogComponent::destroyWidget();
}

void NkDialogPushButton::changeEnable() {
  NkDialogComponent::changeEnable();
  EnableWindow(m_labelWidget, enable.getValue());
  EnableWindow(m_buttonWidget, enable.getValue());
}

void NkDialogPushButton::changeWidgetEnable(int on) {
  EnableWindow(m_labelWidget, on && enable.getValue());
  EnableWindow(m_buttonWidget, on && enable.getValue());
  NkDialogComponent::changeWidgetEnable(on);
}

void NkDialogPushButton::changeLabelVisibility() {
  showLabelWidget();
  updateButtonWidget();
}

void NkDialogPushButton::changeEdgeStyle() {
  NkDialogComponent::changeEdgeStyle();
  updateLabelWidget();
  updateButtonWidget();
}

void NkDialogPushButton::changeButtonLabel() {
  if (m_buttonWidget) setWindowTextOf(m_buttonWidget, convertToCString(buttonLabel.getValue(), this));
}

void NkDialogPushButton::changeButtonState(int state) {
  SendMessageA(m_buttonWidget, BM_SETSTATE, static_cast<WPARAM>(state), 0);
}

// 3D form

namespace {

constexpr int kReleased = 0;
constexpr int kPressed = 1;

} // namespace

void NkDialogPushButton::create3DDialogPushButton() {
  useSkin(s_skin);
  setPartAsDefault("labelProp", "DialogTextProperties", true);
  setPartAsDefault("released", "DialogPushButtonReleased", true);
  setPartAsDefault("pressed", "DialogPushButtonPressed", true);
  setPartAsDefault("buttonLabelProp", "DialogTextProperties", true);
  NkGroup* geometry = groupPart("geomSwitch");
  m_frameScale = arbora::Ref<NkScale>(new NkScale);
  groupPart("frameSep")->insertChild(m_frameScale.get(), 0);
  m_frameTranslation = arbora::Ref<NkTranslation>(new NkTranslation);
  geometry->insertChild(m_frameTranslation.get(), geometry->findChild(frameSep.getValue()));
  NkGroup* caption = groupPart("buttonLabelSep");
  m_buttonTextTransform = arbora::Ref<NkTransform>(new NkTransform);
  geometry->insertChild(m_buttonTextTransform.get(), geometry->findChild(caption));
  create3DLabel();
  m_buttonText3D.addTo(caption);
  change3DButtonLabel();
  setSwitchValue(frameSwitch.getValue(), kReleased);
  show3DLabel();
  addStartCallback(startCB3D);
  addFinishCallback(finishCB3D);
  setBuilt3D(1);
}

void NkDialogPushButton::update3DButton() {
  NbVec2i32 size;
  NbVec2i32 middle;
  get3DComponentSize(size, middle);
  writeChange(m_frameTranslation->translation,
              NbVec3f(static_cast<float>(middle[0]), static_cast<float>(middle[1]), 0));
  writeChange(m_frameScale->scaleFactor, NbVec3f(static_cast<float>(size[0]), static_cast<float>(size[1]), 1));
  measure3DText(m_buttonTextBBox, buttonLabelProp.getValue(), m_buttonText3D.text.get());
  // A line begins at x 0; what stands out on the left doesn't count.
  writeChange(m_buttonText3D.translation->translation,
              NbVec3f(-m_buttonTextBBox.getSize()[0] / 2, -m_buttonTextBBox.getCenter()[1], 0));
  undoTransformMatrix(frameSep.getValue(), m_buttonTextTransform.get(), m_measuredButton);
}

void NkDialogPushButton::change3DButtonLabel() {
  if (!m_buttonText3D.text) return;
  setStringToText3(m_buttonText3D.text.get(), convertToCString(buttonLabel.getValue(), this));
  m_buttonTextBBox = kNotMeasured;
}

void NkDialogPushButton::change3DLabelVisibility() {
  if (!m_buttonText3D.text) return;
  show3DLabel();
  update3DButton();
}

void NkDialogPushButton::change3DButtonState(int state) {
  setSwitchValue(frameSwitch.getValue(), state ? kPressed : kReleased);
  undoTransformMatrix(frameSep.getValue(), m_buttonTextTransform.get(), m_measuredButton);
}

void NkDialogPushButton::set3DGeometry(int place, NkNode* geometry) {
  if (auto* places = static_cast<NkGroup*>(frameSwitch.getValue())) places->replaceChild(place, geometry);
}

void NkDialogPushButton::set3DPressedGeometry(NkNode* geometry) { set3DGeometry(0, geometry); }

void NkDialogPushButton::set3DReleasedGeometry(NkNode* geometry) { set3DGeometry(1, geometry); }

// Events

void NkDialogPushButton::activateButton() {
  const LRESULT state = SendMessageA(m_buttonWidget, BM_GETSTATE, 0, 0);
  if ((state == 0 || state == BST_FOCUS) && isBuilt3D()) change3DButtonState(1);
}

void NkDialogPushButton::eventNotify(unsigned int message, std::uint64_t) {
  if (message != BN_CLICKED) return;
  const arbora::KeepAlive alive(this);
  if (isBuilt3D()) change3DButtonState(0);
  panelix::setFocusedControl(*this, m_buttonWidget);
  applyDlgCptAuditor();
}

void NkDialogPushButton::startCB3D(void*, NkDragger* dragger) {
  static_cast<NkDialogPushButton*>(dragger)->draggerStartCallback3D();
}

void NkDialogPushButton::finishCB3D(void*, NkDragger* dragger) {
  static_cast<NkDialogPushButton*>(dragger)->draggerFinishCallback3D();
}

bool NkDialogPushButton::isButtonPicked() const { return isPicked(frameSep) || isPicked(buttonLabelSep); }

void NkDialogPushButton::draggerStartCallback3D() {
  if (!isButtonPicked()) return;
  set3DCurrentActive(this);
  change3DButtonState(1);
  if (m_built2D) changeButtonState(1);
}

void NkDialogPushButton::draggerFinishCallback3D() {
  if (!isButtonPicked()) return;
  const arbora::KeepAlive alive(this);
  set3DInactive();
  change3DButtonState(0);
  if (m_built2D) changeButtonState(0);
  applyDlgCptAuditor();
}

void NkDialogPushButton::addAuditor(NkDialogPushButtonAuditor* auditor) { NkPanelix::addAuditor(auditor); }

void NkDialogPushButton::removeAuditor(NkDialogPushButtonAuditor* auditor) { NkPanelix::removeAuditor(auditor); }

void NkDialogPushButton::applyDlgCptAuditor() { tellAuditors(&NkDialogPushButtonAuditor::dialogPushButton, this); }

// Skin

const char* NkDialogPushButton::DialogPushButton = "DEF DialogPushButtonPressed Group {"
                                                   "  Material { diffuseColor 1 0.6 0.6 }"
                                                   "  Translation { translation 0 0 0.5 }"
                                                   "  Cube { width 1 height 1 depth 1 }"
                                                   "  Translation { translation 0 0 0.5 }"
                                                   "}"
                                                   "DEF DialogPushButtonReleased Group {"
                                                   "  Material { diffuseColor 0.7 0.7 0.7 }"
                                                   "  Translation { translation 0 0 1 }"
                                                   "  Cube { width 1 height 1 depth 1 }"
                                                   "  Translation { translation 0 0 1 }"
                                                   "}";

NK_SKIN_SOURCE(NkDialogPushButton, DialogPushButton, "DialogPushButtonReleased", "DialogPushButtonPressed");
