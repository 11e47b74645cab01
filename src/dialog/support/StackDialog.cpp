#include "Panelix/StackDialog.h"

#include "Panelix/NkDialogSeparator.h"
#include "arbora/scene/NkDBImpl.h"
#include "src/dialog/support/StackLayout.h"

namespace panelix {
namespace {

/// From the corner to the first child: what the edges leave free, and all of them in 3D. Without an edge it is given
/// back.
constexpr int kNoneOffset = 3;
constexpr int kShadowInOffset = 2;
constexpr int kOffset3D = 3;

} // namespace

StackDialog::StackDialog(int along, NkSFInt32& spacing) : m_along(along), m_spacing(spacing) {}

StackDialog::~StackDialog() = default;

void StackDialog::watchSpacing() { attachSensor(m_spacingSensor, m_spacing); }

// Sizes

void StackDialog::fixSizeWithBorder(NbVec2i32& size, int factor) {
  addBorder(size, NbVec2i32(kBorder, kBorder), factor);
  NkDialogGroup::fixSizeWithBorder(size, factor);
}

void StackDialog::getDefaultSize(NbVec2i32& size, NbVec2i32& min, NbVec2i32& max) {
  updateChildrenSizeDB();
  int i = 0;
  forEachChild([&](NkDialogComponent* child) {
    SizeTriple triple;
    child->getSize(triple.size, triple.min, triple.max);
    m_sizes.set(i++, triple);
  });
  SizeTriple content = stackSizes(m_sizes, m_along);
  if (getNumChildren() == 0) content.max = NbVec2i32(kUnbounded, kUnbounded);
  addStackBorder(content, m_along, margin.getValue(), gapsBetween(getNumChildren(), m_spacing.getValue()));
  size = content.size;
  min = content.min;
  max = content.max;
}

NbVec2i32 StackDialog::getComponentInitSize() {
  if (m_componentInitSize[0] != -1) return m_componentInitSize;
  const int across = 1 - m_along;
  // The margin counts for the whole along the stack; across it only sets a floor.
  const int bothMargins = addSaturating(0, 2LL * margin.getValue());
  NbVec2i32 natural(bothMargins, bothMargins);
  forEachChild([&](NkDialogComponent* child) {
    if (auto* separator = arbora::as<NkDialogSeparator>(child)) separator->setOrientationHorz(m_along == 1);
    const NbVec2i32 size = child->getComponentInitSize();
    natural[across] = std::max(natural[across], size[across]);
    natural[m_along] = addSaturating(natural[m_along], size[m_along]);
  });
  natural[m_along] = addSaturating(natural[m_along], gapsBetween(getNumChildren(), m_spacing.getValue()));
  m_componentInitSize = natural;
  return natural;
}

void StackDialog::shareOut(const NbVec2i32& target) {
  SizeTriple content;
  getDefaultSize(content.size, content.min, content.max);
  m_sizes.share(m_along, static_cast<long long>(target[m_along]) - content.size[m_along]);
}

// Building

void StackDialog::buildWidget(HWND parent, NbVec2i32& size, NbVec2i32& position, int is2D) {
  const arbora::KeepAlive alive(this);
  updateChildrenSizeDB();
  const bool isFirst2D = is2D && !existWidget(m_widget);
  const bool isFirst3D = !is2D && !isBuilt3D();
  NkDialogGroup::buildWidget(parent, size, position, is2D);
  if (is2D) {
    placeChildren(NkDBImpl::m_isVerra ? 0 : 1, true);
  } else {
    placeChildren(0, false);
    setBuilt3D(1);
  }
  // The children are there only now.
  if (isFirst2D) changeWidgetEnable(enable.getValue());
  if (isFirst3D) change3DWidgetEnable(enable.getValue());
}

void StackDialog::placeChildren(int is2D, bool inWindow) {
  const bool hasEdge = edgeStyle.getValue() != NONE;
  NbVec2i32 available(width.getValue(), height.getValue());
  fixSizeWithBorder(available, -1);
  if (!hasEdge) available[m_along] = addSaturating(available[m_along], kBorder);
  shareOut(available);

  const int across = 1 - m_along;
  int offset = kOffset3D;
  if (inWindow) offset = hasEdge ? (edgeStyle.getValue() == SHADOW_IN ? kShadowInOffset : 0) : kNoneOffset;
  if (!hasEdge) offset -= kNoneOffset;
  const int corner = addSaturating(margin.getValue(), offset);
  NbVec2i32 position(corner, corner);
  NbVec2i32 childSize(0, 0);
  childSize[across] = addSaturating(available[across], (hasEdge ? 0 : kBorder) - 2LL * margin.getValue());

  NbVec3f translation(0, 0, 0);
  if (!inWindow) apply3DTranslation(mainCptSeparator.getValue(), m_depth3D, translation);
  int i = 0;
  forEachChild([&](NkDialogComponent* child) {
    if (!inWindow) child->set3DParentTranslation(translation);
    if (i < m_sizes.getCount()) childSize[m_along] = m_sizes[i++].size[m_along];
    child->buildWidget(inWindow ? m_widget : nullptr, childSize, position, is2D);
    // A child that takes another size than it is offered moves those behind it.
    const long long taken = (m_along == 0 ? child->width : child->height).getValue();
    position[m_along] = addSaturating(position[m_along], taken + m_spacing.getValue());
  });
}

void StackDialog::updateFromSensor(NkSensor* sensor) {
  const arbora::KeepAlive alive(this);
  if (sensor != m_spacingSensor.get()) {
    NkDialogGroup::updateFromSensor(sensor);
  } else if (m_built2D) {
    placeChildren(NkDBImpl::m_isVerra ? 0 : 1, true);
  }
}

} // namespace panelix
