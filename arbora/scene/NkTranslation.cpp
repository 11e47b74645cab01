#include "arbora/scene/NkTranslation.h"

#include <cmath>

#include "arbora/scene/NkAction.h"

NK_NODE_SOURCE(NkTranslation, NkTransformation, "Translation");

NkTranslation::NkTranslation() {
  NK_NODE_CONSTRUCTOR(NkTranslation);
  NK_NODE_ADD_FIELD(translation, (NbVec3f(0, 0, 0)));
}

NkTranslation::~NkTranslation() = default;

NbMatrix NkTranslation::getTransformMatrix() const {
  NbMatrix matrix;
  matrix.setTranslate(translation.getValue());
  return matrix;
}

// The most frequent of all transforms: only the last row of the product differs.
void NkTranslation::doAction(NkAction* action) {
  const NbVec3f& by = translation.getValue();
  if (!std::isfinite(by[0]) || !std::isfinite(by[1]) || !std::isfinite(by[2])) return;
  NbMatrix& model = action->getState()->model;
  for (int column = 0; column < 4; ++column)
    model[3][column] += by[0] * model[0][column] + by[1] * model[1][column] + by[2] * model[2][column];
}
