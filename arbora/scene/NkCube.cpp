#include "arbora/scene/NkCube.h"

#include "arbora/scene/MeshFactory.h"

NK_NODE_SOURCE(NkCube, NkShape, "Cube");

NkCube::NkCube() {
  NK_NODE_CONSTRUCTOR(NkCube);
  NK_NODE_ADD_FIELD(width, (2));
  NK_NODE_ADD_FIELD(height, (2));
  NK_NODE_ADD_FIELD(depth, (2));
}

NkCube::~NkCube() = default;

const std::vector<arbora::PlacedMesh>& NkCube::getMeshes(NkState&) {
  if (m_meshes.empty()) {
    m_meshes.push_back({getUnitMesh(arbora::UnitMesh::CUBE),
                        NbVec3f(arbora::usableSize(width.getValue()), arbora::usableSize(height.getValue()),
                                arbora::usableSize(depth.getValue()))});
  }
  return m_meshes;
}

void NkCube::fieldHasChanged(NkField* field) {
  m_meshes.clear();
  NkShape::fieldHasChanged(field);
}
