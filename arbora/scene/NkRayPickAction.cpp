#include "arbora/scene/NkRayPickAction.h"

#include <algorithm>
#include <array>
#include <cfloat>
#include <cmath>
#include <numbers>

#include "arbora/base/NbBox3f.h"
#include "arbora/scene/NkNode.h"
#include "arbora/scene/RayBox.h"

namespace {

constexpr int kPointsAround = 8;

NbVec3f along(const NbVec3f& start, const NbVec3f& direction, float t) { return start + t * direction; }

/// Takes a ray from the space that an affine matrix leads to into the space that it comes from. False if that is flat.
/// This runs at each visited shape, for which a general inverse is too slow.
bool takeIntoSpace(const NbMatrix& matrix, const NbVec3f& start, const NbVec3f& direction, NbVec3f& localStart,
                   NbVec3f& localDirection) {
  double m[3][3];
  double offset[3];
  for (int row = 0; row < 3; ++row) {
    for (int column = 0; column < 3; ++column) m[row][column] = matrix[row][column];
    offset[row] = static_cast<double>(start[row]) - matrix[3][row];
  }
  // The columns of the inverse are cross products of rows over the determinant.
  double inverse[3][3];
  for (int i = 0; i < 3; ++i) {
    const double* a = m[(i + 1) % 3];
    const double* b = m[(i + 2) % 3];
    for (int j = 0; j < 3; ++j) inverse[j][i] = a[(j + 1) % 3] * b[(j + 2) % 3] - a[(j + 2) % 3] * b[(j + 1) % 3];
  }
  const double determinant = m[0][0] * inverse[0][0] + m[0][1] * inverse[1][0] + m[0][2] * inverse[2][0];
  if (!(std::fabs(determinant) >= DBL_MIN && std::fabs(determinant) <= DBL_MAX)) return false;
  for (int column = 0; column < 3; ++column) {
    double point = 0;
    double way = 0;
    for (int row = 0; row < 3; ++row) {
      point += offset[row] * inverse[row][column];
      way += direction[row] * inverse[row][column];
    }
    localStart[column] = static_cast<float>(point / determinant);
    localDirection[column] = static_cast<float>(way / determinant);
  }
  return true;
}

/// Hits a mesh that its scale flattens along one axis: the ray's point in the plane lies in the shadow of a triangle.
bool intersectFlat(const arbora::PlacedMesh& placed, int axis, const NbVec3f& start, const NbVec3f& direction,
                   float tMax, arbora::Mesh::Hit& hit) {
  const float t = direction[axis] != 0 ? (placed.offset[axis] - start[axis]) / direction[axis] : -1.0F;
  if (!(t >= 0 && t <= tMax)) return false;
  NbVec3f shadow = along(start, direction, t) - placed.offset;
  NbVec3f across;
  for (int i = 0; i < 3; ++i) {
    if (i == axis) {
      const bool fromAbove = direction[axis] < 0;
      across[i] = fromAbove ? -1.0F : 1.0F;
      shadow[i] = fromAbove ? placed.mesh->getBox().getMax()[i] : placed.mesh->getBox().getMin()[i];
    } else {
      shadow[i] /= placed.scale[i];
    }
  }
  if (!placed.mesh->intersect(shadow, across, FLT_MAX, hit)) return false;
  hit.t = t;
  hit.normal = -across;
  return true;
}

/// Nearest hit in the space in which the mesh is placed.
bool intersect(const arbora::PlacedMesh& placed, NbVec3f start, NbVec3f direction, float tMax, arbora::Mesh::Hit& hit) {
  const NbVec3f& scale = placed.scale;
  const int flatAxes = (scale[0] == 0 ? 1 : 0) + (scale[1] == 0 ? 1 : 0) + (scale[2] == 0 ? 1 : 0);
  if (flatAxes > 1) return false;
  if (flatAxes == 1)
    return intersectFlat(placed, scale[0] == 0 ? 0 : scale[1] == 0 ? 1 : 2, start, direction, tMax, hit);
  // Factors alone part the mesh's space from this one: distances along the ray stay what they are.
  start -= placed.offset;
  for (int axis = 0; axis < 3; ++axis) {
    start[axis] /= scale[axis];
    direction[axis] /= scale[axis];
  }
  if (!placed.mesh->intersect(start, direction, tMax, hit)) return false;
  for (int axis = 0; axis < 3; ++axis) hit.normal[axis] /= scale[axis];
  hit.normal.normalize();
  return true;
}

} // namespace

NkType NkRayPickAction::s_classTypeId;

void NkRayPickAction::initClass() { s_classTypeId = NkType::createType(NkAction::getClassTypeId(), "RayPickAction"); }

void NkRayPickAction::exitClass() {
  NkType::removeType("RayPickAction");
  s_classTypeId = NkType::badType();
}

NkType NkRayPickAction::getClassTypeId() { return s_classTypeId; }

NkType NkRayPickAction::getTypeId() const { return s_classTypeId; }

NkRayPickAction::NkRayPickAction(const NbViewportRegion& viewport) : NkAction(viewport) {}

NkRayPickAction::~NkRayPickAction() = default;

void NkRayPickAction::setPoint(const NbVec2i32& pixel) {
  m_source = Source::PIXEL;
  m_pixel = pixel;
}

void NkRayPickAction::setNormalizedPoint(const NbVec2f& point) {
  m_source = Source::NORMALIZED;
  m_point = point;
}

void NkRayPickAction::setRay(const NbVec3f& start, const NbVec3f& direction, float nearDistance, float farDistance) {
  m_source = Source::RAY;
  m_givenRay.start = start;
  m_givenRay.direction = direction;
  m_givenRay.valid = m_givenRay.direction.normalize() > 0;
  m_givenRay.tMin = nearDistance > 0 ? nearDistance : 0.0F;
  m_givenRay.tMax = farDistance < 0 ? FLT_MAX : farDistance;
}

void NkRayPickAction::setRadius(float pixels) { m_radius = pixels > 0 && std::isfinite(pixels) ? pixels : 0.0F; }

// ---- Traversal

template <class Target>
void NkRayPickAction::applyAround(Target&& target) {
  m_offset = NbVec2f();
  target();
  if (m_radius == 0 || m_source == Source::RAY) return;
  for (int i = 0; i < kPointsAround && m_points.empty(); ++i) {
    const float angle = 2 * std::numbers::pi_v<float> * static_cast<float>(i) / kPointsAround;
    m_offset = m_radius * NbVec2f(std::cos(angle), std::sin(angle));
    target();
  }
}

void NkRayPickAction::apply(NkNode* root) {
  const arbora::KeepAlive keep(root);
  applyAround([&] { NkAction::apply(root); });
}

void NkRayPickAction::apply(NkPath* path) {
  const arbora::KeepAlive keep(path);
  applyAround([&] { NkAction::apply(path); });
}

void NkRayPickAction::apply(const NkPathList& paths) {
  applyAround([&] { NkAction::apply(paths); });
}

void NkRayPickAction::beginTraversal() {
  m_sorted.clear();
  m_points.clear();
  m_world = m_source == Source::RAY ? m_givenRay : Ray();
  m_worldVolume = nullptr;
  m_localKnown = false;
}

void NkRayPickAction::dispatch(NkNode* node) { node->rayPick(this); }

// ---- The ray

void NkRayPickAction::updateWorldRay() const {
  const NbViewVolume* volume = m_state.viewVolume;
  if (m_source == Source::RAY || volume == m_worldVolume) return;
  m_worldVolume = volume;
  m_localKnown = false;
  m_world = Ray();
  if (!volume) return;

  const NbVec2i32& origin = getViewportRegion().getViewportOriginPixels();
  const NbVec2i32& size = getViewportRegion().getViewportSizePixels();
  NbVec2f point = m_point;
  for (int axis = 0; axis < 2; ++axis) {
    const float pixels = static_cast<float>(std::max(size[axis], 1));
    // The middle of the pixel.
    if (m_source == Source::PIXEL)
      point[axis] = (static_cast<float>(m_pixel[axis]) - static_cast<float>(origin[axis]) + 0.5F) / pixels;
    point[axis] += m_offset[axis] / pixels;
  }
  NbVec3f onFar;
  volume->projectPointToLine(point, m_world.start, onFar);
  m_world.direction = onFar - m_world.start;
  m_world.tMax = m_world.direction.normalize();
  m_world.valid = m_world.tMax > 0;
}

bool NkRayPickAction::updateLocalRay() const {
  updateWorldRay();
  if (!m_world.valid) return false;
  if (m_localKnown && m_localModel == m_state.model) return m_local.valid;
  m_localKnown = true;
  m_localModel = m_state.model;
  m_local.valid = takeIntoSpace(m_localModel, m_world.start, m_world.direction, m_local.start, m_local.direction);
  if (!m_local.valid) return false;
  m_inverseDirection = arbora::reciprocal(m_local.direction);
  return true;
}

bool NkRayPickAction::getWorldRay(NbVec3f& start, NbVec3f& direction) const {
  updateWorldRay();
  if (!m_world.valid) return false;
  start = m_world.start;
  direction = m_world.direction;
  return true;
}

bool NkRayPickAction::getLocalRay(NbVec3f& start, NbVec3f& direction) const {
  if (!updateLocalRay()) return false;
  start = m_local.start;
  direction = m_local.direction;
  return true;
}

NkRayPickAction::Range NkRayPickAction::keptRange() const {
  Range range{m_world.tMin, m_world.tMax};
  if (!m_pickAll && !m_points.empty()) range.tMax = std::min(range.tMax, m_points.front()->getDistance());
  for (int i = 0; i < m_state.clip.count; ++i) {
    const NbPlane& plane = m_state.clip.planes[static_cast<std::size_t>(i)];
    const float atStart = plane.getDistance(m_world.start);
    const float slope = plane.getNormal().dot(m_world.direction);
    if (slope > 0)
      range.tMin = std::max(range.tMin, -atStart / slope);
    else if (slope < 0)
      range.tMax = std::min(range.tMax, -atStart / slope);
    else if (atStart < 0)
      range.tMax = -FLT_MAX;
  }
  return range;
}

bool NkRayPickAction::isBetweenPlanes(const NbVec3f& worldPoint) const {
  updateWorldRay();
  if (!m_world.valid) return false;
  const float t = (worldPoint - m_world.start).dot(m_world.direction);
  return t >= m_world.tMin && t <= m_world.tMax && m_state.clip.contains(worldPoint);
}

// ---- Shapes

bool NkRayPickAction::hitsBox(const NbBox3f& localBox) const {
  if (localBox.isEmpty()) return false;
  updateWorldRay();
  if (!m_world.valid) return m_source != Source::RAY;
  Range range = keptRange();
  return updateLocalRay() && !range.isEmpty() &&
         arbora::clipRayToBox(m_local.start, m_local.direction, m_inverseDirection, localBox.getMin(),
                              localBox.getMax(), range.tMin, range.tMax);
}

NkPickedPoint* NkRayPickAction::pickBox(const NbBox3f& localBox) {
  if (localBox.isEmpty() || !updateLocalRay()) return nullptr;
  const Range range = keptRange();
  float tEnter = -FLT_MAX;
  float tLeave = FLT_MAX;
  if (!arbora::clipRayToBox(m_local.start, m_local.direction, m_inverseDirection, localBox.getMin(), localBox.getMax(),
                            tEnter, tLeave))
    return nullptr;
  // From inside, or behind a cut, the far side is seen.
  const float t = tEnter >= range.tMin ? tEnter : tLeave;
  if (!(t >= range.tMin && t <= range.tMax)) return nullptr;

  // The face is the one that the ray crosses at t. A flat box is seen from the side on which the ray starts.
  NkPickedPoint::Surface surface;
  surface.point = along(m_local.start, m_local.direction, t);
  const bool leaving = t == tLeave && tEnter < tLeave;
  float closest = FLT_MAX;
  for (int axis = 0; axis < 3; ++axis) {
    if (m_local.direction[axis] == 0) continue;
    const bool atMax = (m_local.direction[axis] < 0) != leaving;
    const float plane = atMax ? localBox.getMax()[axis] : localBox.getMin()[axis];
    const float difference = std::fabs((plane - m_local.start[axis]) * m_inverseDirection[axis] - t);
    if (difference < closest) {
      closest = difference;
      surface.normal = NbVec3f();
      surface.normal[axis] = atMax ? 1.0F : -1.0F;
    }
  }
  return add(surface, t);
}

NkPickedPoint* NkRayPickAction::pickMeshes(const std::vector<arbora::PlacedMesh>& meshes) {
  if (!updateLocalRay()) return nullptr;
  const Range range = keptRange();
  if (range.isEmpty()) return nullptr;
  const NbVec3f from = along(m_local.start, m_local.direction, range.tMin);
  float length = range.tMax - range.tMin;

  NkPickedPoint::Surface surface;
  float nearest = -1;
  for (const arbora::PlacedMesh& placed : meshes) {
    arbora::Mesh::Hit hit{};
    if (!intersect(placed, from, m_local.direction, length, hit)) continue;
    nearest = length = hit.t;
    surface.normal = hit.normal;
    surface.texture = hit.texture;
  }
  if (nearest < 0) return nullptr;
  surface.point = along(from, m_local.direction, nearest);
  return add(surface, range.tMin + nearest);
}

NkPickedPoint* NkRayPickAction::addIntersection(const NkPickedPoint::Surface& surface) {
  updateWorldRay();
  if (!m_world.valid) return nullptr;
  NbVec3f worldPoint;
  m_state.model.multVecMatrix(surface.point, worldPoint);
  if (!isBetweenPlanes(worldPoint)) return nullptr;
  return add(surface, (worldPoint - m_world.start).dot(m_world.direction));
}

NkPickedPoint* NkRayPickAction::add(const NkPickedPoint::Surface& surface, float distance) {
  if (!m_pickAll && !m_points.empty()) {
    if (distance >= m_points.front()->getDistance()) return nullptr;
    m_points.clear();
  }
  m_sorted.clear();
  m_points.push_back(std::make_unique<NkPickedPoint>(copyCurPath(), surface, m_state.model, distance));
  return m_points.back().get();
}

// ---- Results

const std::vector<NkPickedPoint*>& NkRayPickAction::getPickedPointList() const {
  if (m_sorted.size() != m_points.size()) {
    m_sorted.clear();
    for (const auto& point : m_points) m_sorted.push_back(point.get());
    std::stable_sort(m_sorted.begin(), m_sorted.end(), [](const NkPickedPoint* a, const NkPickedPoint* b) {
      return a->getDistance() < b->getDistance();
    });
  }
  return m_sorted;
}

NkPickedPoint* NkRayPickAction::getPickedPoint(int index) const {
  const std::vector<NkPickedPoint*>& points = getPickedPointList();
  return index >= 0 && index < getPickedPointsListLength() ? points[static_cast<std::size_t>(index)] : nullptr;
}

NkPickedPoint* NkRayPickAction::getUnsortedPickedPoint(int index) const {
  return index >= 0 && index < getPickedPointsListLength() ? m_points[static_cast<std::size_t>(index)].get() : nullptr;
}
