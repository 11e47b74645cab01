#include "arbora/scene/NkTransform.h"

NK_NODE_SOURCE(NkTransform, NkTransformation, "Transform");

NkTransform::NkTransform() {
  NK_NODE_CONSTRUCTOR(NkTransform);
  NK_NODE_ADD_FIELD(translation, (NbVec3f(0, 0, 0)));
  NK_NODE_ADD_FIELD(rotation, (NbRotation()));
  NK_NODE_ADD_FIELD(scaleFactor, (NbVec3f(1, 1, 1)));
  NK_NODE_ADD_FIELD(scaleOrientation, (NbRotation()));
  NK_NODE_ADD_FIELD(center, (NbVec3f(0, 0, 0)));
}

NkTransform::~NkTransform() = default;

void NkTransform::setMatrix(const NbMatrix& matrix) {
  NbVec3f newTranslation;
  NbVec3f newScale;
  NbRotation newRotation;
  NbRotation newOrientation;
  matrix.getTransform(newTranslation, newRotation, newScale, newOrientation, center.getValue());
  const arbora::KeepAlive alive(this);
  translation = newTranslation;
  rotation = newRotation;
  scaleFactor = newScale;
  scaleOrientation = newOrientation;
}

NbMatrix NkTransform::getTransformMatrix() const {
  NbMatrix matrix;
  matrix.setTransform(translation.getValue(), rotation.getValue(), scaleFactor.getValue(), scaleOrientation.getValue(),
                      center.getValue());
  return matrix;
}
