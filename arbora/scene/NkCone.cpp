#include "arbora/scene/NkCone.h"

#include "arbora/scene/MeshFactory.h"

NK_NODE_SOURCE(NkCone, NkShape, "Cone");

NkCone::NkCone() {
  NK_NODE_CONSTRUCTOR(NkCone);
  NK_NODE_DEFINE_ENUM_VALUE(Part, SIDES);
  NK_NODE_DEFINE_ENUM_VALUE(Part, BOTTOM);
  NK_NODE_DEFINE_ENUM_VALUE(Part, ALL);
  NK_NODE_ADD_FIELD(bottomRadius, (1));
  NK_NODE_ADD_FIELD(height, (2));
  NK_NODE_ADD_FIELD(parts, (ALL));
  NK_NODE_SET_SF_ENUM_TYPE(parts, Part);
}

NkCone::~NkCone() = default;

const std::vector<arbora::PlacedMesh>& NkCone::getMeshes(NkState&) {
  if (m_meshes.empty()) {
    const float r = arbora::usableSize(bottomRadius.getValue());
    const float h = arbora::usableSize(height.getValue());
    if (parts.getValue() & SIDES) m_meshes.push_back({getUnitMesh(arbora::UnitMesh::CONE_SIDES), NbVec3f(r, h, r)});
    if (parts.getValue() & BOTTOM)
      m_meshes.push_back({getUnitMesh(arbora::UnitMesh::DISC_DOWN), NbVec3f(r, 1, r), NbVec3f(0, -h / 2, 0)});
  }
  return m_meshes;
}

void NkCone::fieldHasChanged(NkField* field) {
  m_meshes.clear();
  NkShape::fieldHasChanged(field);
}
