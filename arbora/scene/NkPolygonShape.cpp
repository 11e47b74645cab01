#include "arbora/scene/NkPolygonShape.h"

#include "arbora/base/NkDebugError.h"
#include "arbora/scene/FaceBuilder.h"
#include "arbora/scene/NkCoordinate3.h"
#include "arbora/scene/NkNormal.h"
#include "arbora/scene/NkState.h"
#include "arbora/scene/NkTextureCoordinate2.h"

NK_NODE_ABSTRACT_SOURCE(NkPolygonShape, NkShape, "PolygonShape");

NkPolygonShape::NkPolygonShape() { NK_NODE_CONSTRUCTOR(NkPolygonShape); }

NkPolygonShape::~NkPolygonShape() = default;

const std::vector<arbora::PlacedMesh>& NkPolygonShape::getMeshes(NkState& state) {
  state.markUsed(NkState::COORDINATES);
  const auto idOf = [](const NkNode* node) { return node ? node->getNodeId() : 0; };
  const Sources sources{idOf(state.coordinates), idOf(state.normals), idOf(state.textureCoordinates)};
  if (m_valid && sources == m_sources) return m_meshes;
  m_sources = sources;
  m_valid = true;
  m_meshes.clear();
  if (!state.coordinates) return m_meshes;
  arbora::FaceBuilder builder;
  buildFaces(state, builder);
  const arbora::Ref<arbora::Mesh> mesh = builder.finish();
  if (!mesh->getIndices().empty()) m_meshes.push_back({mesh});
  return m_meshes;
}

void NkPolygonShape::fieldHasChanged(NkField* field) {
  m_valid = false;
  NkShape::fieldHasChanged(field);
}

void NkPolygonShape::reportDroppedFaces(const char* location, const char* reason) {
  if (m_reported) return;
  m_reported = true;
  NkDebugError::postWarning(location, "%s: such faces are left out", reason);
}
