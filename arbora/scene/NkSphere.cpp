#include "arbora/scene/NkSphere.h"

#include "arbora/scene/MeshFactory.h"

NK_NODE_SOURCE(NkSphere, NkShape, "Sphere");

NkSphere::NkSphere() {
  NK_NODE_CONSTRUCTOR(NkSphere);
  NK_NODE_ADD_FIELD(radius, (1));
}

NkSphere::~NkSphere() = default;

const std::vector<arbora::PlacedMesh>& NkSphere::getMeshes(NkState&) {
  if (m_meshes.empty()) {
    const float r = arbora::usableSize(radius.getValue());
    m_meshes.push_back({getUnitMesh(arbora::UnitMesh::SPHERE), NbVec3f(r, r, r)});
  }
  return m_meshes;
}

void NkSphere::fieldHasChanged(NkField* field) {
  m_meshes.clear();
  NkShape::fieldHasChanged(field);
}
