#include "arbora/scene/FaceBuilder.h"

#include <algorithm>
#include <cmath>

#include "arbora/scene/text/Tessellator.h"

namespace arbora {

namespace {

bool isFinite(const NbVec3f& v) { return std::isfinite(v[0]) && std::isfinite(v[1]) && std::isfinite(v[2]); }

/// The normal of the plane that fits the corners best (Newell), with length 1; 0 if they span no area.
NbVec3f facetNormal(const std::vector<Vertex>& corners) {
  double sum[3] = {0, 0, 0};
  // Seen from the first corner: far from the origin the products would drown the area.
  const NbVec3f origin = corners.front().position;
  double extent = 0;
  for (std::size_t i = 0; i < corners.size(); ++i) {
    const NbVec3f a = corners[i].position - origin;
    const NbVec3f b = corners[(i + 1) % corners.size()].position - origin;
    for (int axis = 0; axis < 3; ++axis) {
      const int u = (axis + 1) % 3;
      const int v = (axis + 2) % 3;
      sum[axis] += static_cast<double>(a[u]) * b[v] - static_cast<double>(a[v]) * b[u];
      extent = std::max(extent, std::fabs(static_cast<double>(a[axis])));
    }
  }
  // The rounding of the coordinates, in shares of the face's size, within which corners are on one line.
  constexpr double kFlat = 1e-7;
  const double length = std::sqrt(sum[0] * sum[0] + sum[1] * sum[1] + sum[2] * sum[2]);
  if (!(length > kFlat * extent * extent)) return NbVec3f();
  return NbVec3f(static_cast<float>(sum[0] / length), static_cast<float>(sum[1] / length),
                 static_cast<float>(sum[2] / length));
}

} // namespace

void FaceBuilder::beginFace(bool hasNormals, bool hasTexture) {
  m_corners.clear();
  m_hasNormals = hasNormals;
  m_hasTexture = hasTexture;
}

void FaceBuilder::endFace() {
  if (m_corners.size() < 3 ||
      !std::all_of(m_corners.begin(), m_corners.end(), [](const Vertex& corner) { return isFinite(corner.position); }))
    return;
  const NbVec3f normal = facetNormal(m_corners);
  if (normal == NbVec3f()) return;
  for (Vertex& corner : m_corners) {
    if (!m_hasNormals || !isFinite(corner.normal) || corner.normal.normalize() == 0) corner.normal = normal;
  }
  m_anyWithoutTexture |= !m_hasTexture;

  // In the plane of two axes, the face is seen largest without the axis of the normal's greatest part; the order of the
  // two leaves the face counterclockwise.
  int axis = std::fabs(normal[1]) > std::fabs(normal[0]) ? 1 : 0;
  if (std::fabs(normal[2]) > std::fabs(normal[axis])) axis = 2;
  int u = (axis + 1) % 3;
  int v = (axis + 2) % 3;
  if (normal[axis] < 0) std::swap(u, v);

  const auto first = static_cast<std::uint32_t>(m_vertices.size());
  const auto count = static_cast<std::uint32_t>(m_corners.size());
  m_vertices.insert(m_vertices.end(), m_corners.begin(), m_corners.end());
  if (isConvex(u, v)) {
    for (std::uint32_t i = 1; i + 1 < count; ++i) m_indices.insert(m_indices.end(), {first, first + i, first + i + 1});
  } else {
    addTessellated(u, v, normal);
  }
}

bool FaceBuilder::isConvex(int u, int v) const {
  const std::size_t count = m_corners.size();
  if (count == 3) return true;
  // No turn to the right, and once around only: a star never turns right either. Who walks around once moves forth and
  // back along u once.
  float alongU = 0;
  float lastU = 0;
  float lastV = 0;
  int changes = 0;
  // Two rounds: the first finds out what comes ahead of the first corner. Corners on one spot make no edge.
  for (std::size_t i = 0; i < 2 * count; ++i) {
    const NbVec3f edge = m_corners[(i + 1) % count].position - m_corners[i % count].position;
    if (edge[u] == 0 && edge[v] == 0) continue;
    if (lastU * edge[v] - lastV * edge[u] < 0) return false;
    lastU = edge[u];
    lastV = edge[v];
    if (lastU == 0) continue;
    if (i >= count && (lastU < 0) != (alongU < 0)) ++changes;
    alongU = lastU;
  }
  return changes <= 2;
}

void FaceBuilder::addTessellated(int u, int v, const NbVec3f& normal) {
  std::vector<NbVec2f> contour;
  contour.reserve(m_corners.size());
  for (const Vertex& corner : m_corners) contour.emplace_back(corner.position[u], corner.position[v]);
  const TessellatedPolygon polygon = tessellate({contour});

  const auto first = static_cast<std::uint32_t>(m_vertices.size() - m_corners.size());
  const int axis = 3 - u - v;
  for (std::size_t i = m_corners.size(); i < polygon.points.size(); ++i) {
    // Where edges cross, the new point lies in the plane through the corner that is next to it.
    const NbVec2f& point = polygon.points[i];
    const auto distance = [&](const Vertex& corner) {
      return (NbVec2f(corner.position[u], corner.position[v]) - point).sqrLength();
    };
    Vertex vertex = *std::min_element(m_corners.begin(), m_corners.end(),
                                      [&](const Vertex& a, const Vertex& b) { return distance(a) < distance(b); });
    const float du = point[0] - vertex.position[u];
    const float dv = point[1] - vertex.position[v];
    vertex.position[u] = point[0];
    vertex.position[v] = point[1];
    vertex.position[axis] -= (normal[u] * du + normal[v] * dv) / normal[axis];
    m_vertices.push_back(vertex);
  }
  for (std::uint32_t index : polygon.triangles) m_indices.push_back(first + index);
}

void FaceBuilder::addDefaultTexture() {
  NbBox3f box;
  for (const Vertex& vertex : m_vertices) box.extendBy(vertex.position);
  const NbVec3f size = box.getSize();
  int order[3] = {0, 1, 2};
  std::stable_sort(order, order + 3, [&](int a, int b) { return size[a] > size[b]; });
  const float length = size[order[0]];
  for (Vertex& vertex : m_vertices) {
    const NbVec3f from = vertex.position - box.getMin();
    vertex.texture = NbVec2f(from[order[0]] / length, from[order[1]] / length);
  }
}

Ref<Mesh> FaceBuilder::finish() {
  if (m_anyWithoutTexture) addDefaultTexture();
  return Mesh::intern(std::move(m_vertices), std::move(m_indices));
}

} // namespace arbora
