#include "Panelix/NkDialogLabel.h"

#include <algorithm>

#include "arbora/scene/NkSeparator.h"
#include "arbora/scene/NkText3.h"
#include "arbora/scene/NkTranslation.h"
#include "arbora/win/NkWin.h"
#include "src/dialog/support/Controls.h"
#include "src/dialog/support/SensorPause.h"

NK_KIT_SOURCE(NkDialogLabel, NkDialogComponent, "DialogLabel");

NkDialogLabel::NkDialogLabel() {
  NK_KIT_CONSTRUCTOR(NkDialogLabel);
  NK_KIT_ADD_CATALOG_ENTRY(labelSep, NkSeparator, true, "geomSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(labelProp, NkGroup, true, "labelSep", "", true);
  NK_KIT_INIT_INSTANCE();
  labelAlignment = LEFT;
  labelAlignment.setDefault(true);
}

NkDialogLabel::~NkDialogLabel() {
  if (existWidget(m_labelWidget)) DestroyWindow(m_labelWidget);
}

// Sizes

NbVec2i32 NkDialogLabel::getLabelInitSize() { return NbVec2i32(0, 0); }

NbVec2i32 NkDialogLabel::getComponentInitSize() {
  constexpr int kRoom = 4;
  if (m_componentInitSize[0] == -1) {
    m_textPixelSize = getLabelPixelSize(label.getValue(), nullptr);
    m_textPixelSize[0] += kRoom - m_labelSize[0];
    m_componentInitSize = m_textPixelSize;
  }
  return m_componentInitSize;
}

void NkDialogLabel::getDefaultSize(NbVec2i32& size, NbVec2i32& min, NbVec2i32& max) {
  NkDialogComponent::getDefaultSize(size, min, max);
  for (int axis = 0; axis < 2; ++axis) m_componentSize[axis] = std::max(m_componentSize[axis], min[axis]);
  size = m_componentSize;
  size[1] = std::max(size[1], m_textPixelSize[1]);
}

// Building

void NkDialogLabel::buildWidget(HWND parent, NbVec2i32& size, NbVec2i32& position, int is2D) {
  const arbora::KeepAlive alive(this);
  NkDialogComponent::buildWidget(parent, size, position, is2D);
  if (is2D) {
    if (!existWidget(m_labelWidget)) createLabelWidget();
    updateLabelWidget();
  } else {
    if (!m_text3D) create3DDialogLabel();
    update3DLabel();
  }
}

// 2D form

namespace {

DWORD styleOf(int alignment) { return WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | panelix::alignmentStyle(alignment); }

} // namespace

void NkDialogLabel::createLabelWidget() {
  m_labelWidget =
      CreateWindowExW(0, L"STATIC", convertToCString(label.getValue()).toWideChar().c_str(),
                      styleOf(labelAlignment.getValue()), 0, 0, 0, 0, m_widget, nullptr, NkWin::getInstance(), nullptr);
  setWidgetFont(m_labelWidget);
  EnableWindow(m_labelWidget, enable.getValue());
}

void NkDialogLabel::updateLabelWidget() {
  const int inset = edgeInset();
  const NbVec2i32 room = sizeInBorder();
  const int textHeight = getLabelPixelSize(label.getValue(), this)[1];
  const int top = panelix::addSaturating(room[1], -textHeight) / 2;
  SetWindowPos(m_labelWidget, nullptr, inset, inset + top, room[0], textHeight, SWP_DEFERERASE);
}

void NkDialogLabel::destroyWidget() {
  if (m_built2D) {
    if (existWidget(m_labelWidget)) DestroyWindow(m_labelWidget);
    m_labelWidget = nullptr;
  }
  NkDialogComponent::destroyWidget();
}

void NkDialogLabel::changeEnable() {
  EnableWindow(m_labelWidget, enable.getValue());
  NkDialogComponent::changeEnable();
}

void NkDialogLabel::changeWidgetEnable(int on) {
  EnableWindow(m_labelWidget, on && enable.getValue());
  NkDialogComponent::changeWidgetEnable(on);
}

void NkDialogLabel::changeLabel() {
  setWindowTextOf(m_labelWidget, convertToCString(label.getValue()));
  updateLabelWidget();
}

void NkDialogLabel::changeLabelAlignment() {
  SetWindowLongPtrA(m_labelWidget, GWL_STYLE, static_cast<LONG_PTR>(styleOf(labelAlignment.getValue())));
  // The control takes the style on when it shows anew.
  ShowWindow(m_labelWidget, SW_HIDE);
  ShowWindow(m_labelWidget, SW_SHOW);
}

void NkDialogLabel::changeEdgeStyle() {
  NkDialogComponent::changeEdgeStyle();
  updateLabelWidget();
}

// 3D form

void NkDialogLabel::create3DDialogLabel() {
  loadFontProperties();
  setPartAsDefault("labelProp", "DialogTextProperties", true);
  auto* separator = groupPart("labelSep");
  m_textTranslation = arbora::Ref<NkTranslation>(new NkTranslation);
  separator->insertChild(m_textTranslation.get(), 0);
  m_text3D = arbora::Ref<NkText3>(new NkText3);
  m_text3D->parts = NkText3::FRONT;
  separator->addChild(m_text3D.get());
  change3DLabel();
  change3DLabelAlignment();
}

void NkDialogLabel::update3DLabel() {
  constexpr double kInset = 3;
  if (!isLabelCachedBBox()) setLabelCacheBBox(measure3DText(labelProp.getValue(), m_text3D.get()));
  const NbBox3f& box = getLabelCachedBBox();
  const double halfWidth = width.getValue() / 2.0;
  const NbVec3f middle = box.getCenter();
  double x = -middle[0];
  if (labelAlignment.getValue() == LEFT) x = kInset - halfWidth;
  if (labelAlignment.getValue() == RIGHT) x = halfWidth - kInset - box.getSize()[0];
  panelix::writeChange(m_textTranslation->translation,
                       NbVec3f(static_cast<float>(panelix::truncated(x)), -middle[1], 0));
}

void NkDialogLabel::change3DLabel() {
  NkDialogComponent::change3DLabel();
  if (!m_text3D) return;
  const std::string text = convertToCString(label.getValue()).toLatin1();
  const auto widest = static_cast<float>(sizeInBorder()[0]);
  auto* properties = static_cast<NkGroup*>(labelProp.getValue());
  int line = 0;
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t end = std::min(text.find('\n', start), text.size());
    // A text over an older one merges with its lines.
    insertTextTo3DText(NbString(text.substr(start, end - start).c_str()), m_text3D.get(), line, 0);
    line = wrap3DTextLine(m_text3D.get(), line, widest, properties, this) + 1;
    start = end + 1;
    if (start < text.size() && text[start] == '\r') ++start;
  }
}

void NkDialogLabel::change3DLabelAlignment() {
  if (!m_text3D) return;
  switch (labelAlignment.getValue()) {
    case LEFT:
      m_text3D->justification = NkText3::LEFT;
      break;
    case RIGHT:
      m_text3D->justification = NkText3::RIGHT;
      break;
    default:
      m_text3D->justification = NkText3::CENTER;
      break;
  }
}
