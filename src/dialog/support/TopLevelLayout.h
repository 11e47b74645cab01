#pragma once

#include "Panelix/NkDialogComponent.h"
#include "Panelix/NkMenuBar.h"
#include "Panelix/NkTopLevelDialog.h"

template <class Build>
void NkTopLevelDialog::placeChildren(Build&& build) {
  NbVec2i32 available(width.getValue(), height.getValue());
  fixSizeWithBorder(available, -1);
  computeNewChildrenHeight(available);
  NbVec2i32 corner(margin.getValue(), margin.getValue());
  NbVec2i32 size(panelix::addSaturating(available[0], -2LL * margin.getValue()), 0);
  int i = 0;
  forEachChild([&](NkTopComponent* child) {
    const int row = i++;
    // The bar stands at the window's top, wherever it is among the children.
    const bool isMenuBar = child->isOfType(NkMenuBar::getClassTypeId());
    if (!isMenuBar && row < m_sizes.getCount()) size[1] = m_sizes[row].size[1];
    build(child, size, corner, isMenuBar);
    // A child that takes another size than it is offered moves those behind it.
    if (auto* component = arbora::as<NkDialogComponent>(child))
      corner[1] = panelix::addSaturating(corner[1],
                                         static_cast<long long>(component->height.getValue()) + rowSpacing.getValue());
  });
}
