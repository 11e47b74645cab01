#include "Panelix/NkDialogGroup.h"

#include "Panelix/NkDialogGroupAuditor.h"
#include "Panelix/NkTopLevelDialog.h"
#include "src/dialog/support/Auditing.h"
#include "src/dialog/support/SizeFields.h"
#include "src/dialog/support/Windows.h"

using panelix::SizeTriple;

NK_KIT_SOURCE(NkDialogGroup, NkDialogComponent, "DialogGroup");

namespace {

constexpr panelix::ContainerRules kRules{"NkDialogGroup", panelix::kOutOfRange, true, true};

/// Thickness of a scroll bar, in pixels.
constexpr int kScrollBar = 16;

} // namespace

NkDialogGroup::NkDialogGroup() : AuditedContainer(kRules) {
  NK_KIT_CONSTRUCTOR(NkDialogGroup);
  NK_NODE_ADD_FIELD(windowResizedByChildren, (TRUE));
  NK_NODE_ADD_FIELD(margin, (0));
  NK_NODE_ADD_FIELD(vScrollVisibility, (AUTO));
  NK_NODE_ADD_FIELD(hScrollVisibility, (AUTO));
  NK_NODE_DEFINE_ENUM_VALUE(ScrollVisibility, NEVER);
  NK_NODE_DEFINE_ENUM_VALUE(ScrollVisibility, ALWAYS);
  NK_NODE_DEFINE_ENUM_VALUE(ScrollVisibility, AUTO);
  NK_NODE_SET_SF_ENUM_TYPE(vScrollVisibility, ScrollVisibility);
  NK_NODE_SET_SF_ENUM_TYPE(hScrollVisibility, ScrollVisibility);
  NK_KIT_INIT_INSTANCE();
}

NkDialogGroup::~NkDialogGroup() {
  forEachChild([](NkDialogComponent* child) { child->destroyWidget(); });
}

// Sizes

void NkDialogGroup::getSize(NbVec2i32& size, NbVec2i32& min, NbVec2i32& max) {
  SizeTriple triple = panelix::sizeFieldsOf(*this);
  panelix::fillAndClamp(
      triple, [this](auto&... sizes) { getDefaultSize(sizes...); },
      [this](NbVec2i32& value) { fixSizeWithBorder(value, 1); });
  holdFixed(triple);
  size = triple.size;
  min = triple.min;
  max = triple.max;
}

void NkDialogGroup::fixSizeWithBorder(NbVec2i32& size, int factor) {
  const bool hasVertical = m_vScrollOn || vScrollVisibility.getValue() == ALWAYS;
  const bool hasHorizontal = m_hScrollOn || hScrollVisibility.getValue() == ALWAYS;
  panelix::addBorder(size, NbVec2i32(hasVertical ? kScrollBar : 0, hasHorizontal ? kScrollBar : 0), factor);
}

NbVec2i32 NkDialogGroup::getComponentInitSize() { return NbVec2i32(0, 0); }

NbVec2i32 NkDialogGroup::getLabelInitSize() { return NbVec2i32(0, 0); }

void NkDialogGroup::setLabelSize(NbVec2i32& size) {
  NkDialogComponent::setLabelSize(size);
  setChildrenLabelSize();
}

void NkDialogGroup::setComponentSize(NbVec2i32& size) {
  NkDialogComponent::setComponentSize(size);
  setChildrenComponentSize();
}

void NkDialogGroup::setChildrenLabelSize() {}

void NkDialogGroup::setChildrenComponentSize() {}

void NkDialogGroup::resetSize() {
  NkDialogComponent::resetSize();
  forEachChild([](NkDialogComponent* child) { child->resetSize(); });
}

void NkDialogGroup::updateChildrenSizeDB() { m_sizes.setCount(getNumChildren()); }

void NkDialogGroup::afterChange(Change, NkDialogComponent*, int) {
  if (!m_holdUpdates) updateAfterSceneGraphChange();
}

void NkDialogGroup::updateAfterSceneGraphChange() {
  const arbora::KeepAlive alive(this);
  if (windowResizedByChildren.getValue()) {
    SizeTriple given;
    getDefaultState(given.size, given.min, given.max);
    panelix::setSizeFields(*this, given);
  }
  m_sizes.clear();
  m_componentInitSize = NbVec2i32(-1, -1);
  m_labelInitSize = m_labelSize = m_componentSize = NbVec2i32(0, 0);
  if (!m_parent || !m_parent->canBeTraversed()) return;
  if (auto* dialog = arbora::as<NkTopLevelDialog>(m_parent))
    dialog->updateAfterSceneGraphChange();
  else if (auto* group = arbora::as<NkDialogGroup>(m_parent))
    group->updateAfterSceneGraphChange();
}

// Building

void NkDialogGroup::buildWidget(HWND parent, NbVec2i32& size, NbVec2i32& position, int is2D) {
  const arbora::KeepAlive alive(this);
  NkDialogComponent::buildWidget(parent, size, position, is2D);
  if (!is2D && !m_parent && !m_defaultAuditor) m_defaultAuditor = std::make_unique<NkDialogGroupAuditor>();
  m_holdUpdates = 0;
  setScrollProperties();
}

// 2D form

void NkDialogGroup::destroyWidget() {
  forEachChild([](NkDialogComponent* child) { child->destroyWidget(); });
  NkDialogComponent::destroyWidget();
}

void NkDialogGroup::setScrollProperties() {
  // Without a window there is nothing to scroll, and nothing that the content could be too large for.
  const bool hasWindow = existWidget(m_widget);
  SizeTriple content;
  if (hasWindow) getDefaultSize(content.size, content.min, content.max);
  m_vScrollOn = vScrollVisibility.getValue() == ALWAYS;
  m_hScrollOn = hScrollVisibility.getValue() == ALWAYS;
  if (!hasWindow) return;
  const NbVec2i32 windowSize = panelix::outerSize(m_widget);
  fixSizeWithBorder(content.min, 1);
  if (vScrollVisibility.getValue() == AUTO && content.min[1] > windowSize[1]) m_vScrollOn = TRUE;
  if (hScrollVisibility.getValue() == AUTO && content.min[0] > windowSize[0]) m_hScrollOn = TRUE;
  const auto setRange = [this](int bar, int max, int page) {
    panelix::setScrollRange(m_widget, bar, max, page, panelix::scrollPosition(m_widget, bar));
  };
  if (m_vScrollOn)
    setRange(SB_VERT, panelix::addSaturating(content.min[1], m_hScrollOn ? kScrollBar : 0), windowSize[1]);
  if (m_hScrollOn)
    setRange(SB_HORZ, panelix::addSaturating(content.min[0], m_vScrollOn ? kScrollBar : 0), windowSize[0]);
  ShowScrollBar(m_widget, SB_VERT, m_vScrollOn);
  ShowScrollBar(m_widget, SB_HORZ, m_hScrollOn);
}

void NkDialogGroup::updateGroupWidgetScrollPosition() {
  if (m_vScrollOn) {
    panelix::scrollToPosition(m_widget, SB_VERT);
    UpdateWindow(m_widget);
  }
  if (m_hScrollOn) {
    panelix::scrollToPosition(m_widget, SB_HORZ);
    UpdateWindow(m_widget);
  }
}

void NkDialogGroup::changeEnable() {
  NkDialogComponent::changeEnable();
  changeWidgetEnable(enable.getValue());
}

void NkDialogGroup::changeWidgetEnable(int on) {
  const int childrenOn = on ? enable.getValue() : 0;
  forEachChild([childrenOn](NkDialogComponent* child) { child->changeWidgetEnable(childrenOn); });
}

// 3D form

void NkDialogGroup::getBoundingBox(NkGetBoundingBoxAction* action) {
  if (!isBuilt3D()) {
    const bool wasEnabled = enableNotify(false);
    NkPanelix* top = getFirstTopParent(0, 1);
    if (top && !top->isBuilt3D()) {
      setChildrenLabelSize();
      setChildrenComponentSize();
      if (top != this) top->setCanBeTraversed(0);
    }
    NbVec2i32 size(0, 0);
    NbVec2i32 position(0, 0);
    buildWidget(nullptr, size, position, 0);
    enableNotify(wasEnabled);
  }
  NkDragger::getBoundingBox(action);
}

void NkDialogGroup::show3D(int on) {
  NkPanelix::show3D(on);
  forEachChild([on](NkDialogComponent* child) { child->show3D(on); });
}

void NkDialogGroup::change3DPosition() {
  // A child that has come without a layout isn't built yet; the build finds the parent's place.
  if (!isBuilt3D()) return;
  NbVec3f translation(0, 0, 0);
  apply3DTranslation(mainCptSeparator.getValue(), m_depth3D, translation);
  forEachChild([&](NkDialogComponent* child) {
    child->set3DParentTranslation(translation);
    child->change3DPosition();
  });
}

void NkDialogGroup::change3DEnable() {
  NkPanelix::change3DEnable();
  change3DWidgetEnable(enable.getValue());
}

void NkDialogGroup::change3DWidgetEnable(int on) {
  const int childrenOn = on ? enable.getValue() : 0;
  forEachChild([childrenOn](NkDialogComponent* child) { child->change3DWidgetEnable(childrenOn); });
}

// Auditors

void NkDialogGroup::applyAuditors() { panelix::applyAuditorsBelow(*this); }

NkPanelix* NkDialogGroup::searchForAuditorId(NbString id) { return panelix::findAuditorId(*this, id); }

void NkDialogGroup::applyAuditor(NkPanelix* source) {
  if (callAuditors(panelix::tellDialogKinds, source)) return;
  if (m_parent)
    m_parent->applyAuditor(source);
  else if (m_defaultAuditor)
    panelix::tellDialogKinds(m_defaultAuditor.get(), source);
}
