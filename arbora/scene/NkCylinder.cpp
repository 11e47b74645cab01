#include "arbora/scene/NkCylinder.h"

#include "arbora/scene/MeshFactory.h"

NK_NODE_SOURCE(NkCylinder, NkShape, "Cylinder");

NkCylinder::NkCylinder() {
  NK_NODE_CONSTRUCTOR(NkCylinder);
  NK_NODE_DEFINE_ENUM_VALUE(Part, SIDES);
  NK_NODE_DEFINE_ENUM_VALUE(Part, TOP);
  NK_NODE_DEFINE_ENUM_VALUE(Part, BOTTOM);
  NK_NODE_DEFINE_ENUM_VALUE(Part, ALL);
  NK_NODE_ADD_FIELD(radius, (1));
  NK_NODE_ADD_FIELD(height, (2));
  NK_NODE_ADD_FIELD(parts, (ALL));
  NK_NODE_SET_SF_ENUM_TYPE(parts, Part);
}

NkCylinder::~NkCylinder() = default;

const std::vector<arbora::PlacedMesh>& NkCylinder::getMeshes(NkState&) {
  if (m_meshes.empty()) {
    const float r = arbora::usableSize(radius.getValue());
    const float h = arbora::usableSize(height.getValue());
    if (parts.getValue() & SIDES) m_meshes.push_back({getUnitMesh(arbora::UnitMesh::CYLINDER_SIDES), NbVec3f(r, h, r)});
    if (parts.getValue() & TOP)
      m_meshes.push_back({getUnitMesh(arbora::UnitMesh::DISC_UP), NbVec3f(r, 1, r), NbVec3f(0, h / 2, 0)});
    if (parts.getValue() & BOTTOM)
      m_meshes.push_back({getUnitMesh(arbora::UnitMesh::DISC_DOWN), NbVec3f(r, 1, r), NbVec3f(0, -h / 2, 0)});
  }
  return m_meshes;
}

void NkCylinder::fieldHasChanged(NkField* field) {
  m_meshes.clear();
  NkShape::fieldHasChanged(field);
}
