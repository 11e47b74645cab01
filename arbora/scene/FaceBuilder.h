#pragma once

#include <cstdint>
#include <vector>

#include "arbora/scene/Mesh.h"

namespace arbora {

/// Makes one mesh of polygons.
class FaceBuilder {
public:
  /// Opens a face. Its normals and texture coordinates count only where it has them.
  void beginFace(bool hasNormals, bool hasTexture);
  void addCorner(const Vertex& corner) { m_corners.push_back(corner); }
  /// Takes the face up, in triangles. One without an area, or with a position that isn't finite, is left out.
  void endFace();

  /// The mesh of all faces. Where faces have no texture coordinates, an image fills the mesh's box along its longest
  /// side and lies along the second longest.
  Ref<Mesh> finish();

private:
  bool isConvex(int u, int v) const;
  void addTessellated(int u, int v, const NbVec3f& normal);
  void addDefaultTexture();

  std::vector<Vertex> m_corners;
  bool m_hasNormals = false;
  bool m_hasTexture = false;
  bool m_anyWithoutTexture = false;
  std::vector<Vertex> m_vertices;
  std::vector<std::uint32_t> m_indices;
};

} // namespace arbora
