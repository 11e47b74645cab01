#include "Panelix/NkDialogSeparator.h"

#include "arbora/scene/NkScale.h"
#include "arbora/scene/NkSeparator.h"
#include "arbora/scene/NkSwitch.h"
#include "arbora/win/NkWin.h"
#include "src/dialog/support/SensorPause.h"

NK_KIT_SOURCE(NkDialogSeparator, NkDialogComponent, "DialogSeparator");

NkDialogSeparator::NkDialogSeparator() {
  NK_KIT_CONSTRUCTOR(NkDialogSeparator);
  NK_KIT_ADD_CATALOG_ENTRY(frameSep, NkSeparator, true, "geomSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(frameSwitch, NkSwitch, true, "frameSep", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(vFrame, NkGroup, true, "frameSwitch", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(hFrame, NkGroup, true, "frameSwitch", "", true);
  NK_KIT_INIT_INSTANCE();
}

NkDialogSeparator::~NkDialogSeparator() {
  if (existWidget(m_separatorWidget)) DestroyWindow(m_separatorWidget);
}

// Sizes

void NkDialogSeparator::getDefaultSize(NbVec2i32& size, NbVec2i32& min, NbVec2i32& max) {
  constexpr int kThickness = 8;
  const int across = m_orientationHorz ? 1 : 0;
  size = min = NbVec2i32(0, 0);
  max = NbVec2i32(panelix::kUnbounded, panelix::kUnbounded);
  size[across] = min[across] = max[across] = kThickness;
}

void NkDialogSeparator::setOrientationHorz(int isHorizontal) { m_orientationHorz = isHorizontal; }

// Building

void NkDialogSeparator::buildWidget(HWND parent, NbVec2i32& size, NbVec2i32& position, int is2D) {
  const arbora::KeepAlive alive(this);
  NkDialogComponent::buildWidget(parent, size, position, is2D);
  if (is2D) {
    if (!existWidget(m_separatorWidget)) createSeparatorWidget();
    updateSeparatorWidget();
  } else {
    if (!m_separatorScale) create3DSeparator();
    update3DSeparator();
  }
}

// 2D form

void NkDialogSeparator::createSeparatorWidget() {
  m_separatorWidget = CreateWindowExA(WS_EX_STATICEDGE, "STATIC", "", WS_CHILD | WS_CLIPSIBLINGS | WS_CLIPCHILDREN, 0,
                                      0, 0, 0, m_widget, nullptr, NkWin::getInstance(), nullptr);
  ShowWindow(m_separatorWidget, SW_SHOW);
  EnableWindow(m_separatorWidget, enable.getValue());
}

void NkDialogSeparator::updateSeparatorWidget() {
  const int inset = edgeInset();
  const NbVec2i32 size = sizeInBorder();
  SetWindowPos(m_separatorWidget, nullptr, inset, inset, size[0], size[1], SWP_DEFERERASE);
}

void NkDialogSeparator::destroyWidget() {
  if (m_built2D && existWidget(m_separatorWidget)) {
    DestroyWindow(m_separatorWidget);
    m_separatorWidget = nullptr;
  }
  NkDialogComponent::destroyWidget();
}

void NkDialogSeparator::changeEdgeStyle() {
  // The frame keeps its look: the line is edge enough.
  updateSeparatorWidget();
}

// 3D form

void NkDialogSeparator::create3DSeparator() {
  loadFontProperties();
  useSkin(s_skin);
  setPartAsDefault("vFrame", "DialogSeparatorVertical", true);
  setPartAsDefault("hFrame", "DialogSeparatorHorizontal", true);
  m_separatorScale = arbora::Ref<NkScale>(new NkScale);
  groupPart("frameSep")->insertChild(m_separatorScale.get(), 0);
  showOrientation();
}

void NkDialogSeparator::update3DSeparator() {
  showOrientation();
  const NbVec2i32 size = sizeInBorder();
  panelix::writeChange(m_separatorScale->scaleFactor,
                       NbVec3f(static_cast<float>(size[0]), static_cast<float>(size[1]), 1));
}

void NkDialogSeparator::showOrientation() { setSwitchValue(frameSwitch.getValue(), m_orientationHorz ? 1 : 0); }

// Skin

const char* NkDialogSeparator::DialogSeparator = "DEF DialogSeparatorHorizontal Group {"
                                                 "  Material { diffuseColor 0.5 0.5 0.5 }"
                                                 "  Translation { translation 0 0 0.5 }"
                                                 "  Cube { width 1 height 1 depth 1 }"
                                                 "}"
                                                 "DEF DialogSeparatorVertical Group {"
                                                 "  Material { diffuseColor 0 1 0 }"
                                                 "  Translation { translation 0 0 0.5 }"
                                                 "  Cube { width 1 height 1 depth 1 }"
                                                 "}";

NK_SKIN_SOURCE(NkDialogSeparator, DialogSeparator, "DialogSeparatorVertical", "DialogSeparatorHorizontal");
