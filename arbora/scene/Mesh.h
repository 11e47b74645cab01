#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "arbora/base/NbBox3f.h"
#include "arbora/base/NbVec2f.h"
#include "arbora/base/NbVec3f.h"
#include "arbora/scene/NkRefCounter.h"

namespace arbora {

struct Vertex {
  NbVec3f position;
  NbVec3f normal;
  NbVec2f texture;
  friend bool operator==(const Vertex&, const Vertex&) = default;
};

class MeshHierarchy;

/// Triangles that never change. Shapes of equal form share one mesh, so that they are drawn in one call: a mesh is
/// had from the pool alone, which gives the one that stands if the contents are the same.
class ARBORA_API Mesh : public NkRefCounter {
public:
  /// The mesh with these contents; `indices` are triangles. A triangle with an index out of
  /// range or a position that isn't finite is dropped.
  static Ref<Mesh> intern(std::vector<Vertex> vertices, std::vector<std::uint32_t> indices);

  const std::vector<Vertex>& getVertices() const { return m_vertices; }
  const std::vector<std::uint32_t>& getIndices() const { return m_indices; }
  const NbBox3f& getBox() const { return m_box; }
  /// Unique for the process; never used again.
  std::uint64_t getId() const { return m_id; }

  /// Nearest hit of the ray `start + t * direction` with t in [0, tMax].
  struct Hit {
    float t;
    NbVec3f normal;
    NbVec2f texture;
    std::uint32_t triangle;
  };
  bool intersect(const NbVec3f& start, const NbVec3f& direction, float tMax, Hit& hit) const;

  /// Number of meshes in the pool, for leak checks.
  static int getPoolSize();

protected:
  void destroy() override;

private:
  Mesh(std::vector<Vertex> vertices, std::vector<std::uint32_t> indices, std::uint64_t hash);
  ~Mesh() override;
  std::vector<Vertex> m_vertices;
  std::vector<std::uint32_t> m_indices;
  NbBox3f m_box;
  std::uint64_t m_hash;
  std::uint64_t m_id;
  mutable std::unique_ptr<MeshHierarchy> m_hierarchy; // Of a large mesh; made by its first pick.
};

/// A mesh in a shape's local space: scaled, then moved.
struct ARBORA_API PlacedMesh {
  Ref<Mesh> mesh;
  NbVec3f scale{1.0f, 1.0f, 1.0f};
  NbVec3f offset{0.0f, 0.0f, 0.0f};

  /// In the shape's local space.
  NbBox3f getBox() const;
};

} // namespace arbora
