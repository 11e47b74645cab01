#pragma once

#include <algorithm>

#include "Panelix/NkDialogComponent.h"
#include "Panelix/SizeDatabase.h"

namespace panelix {

/// Adds a child's limit to the sum of a stack's. One unbounded child makes the whole unbounded; a sum that would exceed
/// what can be told stops growing.
inline int addLimit(int sum, int limit) {
  if (sum == kUnbounded || limit == kUnbounded) return kUnbounded;
  const long long next = static_cast<long long>(sum) + limit;
  return next <= kUnbounded ? addSaturating(sum, limit) : sum;
}

/// The triple of the components of a stack, from those in the database.
inline SizeTriple stackSizes(const SizeDatabase& sizes, int along) {
  const int across = 1 - along;
  SizeTriple sum;
  for (int i = 0; i < sizes.getCount(); ++i) {
    const SizeTriple& child = sizes[i];
    sum.size[across] = std::max(sum.size[across], child.size[across]);
    sum.min[across] = std::max(sum.min[across], child.min[across]);
    sum.max[across] = std::max(sum.max[across], child.max[across]);
    sum.size[along] = addSaturating(sum.size[along], child.size[along]);
    sum.min[along] = addSaturating(sum.min[along], child.min[along]);
    sum.max[along] = addLimit(sum.max[along], child.max[along]);
  }
  return sum;
}

/// All that lies between the components of a stack, in pixels. Without any it is one gap less than nothing.
inline long long gapsBetween(int count, int spacing) { return (count - 1LL) * spacing; }

/// Adds what lies around the components of a stack, along each side, and between them.
inline void addStackBorder(SizeTriple& triple, int along, int margin, long long gaps) {
  for (NbVec2i32* value : {&triple.size, &triple.min, &triple.max}) {
    (*value)[along] = addSaturating((*value)[along], 2LL * margin + gaps);
    (*value)[1 - along] = addSaturating((*value)[1 - along], 2LL * margin);
  }
}

/// Gives the labels of a form one width, that of the widest one that shows. `forEach` calls what it is given with each
/// component.
template <class ForEach>
void alignLabels(ForEach&& forEach, bool hiddenHaveHeight) {
  int width = 0;
  forEach([&](NkDialogComponent& component) {
    if (component.labelVisibility.getValue()) width = std::max(width, component.getLabelInitSize()[0]);
  });
  forEach([&](NkDialogComponent& component) {
    const bool hasHeight = hiddenHaveHeight || component.labelVisibility.getValue();
    NbVec2i32 size(width, hasHeight ? component.getLabelInitSize()[1] : 0);
    component.setLabelSize(size);
  });
}

/// Height of a component area: at least that of the label beside it.
inline int areaHeight(NkDialogComponent& component) {
  const int height = component.getComponentInitSize()[1];
  return component.labelVisibility.getValue() ? std::max(height, component.getLabelInitSize()[1]) : height;
}

/// Gives the component areas of a form one width, that of the widest.
template <class ForEach>
void alignComponents(ForEach&& forEach) {
  int width = 0;
  forEach([&](NkDialogComponent& component) { width = std::max(width, component.getComponentInitSize()[0]); });
  forEach([&](NkDialogComponent& component) {
    NbVec2i32 size(width, areaHeight(component));
    component.setComponentSize(size);
  });
}

} // namespace panelix
