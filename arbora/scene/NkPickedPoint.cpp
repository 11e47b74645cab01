#include "arbora/scene/NkPickedPoint.h"

#include <algorithm>

#include "arbora/scene/NkDetail.h"

NkPickedPoint::NkPickedPoint(NkPath* path, const Surface& surface, const NbMatrix& objectToWorld, float distance)
    : m_path(path), m_surface(surface), m_objectToWorld(objectToWorld), m_distance(distance) {
  objectToWorld.multVecMatrix(surface.point, m_worldPoint);
  // Normals stay upright on their surface under the transposed inverse alone.
  objectToWorld.inverse().transpose().multDirMatrix(surface.normal, m_worldNormal);
  m_worldNormal.normalize();
}

NkPickedPoint::~NkPickedPoint() = default;

void NkPickedPoint::setDetail(NkDetail* detail, const NkNode* node) {
  std::unique_ptr<NkDetail> owned(detail);
  const auto entry =
      std::find_if(m_details.begin(), m_details.end(), [node](const NodeDetail& d) { return d.node == node; });
  if (entry == m_details.end()) {
    if (owned) m_details.push_back({node, std::move(owned)});
  } else if (owned) {
    if (entry->detail != owned)
      entry->detail = std::move(owned);
    else
      static_cast<void>(owned.release());
  } else {
    m_details.erase(entry);
  }
}

NkDetail* NkPickedPoint::getDetail(const NkNode* node) const {
  const NkNode* wanted = node ? node : m_path->full()->getTail();
  for (const NodeDetail& entry : m_details) {
    if (entry.node == wanted) return entry.detail.get();
  }
  return nullptr;
}
