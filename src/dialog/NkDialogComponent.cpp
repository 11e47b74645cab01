#include "Panelix/NkDialogComponent.h"

#include <algorithm>

#include "Panelix/NkColumnDialog.h"
#include "Panelix/NkDialogGroup.h"
#include "Panelix/NkRowDialog.h"
#include "Panelix/NkTabDialog.h"
#include "Panelix/Sizes.h"
#include "arbora/scene/NkGetBoundingBoxAction.h"
#include "arbora/scene/NkMaterial.h"
#include "arbora/scene/NkPickStyle.h"
#include "arbora/scene/NkRayPickAction.h"
#include "arbora/scene/NkScale.h"
#include "arbora/scene/NkSeparator.h"
#include "arbora/scene/NkSwitch.h"
#include "arbora/scene/NkTransform.h"
#include "arbora/scene/NkTranslation.h"
#include "arbora/win/NkWin.h"
#include "src/dialog/support/SensorPause.h"
#include "src/dialog/support/SizeFields.h"
#include "src/dialog/support/Windows.h"

using panelix::addSaturating;
using panelix::SizeTriple;
using panelix::writeChange;

NK_KIT_SOURCE(NkDialogComponent, NkTopComponent, "DialogComponent");

NkDialogComponent::NkDialogComponent() {
  NK_KIT_CONSTRUCTOR(NkDialogComponent);
  NK_NODE_ADD_FIELD(width, (0));
  NK_NODE_ADD_FIELD(height, (0));
  NK_NODE_ADD_FIELD(fixedWidth, (FALSE));
  NK_NODE_ADD_FIELD(fixedHeight, (FALSE));
  NK_NODE_ADD_FIELD(minWidth, (0));
  NK_NODE_ADD_FIELD(minHeight, (0));
  NK_NODE_ADD_FIELD(maxWidth, (0));
  NK_NODE_ADD_FIELD(maxHeight, (0));
  NK_NODE_ADD_FIELD(labelVisibility, (TRUE));
  NK_NODE_ADD_FIELD(edgeStyle, (NONE));
  NK_NODE_DEFINE_ENUM_VALUE(EdgeStyle, NONE);
  NK_NODE_DEFINE_ENUM_VALUE(EdgeStyle, SHADOW_IN);
  NK_NODE_DEFINE_ENUM_VALUE(EdgeStyle, SHADOW_OUT);
  NK_NODE_SET_SF_ENUM_TYPE(edgeStyle, EdgeStyle);
  // The three looks stand in the order of the values of the enum, which is the switch's.
  NK_KIT_ADD_CATALOG_ENTRY(mainCptSeparator, NkSeparator, true, "geomSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(edgeStyleSwitch, NkSwitch, true, "mainCptSeparator", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(edgeStyleNone, NkGroup, true, "edgeStyleSwitch", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(edgeStyleShadowIn, NkGroup, true, "edgeStyleSwitch", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(edgeStyleShadowOut, NkGroup, true, "edgeStyleSwitch", "", true);
  NK_KIT_INIT_INSTANCE();
}

NkDialogComponent::~NkDialogComponent() {
  if (!existWidget(m_widget)) return;
  // What the window says while it goes finds no component any more.
  SetWindowLongPtrA(m_widget, GWLP_USERDATA, 0);
  DestroyWindow(m_widget);
}

// Sizes

void NkDialogComponent::holdFixed(SizeTriple& triple) const {
  if (fixedWidth.getValue()) triple.min[0] = triple.max[0] = triple.size[0];
  if (fixedHeight.getValue()) triple.min[1] = triple.max[1] = triple.size[1];
}

void NkDialogComponent::getSize(NbVec2i32& size, NbVec2i32& min, NbVec2i32& max) {
  SizeTriple triple = panelix::sizeFieldsOf(*this);
  panelix::fillAndClamp(
      triple, [this](auto&... sizes) { getDefaultSize(sizes...); }, [](NbVec2i32&) {});
  holdFixed(triple);
  size = triple.size;
  min = triple.min;
  max = triple.max;
}

void NkDialogComponent::getDefaultSize(NbVec2i32& size, NbVec2i32& min, NbVec2i32& max) {
  size = NbVec2i32(200, 28);
  min = NbVec2i32(25, 25);
  max = NbVec2i32(panelix::kUnbounded, panelix::kUnbounded);
}

void NkDialogComponent::setLabelSize(NbVec2i32& size) { m_labelSize = size; }

void NkDialogComponent::setComponentSize(NbVec2i32& size) { m_componentSize = size; }

NbVec2i32 NkDialogComponent::getComponentInitSize() { return NbVec2i32(0, 0); }

NbVec2i32 NkDialogComponent::getLabelInitSize() {
  m_labelInitSize = getLabelPixelSize(label.getValue(), nullptr);
  return m_labelInitSize;
}

void NkDialogComponent::setSize(SizeTriple triple) {
  panelix::forEachSizeField(
      *this, [&](NkSFInt32& field, int index) { writeChange(m_sizeSensors[index], field, triple.at(index)); });
}

void NkDialogComponent::setDefaultState() {
  panelix::hideNegotiatedSizes(*this, m_defaultState, fixedWidth.getValue(), fixedHeight.getValue());
}

void NkDialogComponent::getDefaultState(NbVec2i32& size, NbVec2i32& min, NbVec2i32& max) const {
  size = m_defaultState.size;
  min = m_defaultState.min;
  max = m_defaultState.max;
}

void NkDialogComponent::resetSize() {
  m_componentInitSize = NbVec2i32(-1, -1);
  m_labelInitSize = m_labelSize = m_componentSize = NbVec2i32(0, 0);
  height = 0;
  width = 0;
}

void NkDialogComponent::changeWidth() { m_defaultState.size[0] = width.getValue(); }

void NkDialogComponent::changeHeight() { m_defaultState.size[1] = height.getValue(); }

void NkDialogComponent::changeMinMaxSize() {
  const SizeTriple fields = panelix::sizeFieldsOf(*this);
  m_defaultState.min = fields.min;
  m_defaultState.max = fields.max;
}

// Building

void NkDialogComponent::buildWidget(HWND parent, NbVec2i32& size, NbVec2i32& position, int is2D) {
  const arbora::KeepAlive alive(this);
  NkTopComponent::buildWidget(parent, size, position, is2D);
  if (!m_parent) {
    NbVec2i32 labelSize = getLabelInitSize();
    setLabelSize(labelSize);
    const NbVec2i32 natural = getComponentInitSize();
    const int labelHeight = labelVisibility.getValue() ? getLabelInitSize()[1] : 0;
    NbVec2i32 componentSize(std::max(natural[0], 0), std::max(natural[1], labelHeight));
    setComponentSize(componentSize);
  }
  SizeTriple triple;
  getSize(triple.size, triple.min, triple.max);
  for (int axis = 0; axis < 2; ++axis) {
    if (size[axis] != 0) triple.size[axis] = panelix::clampMinWins(size[axis], triple.min[axis], triple.max[axis]);
  }
  holdFixed(triple);
  if (m_firstBuild) m_defaultState = panelix::sizeFieldsOf(*this);
  setSize(triple);
  setDefaultState();
  m_position = position;
  if (is2D) {
    if (!existWidget(m_widget)) {
      createComponentWidget(parent);
      m_firstBuild = 0;
    }
    updateComponentWidget();
  } else {
    if (!isBuilt3D()) {
      create3DDialogComponent();
      m_firstBuild = 0;
    }
    update3DDialogComponent();
  }
  if (m_sizeSensors.back()) return;
  attachSensor(m_labelVisibilitySensor, labelVisibility);
  attachSensor(m_edgeStyleSensor, edgeStyle);
  panelix::forEachSizeField(*this, [this](NkSFInt32& field, int index) { attachSensor(m_sizeSensors[index], field); });
}

void NkDialogComponent::updateFromSensor(NkSensor* sensor) {
  const arbora::KeepAlive alive(this);
  const bool in2D = m_built2D != 0;
  const bool in3D = isLive3D();
  if (sensor == m_labelVisibilitySensor.get()) {
    if (in2D) changeLabelVisibility();
    if (in3D) change3DLabelVisibility();
  } else if (sensor == m_edgeStyleSensor.get()) {
    if (in2D) changeEdgeStyle();
    if (in3D) change3DEdgeStyle();
  } else {
    switch (panelix::sizeFieldOf(m_sizeSensors, sensor)) {
      case -1:
        NkTopComponent::updateFromSensor(sensor);
        break;
      case 0:
        changeWidth();
        break;
      case 1:
        changeHeight();
        break;
      default:
        changeMinMaxSize();
        break;
    }
  }
}

// 2D form

namespace {

/// From the centre line of the 3D form's border to its outer edge.
constexpr int kInset3D = 3;

DWORD extendedStyleOf(int edgeStyle) {
  DWORD style = WS_EX_CONTROLPARENT;
  if (edgeStyle == NkDialogComponent::SHADOW_IN) style |= WS_EX_STATICEDGE;
  if (edgeStyle == NkDialogComponent::SHADOW_OUT) style |= WS_EX_DLGMODALFRAME;
  return style;
}

LRESULT CALLBACK frameProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  auto* component = reinterpret_cast<NkDialogComponent*>(GetWindowLongPtrA(window, GWLP_USERDATA));
  if (!component) return DefWindowProcA(window, message, wParam, lParam);
  // Whatever hears of the message may end the component.
  const arbora::KeepAlive alive(component);
  switch (message) {
    case WM_DRAWITEM:
      if (component->isOfType(NkTabDialog::getClassTypeId()))
        component->eventNotify(WM_DRAWITEM, static_cast<std::uint64_t>(lParam));
      return 0;
    case WM_NOTIFY:
      component->eventNotify(WM_NOTIFY, static_cast<std::uint64_t>(lParam));
      return 0;
    case WM_COMMAND:
      component->eventNotify(HIWORD(wParam), static_cast<std::uint64_t>(lParam));
      return 0;
    case WM_HSCROLL:
      component->eventNotify(WM_HSCROLL, wParam);
      panelix::scroll(window, SB_HORZ, LOWORD(wParam));
      return 0;
    case WM_VSCROLL:
      panelix::scroll(window, SB_VERT, LOWORD(wParam));
      return 0;
    default:
      return DefWindowProcA(window, message, wParam, lParam);
  }
}

const panelix::WindowClass kFrameClass{"NkDialogComponent", CS_PARENTDC | CS_HREDRAW | CS_VREDRAW, frameProcedure,
                                       IDC_ARROW, nullptr};
constexpr const char* kErrorTitle = "NkDialogComponent Error";

} // namespace

void NkDialogComponent::createComponentWidget(HWND parent) {
  const NbString className = panelix::useWindowClass(kFrameClass, kErrorTitle, "RegisterClass failed");
  m_widget = CreateWindowExA(extendedStyleOf(edgeStyle.getValue()), className.toLatin1().c_str(), "NkDialogComponent",
                             WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | WS_CLIPCHILDREN, 0, 0, 0, 0, parent, nullptr,
                             NkWin::getInstance(), nullptr);
  if (!IsWindow(m_widget)) NkWin::createSimpleErrorDialog(nullptr, kErrorTitle, "CreateWindow failed", nullptr);
  setWidgetFont(m_widget);
  SetWindowLongPtrA(m_widget, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  if (isOfType(NkDialogGroup::getClassTypeId())) SendMessageA(m_widget, WM_CREATE, 0, 0);
  EnableWindow(m_widget, enable.getValue());
}

void NkDialogComponent::updateComponentWidget() {
  SetWindowPos(m_widget, nullptr, m_position[0], m_position[1], width.getValue(), height.getValue(), SWP_DEFERERASE);
}

void NkDialogComponent::destroyWidget() {
  if (m_built2D && existWidget(m_widget)) {
    DestroyWindow(m_widget);
    m_widget = nullptr;
  }
  NkTopComponent::destroyWidget();
}

HWND NkDialogComponent::getLabelWidget() { return nullptr; }

void NkDialogComponent::setFocus() {}

void NkDialogComponent::get2DComponentSize(NbVec2i32& size, NbVec2i32& position) const {
  const int inset = edgeInset();
  size = sizeInBorder();
  position = NbVec2i32(inset, inset);
  if (!labelVisibility.getValue()) return;
  const long long taken = static_cast<long long>(m_labelSize[0]) + kGap;
  position[0] = addSaturating(position[0], taken);
  size[0] = addSaturating(size[0], -taken);
}

NbVec2i32 NkDialogComponent::sizeInBorder() const {
  return NbVec2i32(addSaturating(width.getValue(), -kBorder), addSaturating(height.getValue(), -kBorder));
}

int NkDialogComponent::edgeInset() const {
  switch (edgeStyle.getValue()) {
    case SHADOW_IN:
      return 2;
    case SHADOW_OUT:
      return 0;
    default:
      return 3;
  }
}

void NkDialogComponent::changeEnable() { EnableWindow(m_widget, enable.getValue()); }

void NkDialogComponent::changeWidgetEnable(int on) { EnableWindow(m_widget, on && enable.getValue()); }

void NkDialogComponent::changeLabelVisibility() {}

void NkDialogComponent::changeEdgeStyle() {
  SetWindowLongPtrA(m_widget, GWL_EXSTYLE, static_cast<LONG_PTR>(extendedStyleOf(edgeStyle.getValue())));
  SetWindowPos(m_widget, nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE | SWP_FRAMECHANGED);
  updateComponentWidget();
}

// 3D form

bool NkDialogComponent::isStack() const {
  return isOfType(NkColumnDialog::getClassTypeId()) || isOfType(NkRowDialog::getClassTypeId());
}

void NkDialogComponent::create3DDialogComponent() {
  loadFontProperties();
  useSkin(s_skin);
  setPartAsDefault("edgeStyleNone", "DialogComponentEdgeStyleNone", true);
  setPartAsDefault("edgeStyleShadowIn", "DialogComponentEdgeStyleShadowIn", true);
  setPartAsDefault("edgeStyleShadowOut", "DialogComponentEdgeStyleShadowOut", true);
  m_scale3D = arbora::Ref<NkScale>(new NkScale);
  groupPart("mainCptSeparator")->insertChild(m_scale3D.get(), 0);
  auto* geometry = groupPart("geomSwitch");
  m_translation3D = arbora::Ref<NkTranslation>(new NkTranslation);
  geometry->insertChild(m_translation3D.get(), 0);
  geometry->insertChild(m_pickStyle.get(), 0);
  geometry->insertChild(m_disableMaterial.get(), 0);
  // The children of a stack stand in the space of the stack itself.
  if (!isStack()) {
    m_transform3D = arbora::Ref<NkTransform>(new NkTransform);
    geometry->insertChild(m_transform3D.get(), geometry->findChild(mainCptSeparator.getValue()) + 1);
  }
  setSwitchValue(edgeStyleSwitch.getValue(), edgeStyle.getValue());
  apply3DParentTranslation();
  m_depth3D = kDepthNotMeasured;
  // Its own part of being disabled; what it holds isn't built yet.
  if (!enable.getValue()) NkPanelix::change3DEnable();
  show3D(1);
  setBuilt3D(1);
}

void NkDialogComponent::update3DDialogComponent() {
  NbVec3f offset(0, 0, 0);
  auto* parent = arbora::as<NkDialogComponent>(m_parent);
  if (parent && parent->canBeTraversed() && (parent->isStack() || parent->isOfType(NkTabDialog::getClassTypeId()))) {
    // From the parent's centre to its upper left corner.
    if (parent->m_translation3D) offset = parent->m_translation3D->translation.getValue();
    offset += NbVec3f(-static_cast<float>(parent->width.getValue()) / 2,
                      static_cast<float>(parent->height.getValue()) / 2, 0);
  }
  const auto w = static_cast<float>(width.getValue());
  const auto h = static_cast<float>(height.getValue());
  const auto x = static_cast<float>(m_position[0]);
  const auto y = static_cast<float>(m_position[1]);
  writeChange(m_translation3D->translation, NbVec3f(x + w / 2 + offset[0], -y - h / 2 + offset[1], offset[2]));
  writeChange(m_scale3D->scaleFactor, NbVec3f(w, h, 1));
  if (m_transform3D) undoTransformMatrix(mainCptSeparator.getValue(), m_transform3D.get(), m_measuredFrame);
}

void NkDialogComponent::get3DComponentSize(NbVec2i32& size, NbVec2i32& position) const {
  size = sizeInBorder();
  double x = kInset3D;
  if (labelVisibility.getValue()) {
    const long long taken = static_cast<long long>(m_labelSize[0]) + kGap;
    x += static_cast<double>(taken);
    size[0] = addSaturating(size[0], -taken);
  }
  position = NbVec2i32(panelix::truncated(x + size[0] / 2.0 - width.getValue() / 2.0), 0);
}

void NkDialogComponent::change3DLabelVisibility() {}

void NkDialogComponent::change3DEdgeStyle() { setSwitchValue(edgeStyleSwitch.getValue(), edgeStyle.getValue()); }

void NkDialogComponent::getBoundingBox(NkGetBoundingBoxAction* action) {
  if (!isBuilt3D()) {
    const bool wasEnabled = enableNotify(false);
    // A dialog without a 3D form doesn't act on changes of it.
    NkPanelix* top = getFirstTopParent(0, 1);
    if (top && top != this && !top->isBuilt3D()) top->setCanBeTraversed(0);
    NbVec2i32 size(0, 0);
    NbVec2i32 position(0, 0);
    buildWidget(nullptr, size, position, 0);
    enableNotify(wasEnabled);
  }
  NkTopComponent::getBoundingBox(action);
}

void NkDialogComponent::rayPick(NkRayPickAction* action) {
  // The form comes into being when it is measured.
  if (!isBuilt3D()) NkGetBoundingBoxAction::measureWithin(*action, this);
  NkTopComponent::rayPick(action);
}

// Events

void NkDialogComponent::eventNotify(unsigned int, std::uint64_t) {}

// Skin

const char* NkDialogComponent::DialogComponent = "DEF DialogComponentEdgeStyleNone Group {"
                                                 "  Material { diffuseColor 0.75 0.75 0.75}"
                                                 "  Translation { translation 0 0 0.5 }"
                                                 "  Cube { width 1 height 1 depth 1 }"
                                                 "  Translation { translation 0 0 0.5 }"
                                                 "}"
                                                 "DEF DialogComponentEdgeStyleShadowIn Group {"
                                                 "  Material { diffuseColor 0.5 0.5 0.5 }"
                                                 "  Translation { translation 0 0 0.5 }"
                                                 "  Cube { width 1 height 1 depth 1 }"
                                                 "  Translation { translation 0 0 0.5 }"
                                                 "}"
                                                 "DEF DialogComponentEdgeStyleShadowOut Group {"
                                                 "  Material { diffuseColor 0.8 0.8 0.8 }"
                                                 "  Translation { translation 0 0 0.5 }"
                                                 "  Cube { width 1 height 1 depth 1 }"
                                                 "  Translation { translation 0 0 0.5 }"
                                                 "}";

NK_SKIN_SOURCE(NkDialogComponent, DialogComponent, "DialogComponentEdgeStyleNone", "DialogComponentEdgeStyleShadowIn",
               "DialogComponentEdgeStyleShadowOut");
