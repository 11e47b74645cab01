#include "Panelix/NkTopLevelDialog.h"

#include "Panelix/NkDialogComponent.h"
#include "Panelix/NkMenuBar.h"
#include "Panelix/NkTopLevelAuditor.h"
#include "arbora/scene/NkDBImpl.h"
#include "arbora/scene/NkScale.h"
#include "arbora/scene/NkSeparator.h"
#include "arbora/scene/NkSwitch.h"
#include "arbora/scene/NkText3.h"
#include "arbora/scene/NkTransform.h"
#include "arbora/scene/NkTranslation.h"
#include "src/dialog/support/Auditing.h"
#include "src/dialog/support/BevelledButton.h"
#include "src/dialog/support/SensorPause.h"
#include "src/dialog/support/SizeFields.h"
#include "src/dialog/support/StackLayout.h"
#include "src/dialog/support/Windows.h"

using panelix::SensorPause;
using panelix::SizeTriple;

NK_KIT_SOURCE(NkTopLevelDialog, NkPanelix, "TopLevelDialog");

namespace {

constexpr panelix::ContainerRules kRules{"NkTopLevelDialog", panelix::kOutOfRangeBeCareful, true, false};

} // namespace

NkTopLevelDialog::NkTopLevelDialog()
    : AuditedContainer(kRules), m_frameWidth(GetSystemMetrics(SM_CXFRAME)), m_frameHeight(GetSystemMetrics(SM_CYFRAME)),
      m_menuBarHeight(GetSystemMetrics(SM_CYMENU)), m_scrollBarSize(GetSystemMetrics(SM_CXHSCROLL)),
      m_defaultAuditor(std::make_unique<NkTopLevelAuditor>()) {
  NK_KIT_CONSTRUCTOR(NkTopLevelDialog);
  NK_NODE_ADD_FIELD(width, (0));
  NK_NODE_ADD_FIELD(height, (0));
  NK_NODE_ADD_FIELD(position, (0, 0));
  NK_NODE_ADD_FIELD(position3D, (0, 0, 0));
  NK_NODE_ADD_FIELD(resizable, (TRUE));
  NK_NODE_ADD_FIELD(minWidth, (0));
  NK_NODE_ADD_FIELD(minHeight, (0));
  NK_NODE_ADD_FIELD(maxWidth, (0));
  NK_NODE_ADD_FIELD(maxHeight, (0));
  NK_NODE_ADD_FIELD(margin, (0));
  NK_NODE_ADD_FIELD(rowSpacing, (0));
  NK_NODE_ADD_FIELD(modalFrame, (FALSE));
  NK_NODE_ADD_FIELD(hideChildren, (FALSE));
  NK_NODE_ADD_FIELD(minimized, (FALSE));
  NK_NODE_ADD_FIELD(minimized3DPosition, (0, 0, 0));
  NK_NODE_ADD_FIELD(independentMinimizedPosition, (TRUE));
  NK_NODE_ADD_FIELD(windowResizedByChildren, (FALSE));
  NK_NODE_ADD_FIELD(vScrollVisibility, (AUTO));
  NK_NODE_ADD_FIELD(hScrollVisibility, (AUTO));
  NK_NODE_DEFINE_ENUM_VALUE(ScrollVisibility, NEVER);
  NK_NODE_DEFINE_ENUM_VALUE(ScrollVisibility, ALWAYS);
  NK_NODE_DEFINE_ENUM_VALUE(ScrollVisibility, AUTO);
  NK_NODE_SET_SF_ENUM_TYPE(vScrollVisibility, ScrollVisibility);
  NK_NODE_SET_SF_ENUM_TYPE(hScrollVisibility, ScrollVisibility);
  NK_KIT_ADD_CATALOG_ENTRY(frameSep, NkSeparator, true, "geomSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(frame, NkGroup, true, "frameSep", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(labelSep, NkSeparator, true, "geomSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(labelProp, NkGroup, true, "labelSep", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(minSep, NkSeparator, true, "geomSwitch", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(minSwtch, NkSwitch, true, "minSep", "", false);
  NK_KIT_ADD_CATALOG_ENTRY(minReleased, NkGroup, true, "minSwtch", "", true);
  NK_KIT_ADD_CATALOG_ENTRY(minPressed, NkGroup, true, "minSwtch", "", true);
  NK_KIT_INIT_INSTANCE();
}

// Sizes

NkMenuBar* NkTopLevelDialog::widgetHasMenuBar() const {
  for (int i = 0; i < getNumChildren(); ++i) {
    NkTopComponent* child = getChild(i);
    if (auto* bar = arbora::as<NkMenuBar>(child)) return bar;
  }
  return nullptr;
}

template <class Use>
void NkTopLevelDialog::forEachComponent(Use&& use) {
  forEachChild([&](NkTopComponent* child) {
    if (auto* component = arbora::as<NkDialogComponent>(child)) use(*component);
  });
}

void NkTopLevelDialog::fixSizeWithBorder(NbVec2i32& size, int factor) const {
  constexpr int kCaptionNotMeasured = 24;
  const int caption = m_captionHeight ? m_captionHeight : kCaptionNotMeasured;
  NbVec2i32 border(2 * m_frameWidth, caption + 2 * m_frameHeight);
  if (m_vScrollOn || vScrollVisibility.getValue() == ALWAYS) border[0] += m_scrollBarSize;
  if (m_hScrollOn || hScrollVisibility.getValue() == ALWAYS) border[1] += m_scrollBarSize;
  if (widgetHasMenuBar()) border[1] += m_menuBarHeight;
  panelix::addBorder(size, border, factor);
}

void NkTopLevelDialog::getDefaultSize(NbVec2i32& size, NbVec2i32& min, NbVec2i32& max) {
  m_sizes.setCount(getNumChildren());
  int i = 0;
  bool hasMenuBar = false;
  forEachChild([&](NkTopComponent* child) {
    SizeTriple triple;
    child->getSize(triple.size, triple.min, triple.max);
    if (child->isOfType(NkMenuBar::getClassTypeId())) {
      // The bar takes no share of the height.
      triple.max[1] = triple.min[1];
      hasMenuBar = true;
    }
    m_sizes.set(i++, triple);
  });
  SizeTriple content = panelix::stackSizes(m_sizes, 1);
  const int numRows = getNumChildren() - (hasMenuBar ? 1 : 0);
  panelix::addStackBorder(content, 1, margin.getValue(), panelix::gapsBetween(numRows, rowSpacing.getValue()));
  size = content.size;
  min = content.min;
  max = content.max;
}

void NkTopLevelDialog::getSize(NbVec2i32& size, NbVec2i32& min, NbVec2i32& max) {
  SizeTriple triple = panelix::sizeFieldsOf(*this);
  panelix::fillAndClamp(
      triple, [this](auto&... sizes) { getDefaultSize(sizes...); },
      [this](NbVec2i32& value) { fixSizeWithBorder(value, 1); });
  if (!resizable.getValue() && width.getValue() != 0) triple.min[0] = triple.max[0] = triple.size[0];
  if (!resizable.getValue() && height.getValue() != 0) triple.min[1] = triple.max[1] = triple.size[1];
  size = triple.size;
  min = triple.min;
  max = triple.max;
}

void NkTopLevelDialog::computeNewChildrenHeight(const NbVec2i32& target) {
  SizeTriple content;
  getDefaultSize(content.size, content.min, content.max);
  m_sizes.share(1, static_cast<long long>(target[1]) - content.size[1]);
}

void NkTopLevelDialog::setChildrenLabelSize() {
  panelix::alignLabels([this](auto&& use) { forEachComponent(use); }, false);
}

void NkTopLevelDialog::setChildrenComponentSize() {
  panelix::alignComponents([this](auto&& use) { forEachComponent(use); });
}

void NkTopLevelDialog::setSize(int w, int h, int minW, int minH, int maxW, int maxH) {
  SizeTriple triple{NbVec2i32(w, h), NbVec2i32(minW, minH), NbVec2i32(maxW, maxH)};
  panelix::forEachSizeField(*this, [&](NkSFInt32& field, int index) {
    // A computed size that the window confirms still doesn't go into files.
    if (field.getValue() == triple.at(index)) return;
    const SensorPause quiet(m_sizeSensors[index], field);
    field = triple.at(index);
  });
}

void NkTopLevelDialog::setDefaultState() {
  const bool isFixed = !resizable.getValue();
  panelix::hideNegotiatedSizes(*this, m_defaultState, isFixed, isFixed);
}

void NkTopLevelDialog::getDefaultState(NbVec2i32& size, NbVec2i32& min, NbVec2i32& max) const {
  size = m_defaultState.size;
  min = m_defaultState.min;
  max = m_defaultState.max;
}

void NkTopLevelDialog::resetSize() {
  if (windowResizedByChildren.getValue()) {
    // The writes tell the state anew what it is.
    panelix::setSizeFields(*this, m_defaultState);
  }
  forEachChild([](NkTopComponent* child) { child->resetSize(); });
}

void NkTopLevelDialog::changeWidth() { m_defaultState.size[0] = width.getValue(); }

void NkTopLevelDialog::changeHeight() { m_defaultState.size[1] = height.getValue(); }

void NkTopLevelDialog::changeMinMaxSize() {
  const SizeTriple fields = panelix::sizeFieldsOf(*this);
  m_defaultState.min = fields.min;
  m_defaultState.max = fields.max;
}

// Building

void NkTopLevelDialog::buildDialog(HWND window, int adopt) {
  const arbora::KeepAlive alive(this);
  m_adoptParent = adopt;
  setChildrenLabelSize();
  setChildrenComponentSize();
  NbVec2i32 size(0, 0);
  NbVec2i32 corner(0, 0);
  buildWidget(window, size, corner, NkDBImpl::m_isVerra ? 0 : 1);
  if (!m_currentFocusedWidget) m_currentFocusedWidget = GetNextDlgTabItem(m_topLevelWidget, nullptr, FALSE);
  m_holdUpdates = 0;
}

void NkTopLevelDialog::buildWidget(HWND parent, NbVec2i32& size, NbVec2i32& corner, int is2D) {
  const arbora::KeepAlive alive(this);
  NkPanelix::buildWidget(parent, size, corner, is2D);
  if (is2D && !existWidget(m_baseWidget)) {
    // So a first build in 2D records no state.
    createBaseWidget(parent);
    m_firstBuild = 0;
  }
  m_sizes.setCount(getNumChildren());
  SizeTriple triple;
  getSize(triple.size, triple.min, triple.max);
  for (int axis = 0; axis < 2; ++axis) {
    if (size[axis] != 0) triple.size[axis] = panelix::clampMinWins(size[axis], triple.min[axis], triple.max[axis]);
    if (!resizable.getValue()) triple.min[axis] = triple.max[axis] = triple.size[axis];
  }
  if (m_firstBuild) m_defaultState = panelix::sizeFieldsOf(*this);
  setSize(triple.size[0], triple.size[1], triple.min[0], triple.min[1], triple.max[0], triple.max[1]);
  setDefaultState();
  if (is2D) {
    // The size message that this brings about tells where the new window stands, not where it is to stand.
    const NbVec2i32 given = position.getValue();
    updateBaseWidget();
    if (!existWidget(m_topLevelWidget)) {
      if (position.getValue() != given) setPosition(given);
      createTopLevelWidget();
      changePosition();
      updateTopLevelWidget();
      // The layout waits for the window's size message.
      if (!panelix::canMakeWindows()) updateChildren();
    }
  } else {
    if (!isBuilt3D()) {
      create3DTopLevelDialog();
      m_firstBuild = 0;
    }
    update3DTopLevelDialog();
    update3DChildren();
  }
  attachSensor(m_marginSensor, margin);
  attachSensor(m_modalFrameSensor, modalFrame);
  attachSensor(m_rowSpacingSensor, rowSpacing);
  attachSensor(m_resizableSensor, resizable);
  attachSensor(m_positionSensor, position);
  attachSensor(m_position3DSensor, position3D);
  attachSensor(m_minimizedSensor, minimized);
  attachSensor(m_independentMinimizedPositionSensor, independentMinimizedPosition);
  attachSensor(m_minimized3DPositionSensor, minimized3DPosition);
  panelix::forEachSizeField(*this, [this](NkSFInt32& field, int index) { attachSensor(m_sizeSensors[index], field); });
}

void NkTopLevelDialog::afterChange(Change, NkTopComponent*, int) {
  if (!m_holdUpdates) updateAfterSceneGraphChange();
}

void NkTopLevelDialog::updateAfterSceneGraphChange() {
  const arbora::KeepAlive alive(this);
  if (m_built2D) updateDialogBuild(1);
  if (isBuilt3D()) updateDialogBuild(0);
}

void NkTopLevelDialog::updateDialogBuild(int is2D) {
  const arbora::KeepAlive alive(this);
  resetSize();
  m_sizes.clear();
  setChildrenLabelSize();
  setChildrenComponentSize();
  NbVec2i32 size(0, 0);
  NbVec2i32 corner(0, 0);
  buildWidget(m_parentWidget, size, corner, is2D);
  if (!is2D) return;
  setScrollProperties();
  updateTopLevelWidgetScrollPosition();
  updateChildren();
}

void NkTopLevelDialog::updateFromSensor(NkSensor* sensor) {
  const arbora::KeepAlive alive(this);
  const auto isOf = [sensor](const std::unique_ptr<NkFieldSensor>& own) { return sensor == own.get(); };
  const int sizeField = panelix::sizeFieldOf(m_sizeSensors, sensor);
  if (sizeField == 0) {
    changeWidth();
  } else if (sizeField == 1) {
    changeHeight();
  } else if (sizeField > 1) {
    changeMinMaxSize();
  } else if (isOf(m_resizableSensor)) {
    changeResizable();
  } else if (isOf(m_modalFrameSensor)) {
    changeModalFrame();
  } else if (isOf(m_positionSensor)) {
    if (m_built2D) changePosition();
    if (isLive3D()) change3DPosition();
  } else if (isOf(m_position3DSensor) || isOf(m_minimized3DPositionSensor)) {
    if (isBuilt3D()) change3DPosition();
  } else if (isOf(m_minimizedSensor)) {
    if (isBuilt3D()) updateMinimizedState();
  } else if (isOf(m_independentMinimizedPositionSensor)) {
    changeIndependentMinimizedPosition();
  } else if (!isOf(m_marginSensor) && !isOf(m_rowSpacingSensor)) {
    // The margin and the spacing wait for the next layout.
    NkPanelix::updateFromSensor(sensor);
  }
}

// Auditors

void NkTopLevelDialog::applyAuditors() { panelix::applyAuditorsBelow(*this); }

NkPanelix* NkTopLevelDialog::searchForAuditorId(NbString id) { return panelix::findAuditorId(*this, id); }

void NkTopLevelDialog::applyAuditor(NkPanelix* source) {
  if (!callAuditors(&panelix::tellAllKinds, source)) panelix::tellAllKinds(m_defaultAuditor.get(), source);
}

// Skin

const char* NkTopLevelDialog::TopLevelDialog =
    "DEF TopLevelDialogFrame Group {"
    "  Material { diffuseColor 0.7 0.7 1 }"
    "  Translation { translation 0 0 0.5 }"
    "  Cube { width 1 height 1 depth 1 }"
    "  Translation { translation 0 0 0.5 }"
    "}"
    "DEF TopLevelDialogMinReleased Group { " PANELIX_BEVELLED_BUTTON(
        "0.7 0.7 1", "0.2 0.2 1", "1 1 1", "0.5 0.5 1",
        "0.7 0.7 1") "  }"
                     "DEF TopLevelDialogMinPressed Group { " PANELIX_BEVELLED_BUTTON("0.5 0.5 1", "1 1 1", "0.2 0.2 1",
                                                                                     "0.7 0.7 1", "0.7 0.7 1") "  }";

NK_SKIN_SOURCE(NkTopLevelDialog, TopLevelDialog, "TopLevelDialogFrame", "TopLevelDialogMinReleased",
               "TopLevelDialogMinPressed");
