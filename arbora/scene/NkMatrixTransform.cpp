#include "arbora/scene/NkMatrixTransform.h"

NK_NODE_SOURCE(NkMatrixTransform, NkTransformation, "MatrixTransform");

NkMatrixTransform::NkMatrixTransform() {
  NK_NODE_CONSTRUCTOR(NkMatrixTransform);
  NK_NODE_ADD_FIELD(matrix, (NbMatrix()));
}

NkMatrixTransform::~NkMatrixTransform() = default;

NbMatrix NkMatrixTransform::getTransformMatrix() const {
  NbMatrix affine = matrix.getValue();
  for (int row = 0; row < 4; ++row) affine[row][3] = row < 3 ? 0.0F : 1.0F;
  return affine;
}
