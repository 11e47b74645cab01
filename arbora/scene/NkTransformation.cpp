#include "arbora/scene/NkTransformation.h"

#include <algorithm>
#include <cmath>

#include "arbora/scene/NkAction.h"

NK_NODE_ABSTRACT_SOURCE(NkTransformation, NkNode, "Transformation");

NkTransformation::NkTransformation() { NK_NODE_CONSTRUCTOR(NkTransformation); }

NkTransformation::~NkTransformation() = default;

void NkTransformation::doAction(NkAction* action) {
  const NbMatrix matrix = getTransformMatrix();
  const float* values = matrix.getValue();
  if (std::all_of(values, values + 16, [](float value) { return std::isfinite(value); }))
    action->getState()->model.multLeft(matrix);
}
