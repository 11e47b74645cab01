#include "arbora/scene/NkFaceSet.h"

#include "arbora/scene/FaceBuilder.h"
#include "arbora/scene/NkCoordinate3.h"
#include "arbora/scene/NkNormal.h"
#include "arbora/scene/NkState.h"
#include "arbora/scene/NkTextureCoordinate2.h"

NK_NODE_SOURCE(NkFaceSet, NkPolygonShape, "FaceSet");

NkFaceSet::NkFaceSet() {
  NK_NODE_CONSTRUCTOR(NkFaceSet);
  NK_NODE_ADD_FIELD(startIndex, (0));
  NK_NODE_ADD_FIELD(numVertices, (-1));
}

NkFaceSet::~NkFaceSet() = default;

void NkFaceSet::buildFaces(const NkState& state, arbora::FaceBuilder& builder) {
  const NkMFVec3f& points = state.coordinates->point;
  const int start = startIndex.getValue() > 0 ? startIndex.getValue() : 0;

  // The faces as numbers of corners, so far as there are coordinates.
  std::vector<int> faces;
  int end = start;
  for (int i = 0; i < numVertices.getNum() && end < points.getNum(); ++i) {
    const int left = points.getNum() - end;
    if (numVertices[i] > left) {
      reportDroppedFaces("NkFaceSet::numVertices", "a face has more corners than there are coordinates");
      break;
    }
    faces.push_back(numVertices[i] < 0 ? left : numVertices[i]);
    end += faces.back();
  }

  const NkMFVec3f* normals = state.normals ? &state.normals->vector : nullptr;
  const int normalCount = normals ? normals->getNum() : 0;
  const bool perCorner = normalCount > 0 && normalCount == end - start;
  const bool perFace = normalCount > 0 && !perCorner && normalCount == static_cast<int>(faces.size());
  const NkMFVec2f* texture = state.textureCoordinates ? &state.textureCoordinates->point : nullptr;
  const bool textured = texture && texture->getNum() >= end - start;

  int corner = 0;
  for (int face = 0; face < static_cast<int>(faces.size()); ++face) {
    builder.beginFace(perCorner || perFace || normalCount == 1, textured);
    for (int i = 0; i < faces[static_cast<std::size_t>(face)]; ++i, ++corner) {
      arbora::Vertex vertex;
      vertex.position = points[start + corner];
      if (normalCount > 0 && (perCorner || perFace || normalCount == 1))
        vertex.normal = (*normals)[perCorner ? corner : perFace ? face : 0];
      if (textured) vertex.texture = (*texture)[corner];
      builder.addCorner(vertex);
    }
    builder.endFace();
  }
}
