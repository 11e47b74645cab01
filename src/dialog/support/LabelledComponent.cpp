#include "Panelix/LabelledComponent.h"

#include "arbora/scene/NkSwitch.h"
#include "arbora/scene/NkText3.h"
#include "arbora/scene/NkTranslation.h"
#include "arbora/win/NkWin.h"
#include "src/dialog/support/Controls.h"
#include "src/dialog/support/SensorPause.h"

namespace panelix {

LabelledComponent::LabelledComponent() = default;

LabelledComponent::~LabelledComponent() { destroyControl(m_labelWidget); }

void LabelledComponent::getLabelledSize(NbVec2i32& size, NbVec2i32& min, NbVec2i32& max) {
  NkDialogComponent::getDefaultSize(size, min, max);
  size = m_componentSize;
  if (labelVisibility.getValue()) size[0] = addSaturating(size[0], static_cast<long long>(m_labelSize[0]) + kGap);
}

// 2D form

namespace {

DWORD labelStyle(int alignment) { return WS_CHILD | WS_CLIPCHILDREN | alignmentStyle(alignment); }

} // namespace

HWND LabelledComponent::createControl(const wchar_t* windowClass, const NbString& text, DWORD style) {
  return CreateWindowExW(0, windowClass, text.toWideChar().c_str(), style, 0, 0, 0, 0, m_widget, nullptr,
                         NkWin::getInstance(), nullptr);
}

void LabelledComponent::createLabelWidget() {
  m_labelWidget = createControl(L"STATIC", convertToCString(label.getValue()), labelStyle(labelAlignment.getValue()));
  setWidgetFont(m_labelWidget);
  showLabelWidget();
  EnableWindow(m_labelWidget, enable.getValue());
}

void LabelledComponent::updateLabelWidget() {
  constexpr int kRoom = 3;
  const int inset = edgeInset();
  const int textHeight = getLabelPixelSize(label.getValue(), nullptr)[1];
  const int top = addSaturating(height.getValue(), -static_cast<long long>(kRoom) - textHeight) / 2;
  SetWindowPos(m_labelWidget, nullptr, inset, inset + top, m_labelSize[0], textHeight, SWP_DEFERERASE);
  showLabelWidget();
}

void LabelledComponent::updateControl(HWND control) {
  NbVec2i32 size;
  NbVec2i32 corner;
  get2DComponentSize(size, corner);
  SetWindowPos(control, nullptr, corner[0], corner[1], size[0], size[1], SWP_DEFERERASE);
}

void LabelledComponent::showLabelWidget() { ShowWindow(m_labelWidget, labelVisibility.getValue() ? SW_SHOW : SW_HIDE); }

HWND LabelledComponent::getLabelWidget() { return existWidget(m_labelWidget) ? m_labelWidget : nullptr; }

void LabelledComponent::changeLabel() {
  setWindowTextOf(m_labelWidget, convertToCString(label.getValue()));
  updateLabelWidget();
}

void LabelledComponent::changeLabelAlignment() {
  SetWindowLongPtrA(m_labelWidget, GWL_STYLE, static_cast<LONG_PTR>(labelStyle(labelAlignment.getValue())));
  // The style holds these two, too.
  changeEnable();
  changeLabelVisibility();
}

// 3D form

void LabelledComponent::create3DLabel() {
  m_label3D.addTo(groupPart("labelSwitch"));
  change3DLabel();
}

void LabelledComponent::update3DLabel() {
  constexpr double kInset = 3;
  if (!isLabelCachedBBox()) setLabelCacheBBox(measure3DText(labelProp.getValue(), m_label3D.text.get()));
  const NbBox3f& box = getLabelCachedBBox();
  const double textWidth = box.getSize()[0];
  double x = kInset;
  if (labelAlignment.getValue() == CENTER) x += addSaturating(m_labelSize[0], -truncated(textWidth)) / 2;
  if (labelAlignment.getValue() == RIGHT) x += truncated(m_labelSize[0] - textWidth);
  writeChange(m_label3D.translation->translation,
              NbVec3f(static_cast<float>(x - width.getValue() / 2.0), -box.getCenter()[1], 0));
}

void LabelledComponent::show3DLabel() {
  setSwitchValue(labelSwitch.getValue(), labelVisibility.getValue() ? NK_SWITCH_ALL : NK_SWITCH_NONE);
}

void LabelledComponent::change3DLabel() {
  NkDialogComponent::change3DLabel();
  if (m_label3D.text) m_label3D.text->string.setValue(convertToCString(label.getValue()));
}

void LabelledComponent::change3DLabelAlignment() {
  if (m_label3D.text) update3DLabel();
}

} // namespace panelix
