#include "arbora/scene/NkIndexedFaceSet.h"

#include <algorithm>

#include "arbora/scene/FaceBuilder.h"
#include "arbora/scene/NkCoordinate3.h"
#include "arbora/scene/NkNormal.h"
#include "arbora/scene/NkState.h"
#include "arbora/scene/NkTextureCoordinate2.h"

NK_NODE_SOURCE(NkIndexedFaceSet, NkPolygonShape, "IndexedFaceSet");

NkIndexedFaceSet::NkIndexedFaceSet() {
  NK_NODE_CONSTRUCTOR(NkIndexedFaceSet);
  NK_NODE_ADD_FIELD(coordIndex, (0));
  NK_NODE_ADD_FIELD(normalIndex, (0));
  NK_NODE_ADD_FIELD(textureCoordIndex, (0));
  for (NkMFInt32* field : {&coordIndex, &normalIndex, &textureCoordIndex}) {
    field->setNum(0);
    field->setDefault(true);
  }
}

NkIndexedFaceSet::~NkIndexedFaceSet() = default;

namespace {

int countFaces(const NkMFInt32& indices) {
  int count = 0;
  for (int i = 0; i < indices.getNum(); ++i) {
    if (indices[i] >= 0 && (i + 1 == indices.getNum() || indices[i + 1] < 0)) ++count;
  }
  return count;
}

/// How the corners of the faces find their normals.
enum class Binding { NONE, BY_NORMAL_INDEX, BY_COORD_INDEX, INDEX_PER_FACE, PER_FACE, OVERALL };

} // namespace

void NkIndexedFaceSet::buildFaces(const NkState& state, arbora::FaceBuilder& builder) {
  const NkMFVec3f& points = state.coordinates->point;
  const int count = coordIndex.getNum();
  const int faceCount = countFaces(coordIndex);

  const NkMFVec3f* normals = state.normals ? &state.normals->vector : nullptr;
  const int normalCount = normals ? normals->getNum() : 0;
  Binding binding = Binding::NONE;
  if (normalCount > 0 && normalIndex.getNum() > 0) {
    const bool onePerFace = normalIndex.getNum() == faceCount && normalIndex.getNum() < count;
    binding = onePerFace ? Binding::INDEX_PER_FACE : Binding::BY_NORMAL_INDEX;
  } else if (normalCount > 0) {
    if (normalCount == points.getNum())
      binding = Binding::BY_COORD_INDEX;
    else if (normalCount == faceCount)
      binding = Binding::PER_FACE;
    else if (normalCount == 1)
      binding = Binding::OVERALL;
  }
  const NkMFVec2f* texture = state.textureCoordinates ? &state.textureCoordinates->point : nullptr;
  const NkMFInt32& textureIndices = textureCoordIndex.getNum() > 0 ? textureCoordIndex : coordIndex;

  const auto normalFor = [&](int corner, int face) {
    switch (binding) {
      case Binding::BY_NORMAL_INDEX:
        return corner < normalIndex.getNum() ? normalIndex[corner] : -1;
      case Binding::BY_COORD_INDEX:
        return coordIndex[corner];
      case Binding::INDEX_PER_FACE:
        return normalIndex[face];
      case Binding::PER_FACE:
        return face;
      default:
        return 0;
    }
  };

  int face = 0;
  for (int first = 0; first < count;) {
    int end = first;
    while (end < count && coordIndex[end] >= 0) ++end;
    if (end == first) {
      ++first;
      continue;
    }
    const auto allCorners = [&](auto&& test) {
      for (int corner = first; corner < end; ++corner) {
        if (!test(corner)) return false;
      }
      return true;
    };
    if (!allCorners([&](int corner) { return coordIndex[corner] < points.getNum(); })) {
      reportDroppedFaces("NkIndexedFaceSet::coordIndex", "an index is behind the last coordinate");
    } else {
      const bool hasNormals = binding != Binding::NONE && allCorners([&](int corner) {
                                const int index = normalFor(corner, face);
                                return index >= 0 && index < normalCount;
                              });
      const bool hasTexture = texture && allCorners([&](int corner) {
                                const int index = corner < textureIndices.getNum() ? textureIndices[corner] : -1;
                                return index >= 0 && index < texture->getNum();
                              });
      builder.beginFace(hasNormals, hasTexture);
      for (int corner = first; corner < end; ++corner) {
        arbora::Vertex vertex;
        vertex.position = points[coordIndex[corner]];
        if (hasNormals) vertex.normal = (*normals)[normalFor(corner, face)];
        if (hasTexture) vertex.texture = (*texture)[textureIndices[corner]];
        builder.addCorner(vertex);
      }
      builder.endFace();
    }
    ++face;
    first = end + 1;
  }
}
