#include "arbora/scene/MeshFactory.h"

#include <array>
#include <cmath>
#include <numbers>

namespace arbora {

namespace {

constexpr int kSlices = 32; // Around the y axis. A multiple of 4, so that the extremes of a circle are met.
constexpr int kStacks = 16; // From pole to pole of a sphere; even, so that the equator is met.
constexpr int kUnitMeshCount = 6;

class MeshData {
public:
  std::uint32_t add(const NbVec3f& position, const NbVec3f& normal, float s, float t) {
    m_vertices.push_back({position, normal, NbVec2f(s, t)});
    return static_cast<std::uint32_t>(m_vertices.size() - 1);
  }
  void addTriangle(std::uint32_t a, std::uint32_t b, std::uint32_t c) { m_indices.insert(m_indices.end(), {a, b, c}); }
  Ref<Mesh> intern() { return Mesh::intern(std::move(m_vertices), std::move(m_indices)); }

private:
  std::vector<Vertex> m_vertices;
  std::vector<std::uint32_t> m_indices;
};

// The unit circle in the plane y = 0: from -z, which is behind, over -x, so that images have their seam at the back.
NbVec3f onCircle(float slice) {
  const double angle = 2 * std::numbers::pi * static_cast<double>(slice) / kSlices;
  return NbVec3f(static_cast<float>(-std::sin(angle)), 0, static_cast<float>(-std::cos(angle)));
}

Ref<Mesh> makeCube() {
  MeshData data;
  for (int axis = 0; axis < 3; ++axis) {
    for (float side : {-1.0F, 1.0F}) {
      NbVec3f normal;
      normal[axis] = side;
      // The side's own right and up, so that an image on it stands upright seen from outside.
      NbVec3f up(0, 1, 0);
      if (axis == 1) up = NbVec3f(0, 0, -side);
      const NbVec3f right = up.cross(normal);
      const auto corner = [&](float s, float t) {
        return data.add(0.5F * normal + (s - 0.5F) * right + (t - 0.5F) * up, normal, s, t);
      };
      const std::uint32_t first = corner(0, 0);
      corner(1, 0);
      corner(1, 1);
      corner(0, 1);
      data.addTriangle(first, first + 1, first + 2);
      data.addTriangle(first, first + 2, first + 3);
    }
  }
  return data.intern();
}

Ref<Mesh> makeSphere() {
  MeshData data;
  for (int stack = 0; stack <= kStacks; ++stack) {
    const double angle = std::numbers::pi * stack / kStacks; // From the lower pole.
    const float y = static_cast<float>(-std::cos(angle));
    const float radius = stack == 0 || stack == kStacks ? 0.0F : static_cast<float>(std::sin(angle));
    for (int slice = 0; slice <= kSlices; ++slice) {
      const NbVec3f point = radius * onCircle(static_cast<float>(slice)) + NbVec3f(0, y, 0);
      data.add(point, point, static_cast<float>(slice) / kSlices, static_cast<float>(stack) / kStacks);
    }
  }
  for (std::uint32_t stack = 0; stack < kStacks; ++stack) {
    for (std::uint32_t slice = 0; slice < kSlices; ++slice) {
      const std::uint32_t lower = stack * (kSlices + 1) + slice;
      const std::uint32_t upper = lower + kSlices + 1;
      if (stack > 0) data.addTriangle(lower, lower + 1, upper + 1);
      if (stack + 1 < kStacks) data.addTriangle(lower, upper + 1, upper);
    }
  }
  return data.intern();
}

Ref<Mesh> makeConeSides() {
  MeshData data;
  const float slope = 1 / std::sqrt(2.0F);
  const auto normalAt = [&](float slice) { return slope * (onCircle(slice) + NbVec3f(0, 1, 0)); };
  for (int slice = 0; slice < kSlices; ++slice) {
    const float left = static_cast<float>(slice);
    const std::uint32_t first = data.add(onCircle(left) + NbVec3f(0, -0.5F, 0), normalAt(left), left / kSlices, 0);
    data.add(onCircle(left + 1) + NbVec3f(0, -0.5F, 0), normalAt(left + 1), (left + 1) / kSlices, 0);
    // The tip has a normal of its own for each slice.
    data.add(NbVec3f(0, 0.5F, 0), normalAt(left + 0.5F), (left + 0.5F) / kSlices, 1);
    data.addTriangle(first, first + 1, first + 2);
  }
  return data.intern();
}

Ref<Mesh> makeCylinderSides() {
  MeshData data;
  for (int slice = 0; slice <= kSlices; ++slice) {
    const NbVec3f normal = onCircle(static_cast<float>(slice));
    const float s = static_cast<float>(slice) / kSlices;
    const std::uint32_t lower = data.add(normal + NbVec3f(0, -0.5F, 0), normal, s, 0);
    const std::uint32_t upper = data.add(normal + NbVec3f(0, 0.5F, 0), normal, s, 1);
    if (slice < kSlices) {
      data.addTriangle(lower, lower + 2, upper + 2);
      data.addTriangle(lower, upper + 2, upper);
    }
  }
  return data.intern();
}

Ref<Mesh> makeDisc(float side) {
  MeshData data;
  const NbVec3f normal(0, side, 0);
  const std::uint32_t center = data.add(NbVec3f(), normal, 0.5F, 0.5F);
  for (int slice = 0; slice < kSlices; ++slice) {
    const NbVec3f rim = onCircle(static_cast<float>(slice));
    data.add(rim, normal, 0.5F + 0.5F * rim[0], 0.5F - 0.5F * side * rim[2]);
  }
  for (std::uint32_t slice = 0; slice < kSlices; ++slice) {
    const std::uint32_t here = center + 1 + slice;
    const std::uint32_t next = center + 1 + (slice + 1) % kSlices;
    if (side > 0)
      data.addTriangle(center, here, next);
    else
      data.addTriangle(center, next, here);
  }
  return data.intern();
}

Ref<Mesh> make(UnitMesh kind) {
  switch (kind) {
    case UnitMesh::CUBE:
      return makeCube();
    case UnitMesh::SPHERE:
      return makeSphere();
    case UnitMesh::CONE_SIDES:
      return makeConeSides();
    case UnitMesh::CYLINDER_SIDES:
      return makeCylinderSides();
    case UnitMesh::DISC_UP:
      return makeDisc(1);
    case UnitMesh::DISC_DOWN:
      return makeDisc(-1);
  }
  return {};
}

std::array<Ref<Mesh>, kUnitMeshCount>& unitMeshes() {
  static std::array<Ref<Mesh>, kUnitMeshCount> s_meshes;
  return s_meshes;
}

} // namespace

const Ref<Mesh>& getUnitMesh(UnitMesh kind) {
  Ref<Mesh>& mesh = unitMeshes()[static_cast<std::size_t>(kind)];
  if (!mesh) mesh = make(kind);
  return mesh;
}

void clearUnitMeshes() { unitMeshes().fill(Ref<Mesh>()); }

float usableSize(float size) { return std::isfinite(size) ? std::fabs(size) : 0.0F; }

} // namespace arbora
