#include "arbora/scene/NkScale.h"

NK_NODE_SOURCE(NkScale, NkTransformation, "Scale");

NkScale::NkScale() {
  NK_NODE_CONSTRUCTOR(NkScale);
  NK_NODE_ADD_FIELD(scaleFactor, (NbVec3f(1, 1, 1)));
}

NkScale::~NkScale() = default;

NbMatrix NkScale::getTransformMatrix() const {
  NbMatrix matrix;
  matrix.setScale(scaleFactor.getValue());
  return matrix;
}
