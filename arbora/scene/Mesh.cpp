#include "arbora/scene/Mesh.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <numeric>
#include <unordered_map>

#include "arbora/scene/RayBox.h"

namespace arbora {

namespace {

using Pool = std::unordered_multimap<std::uint64_t, Mesh*>;

// Never destroyed: static objects of other sources may hold meshes to the very end.
Pool& pool() {
  static Pool* const s_pool = new Pool;
  return *s_pool;
}

static_assert(sizeof(Vertex) == 8 * sizeof(float), "meshes are hashed and compared by their bytes");

template <class T>
bool sameBytes(const std::vector<T>& a, const std::vector<T>& b) {
  return a.size() == b.size() && (a.empty() || std::memcmp(a.data(), b.data(), a.size() * sizeof(T)) == 0);
}

std::uint64_t mix(std::uint64_t hash, std::uint64_t value) {
  hash = (hash ^ value) * 0x9e3779b97f4a7c15U;
  return hash ^ (hash >> 29);
}

template <class T>
std::uint64_t hashBytes(std::uint64_t hash, const std::vector<T>& values) {
  const auto* bytes = reinterpret_cast<const unsigned char*>(values.data());
  const std::size_t size = values.size() * sizeof(T);
  std::size_t offset = 0;
  for (; offset + sizeof(std::uint64_t) <= size; offset += sizeof(std::uint64_t)) {
    std::uint64_t word = 0;
    std::memcpy(&word, bytes + offset, sizeof word);
    hash = mix(hash, word);
  }
  std::uint64_t rest = 0;
  if (offset < size) std::memcpy(&rest, bytes + offset, size - offset);
  return mix(mix(hash, rest), size);
}

bool isFinite(const NbVec3f& v) { return std::isfinite(v[0]) && std::isfinite(v[1]) && std::isfinite(v[2]); }

void dropBadTriangles(std::vector<std::uint32_t>& indices, const std::vector<Vertex>& vertices) {
  const auto isGood = [&](std::uint32_t index) {
    return index < vertices.size() && isFinite(vertices[index].position);
  };
  std::size_t kept = 0;
  for (std::size_t i = 0; i + 2 < indices.size(); i += 3) {
    if (!isGood(indices[i]) || !isGood(indices[i + 1]) || !isGood(indices[i + 2])) continue;
    for (std::size_t corner = 0; corner < 3; ++corner) indices[kept++] = indices[i + corner];
  }
  indices.resize(kept);
}

// Double precision: a ray may start far away from a small triangle.
struct Vec3d {
  double x, y, z;
  explicit Vec3d(const NbVec3f& v) : x(v[0]), y(v[1]), z(v[2]) {}
  Vec3d(double x_, double y_, double z_) : x(x_), y(y_), z(z_) {}
  Vec3d operator-(const Vec3d& v) const { return Vec3d(x - v.x, y - v.y, z - v.z); }
  Vec3d cross(const Vec3d& v) const { return Vec3d(y * v.z - z * v.y, z * v.x - x * v.z, x * v.y - y * v.x); }
  double dot(const Vec3d& v) const { return x * v.x + y * v.y + z * v.z; }
};

struct TriangleHit {
  double t, u, v;
};

// From both sides (Möller and Trumbore).
bool intersectTriangle(const Vec3d& start, const Vec3d& direction, const NbVec3f& a, const NbVec3f& b, const NbVec3f& c,
                       double tMax, TriangleHit& hit) {
  // A ray through the edge between two triangles must not slip through.
  constexpr double kEdge = 1e-7;
  const Vec3d origin(a);
  const Vec3d edge1 = Vec3d(b) - origin;
  const Vec3d edge2 = Vec3d(c) - origin;
  const Vec3d p = direction.cross(edge2);
  const double determinant = edge1.dot(p);
  if (determinant == 0) return false;
  const double scale = 1 / determinant;
  const Vec3d toStart = start - origin;
  const double u = toStart.dot(p) * scale;
  if (!(u >= -kEdge && u <= 1 + kEdge)) return false;
  const Vec3d q = toStart.cross(edge1);
  const double v = direction.dot(q) * scale;
  if (!(v >= -kEdge && u + v <= 1 + kEdge)) return false;
  const double t = edge2.dot(q) * scale;
  if (!(t >= 0 && t <= tMax)) return false;
  hit = {t, u, v};
  return true;
}

template <class T>
T interpolate(const T& a, const T& b, const T& c, const TriangleHit& at) {
  return a * static_cast<float>(1 - at.u - at.v) + b * static_cast<float>(at.u) + c * static_cast<float>(at.v);
}

constexpr std::size_t kHierarchyThreshold = 64; // Triangles up to which they are all tested.
constexpr std::size_t kLeafSize = 8;

} // namespace

/// Boxes around ever smaller halves of a mesh's triangles.
class MeshHierarchy {
public:
  explicit MeshHierarchy(const Mesh& mesh) {
    const std::vector<Vertex>& vertices = mesh.getVertices();
    const std::vector<std::uint32_t>& indices = mesh.getIndices();
    const std::size_t count = indices.size() / 3;
    std::vector<NbBox3f> boxes(count);
    std::vector<NbVec3f> centers(count);
    for (std::size_t i = 0; i < count; ++i) {
      for (std::size_t corner = 0; corner < 3; ++corner) boxes[i].extendBy(vertices[indices[3 * i + corner]].position);
      centers[i] = boxes[i].getCenter();
    }
    m_order.resize(count);
    std::iota(m_order.begin(), m_order.end(), 0U);
    m_nodes.reserve(2 * count / (kLeafSize / 2) + 1);
    build(0, count, boxes, centers);
  }

  /// Hands the triangles of the leaves that the ray meets to `test`, which gives the end of the ray that is left.
  template <class Test>
  void visit(const NbVec3f& start, const NbVec3f& direction, const NbVec3f& inverse, float tMax, Test&& test) const {
    // Each level halves the triangles, of which there are less than 2^32; a visited node leaves one on the stack.
    std::uint32_t stack[40];
    int depth = 0;
    stack[depth++] = 0;
    while (depth > 0) {
      const Node& node = m_nodes[stack[--depth]];
      float tEnter = 0;
      float tLeave = tMax;
      if (!clipRayToBox(start, direction, inverse, node.box.getMin(), node.box.getMax(), tEnter, tLeave)) continue;
      if (node.count > 0) {
        for (std::uint32_t i = 0; i < node.count; ++i) tMax = test(m_order[node.first + i]);
        continue;
      }
      // The half that the ray comes from is looked at first, so that the other is mostly cut off.
      const std::uint32_t lower = static_cast<std::uint32_t>(&node - m_nodes.data()) + 1;
      const bool forward = direction[node.axis] >= 0;
      stack[depth++] = forward ? node.first : lower;
      stack[depth++] = forward ? lower : node.first;
    }
  }

private:
  struct Node {
    NbBox3f box;
    std::uint32_t first = 0; // Of a leaf: of its triangles; else the upper half, while the lower follows the node.
    std::uint32_t count = 0; // 0: not a leaf.
    int axis = 0;
  };

  void build(std::size_t first, std::size_t end, const std::vector<NbBox3f>& boxes,
             const std::vector<NbVec3f>& centers) {
    const std::size_t index = m_nodes.size();
    m_nodes.emplace_back();
    NbBox3f box;
    NbBox3f centerBox;
    for (std::size_t i = first; i < end; ++i) {
      box.extendBy(boxes[m_order[i]]);
      centerBox.extendBy(centers[m_order[i]]);
    }
    m_nodes[index].box = box;
    if (end - first <= kLeafSize) {
      m_nodes[index].first = static_cast<std::uint32_t>(first);
      m_nodes[index].count = static_cast<std::uint32_t>(end - first);
      return;
    }
    const NbVec3f size = centerBox.getSize();
    int axis = size[1] > size[0] ? 1 : 0;
    if (size[2] > size[axis]) axis = 2;
    const std::size_t middle = first + (end - first) / 2;
    const auto at = [this](std::size_t i) { return m_order.begin() + static_cast<std::ptrdiff_t>(i); };
    std::nth_element(at(first), at(middle), at(end),
                     [&](std::uint32_t a, std::uint32_t b) { return centers[a][axis] < centers[b][axis]; });
    m_nodes[index].axis = axis;
    build(first, middle, boxes, centers);
    m_nodes[index].first = static_cast<std::uint32_t>(m_nodes.size());
    build(middle, end, boxes, centers);
  }

  std::vector<Node> m_nodes;
  std::vector<std::uint32_t> m_order;
};

Ref<Mesh> Mesh::intern(std::vector<Vertex> vertices, std::vector<std::uint32_t> indices) {
  dropBadTriangles(indices, vertices);
  const std::uint64_t hash = hashBytes(hashBytes(1, vertices), indices);
  const auto [first, last] = pool().equal_range(hash);
  for (auto it = first; it != last; ++it) {
    if (sameBytes(it->second->m_vertices, vertices) && sameBytes(it->second->m_indices, indices))
      return Ref<Mesh>(it->second);
  }
  return Ref<Mesh>(new Mesh(std::move(vertices), std::move(indices), hash));
}

Mesh::Mesh(std::vector<Vertex> vertices, std::vector<std::uint32_t> indices, std::uint64_t hash)
    : m_vertices(std::move(vertices)), m_indices(std::move(indices)), m_hash(hash) {
  static std::uint64_t s_lastId = 0;
  m_id = ++s_lastId;
  for (std::uint32_t index : m_indices) m_box.extendBy(m_vertices[index].position);
  pool().emplace(hash, this);
}

Mesh::~Mesh() = default;

void Mesh::destroy() {
  const auto [first, last] = pool().equal_range(m_hash);
  const auto entry = std::find_if(first, last, [this](const Pool::value_type& e) { return e.second == this; });
  if (entry != last) pool().erase(entry);
  NkRefCounter::destroy();
}

bool Mesh::intersect(const NbVec3f& start, const NbVec3f& direction, float tMax, Hit& hit) const {
  const NbVec3f inverse = reciprocal(direction);
  float tEnter = 0;
  float tLeave = tMax;
  if (m_box.isEmpty() || !clipRayToBox(start, direction, inverse, m_box.getMin(), m_box.getMax(), tEnter, tLeave))
    return false;

  const Vec3d from(start);
  const Vec3d along(direction);
  TriangleHit nearest{static_cast<double>(tMax), 0, 0};
  std::uint32_t nearestTriangle = 0;
  bool found = false;
  const auto test = [&](std::uint32_t triangle) {
    const std::uint32_t* corners = &m_indices[3 * std::size_t{triangle}];
    TriangleHit candidate{};
    if (intersectTriangle(from, along, m_vertices[corners[0]].position, m_vertices[corners[1]].position,
                          m_vertices[corners[2]].position, nearest.t, candidate) &&
        (!found || candidate.t < nearest.t)) {
      nearest = candidate;
      nearestTriangle = triangle;
      found = true;
    }
    return static_cast<float>(nearest.t);
  };

  const std::size_t count = m_indices.size() / 3;
  if (count <= kHierarchyThreshold) {
    for (std::uint32_t triangle = 0; triangle < count; ++triangle) test(triangle);
  } else {
    if (!m_hierarchy) m_hierarchy = std::make_unique<MeshHierarchy>(*this);
    m_hierarchy->visit(start, direction, inverse, tMax, test);
  }
  if (!found) return false;

  const std::uint32_t* corners = &m_indices[3 * std::size_t{nearestTriangle}];
  const Vertex& a = m_vertices[corners[0]];
  const Vertex& b = m_vertices[corners[1]];
  const Vertex& c = m_vertices[corners[2]];
  hit.t = static_cast<float>(nearest.t);
  hit.normal = interpolate(a.normal, b.normal, c.normal, nearest);
  if (hit.normal.normalize() == 0) {
    hit.normal = (b.position - a.position).cross(c.position - a.position);
    hit.normal.normalize();
  }
  hit.texture = interpolate(a.texture, b.texture, c.texture, nearest);
  hit.triangle = nearestTriangle;
  return true;
}

NbBox3f PlacedMesh::getBox() const {
  const NbBox3f& box = mesh->getBox();
  if (box.isEmpty()) return box;
  NbBox3f placed;
  // Both corners are added: a negative scale swaps them.
  for (NbVec3f corner : {box.getMin(), box.getMax()}) {
    for (int axis = 0; axis < 3; ++axis) corner[axis] = corner[axis] * scale[axis] + offset[axis];
    placed.extendBy(corner);
  }
  return placed;
}

int Mesh::getPoolSize() { return static_cast<int>(pool().size()); }

} // namespace arbora
