#pragma once

#include "arbora/scene/NkShape.h"

namespace arbora {
class FaceBuilder;
}

/// Base of the shapes that are made of polygons over the coordinates, normals and texture coordinates that stand ahead
/// of them in the scene. Polygons may be concave. One with a coordinate that isn't finite, or without an area, is
/// dropped.
class ARBORA_API NkPolygonShape : public NkShape {
  NK_NODE_ABSTRACT_HEADER(NkPolygonShape);

public:
  const std::vector<arbora::PlacedMesh>& getMeshes(NkState& state) override;
  void fieldHasChanged(NkField* field) override;

protected:
  NkPolygonShape();
  ~NkPolygonShape() override;

  /// Hands the polygons to the builder.
  virtual void buildFaces(const NkState& state, arbora::FaceBuilder& builder) = 0;
  /// Posts that faces are left out, once for each node: a scene that is changed often isn't to repeat it.
  void reportDroppedFaces(const char* location, const char* reason);

private:
  // The nodes that the mesh was made of: their ids change with their contents.
  struct Sources {
    std::uint64_t coordinates = 0;
    std::uint64_t normals = 0;
    std::uint64_t textureCoordinates = 0;
    friend bool operator==(const Sources&, const Sources&) = default;
  };
  std::vector<arbora::PlacedMesh> m_meshes;
  Sources m_sources;
  bool m_valid = false;
  bool m_reported = false;
};
