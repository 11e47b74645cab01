#include "arbora/scene/NkRotation.h"

NK_NODE_SOURCE(NkRotation, NkTransformation, "Rotation");

NkRotation::NkRotation() {
  NK_NODE_CONSTRUCTOR(NkRotation);
  NK_NODE_ADD_FIELD(rotation, (NbRotation()));
}

NkRotation::~NkRotation() = default;

NbMatrix NkRotation::getTransformMatrix() const {
  NbMatrix matrix;
  matrix.setRotate(rotation.getValue());
  return matrix;
}
