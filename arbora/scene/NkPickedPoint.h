#pragma once

#include <memory>
#include <vector>

#include "arbora/base/NbMatrix.h"
#include "arbora/base/NbVec2f.h"
#include "arbora/base/NbVec3f.h"
#include "arbora/scene/NkPath.h"

class NkDetail;

/// Where a pick ray meets a shape. Belongs to the action that found it.
class ARBORA_API NkPickedPoint {
public:
  /// What a shape tells of a hit, in its local space.
  struct Surface {
    NbVec3f point;
    NbVec3f normal;
    NbVec2f texture;
  };

  NkPickedPoint(NkPath* path, const Surface& surface, const NbMatrix& objectToWorld, float distance);
  ~NkPickedPoint();
  NkPickedPoint(const NkPickedPoint&) = delete;
  NkPickedPoint& operator=(const NkPickedPoint&) = delete;

  /// The way from the head of the traversal to the shape. Its public end may be moved.
  NkPath* getPath() const { return m_path.get(); }

  /// The point and the normal, of length 1, in world space.
  const NbVec3f& getPoint() const { return m_worldPoint; }
  const NbVec3f& getNormal() const { return m_worldNormal; }
  const NbVec2f& getTextureCoords() const { return m_surface.texture; }
  /// The same in the shape's local space.
  const NbVec3f& getObjectPoint() const { return m_surface.point; }
  const NbVec3f& getObjectNormal() const { return m_surface.normal; }
  const NbMatrix& getObjectToWorld() const { return m_objectToWorld; }
  /// World units from the start of the ray, which is the near plane where a camera gave the ray.
  float getDistance() const { return m_distance; }

  /// Attaches a detail to a node of the path and owns it; one that the node had is deleted. NULL only deletes.
  void setDetail(NkDetail* detail, const NkNode* node);
  /// The detail of a node, NULL if it has none. Without a node, of the path's last one.
  NkDetail* getDetail(const NkNode* node = nullptr) const;

private:
  struct NodeDetail {
    const NkNode* node; // Held by the path.
    std::unique_ptr<NkDetail> detail;
  };
  arbora::Ref<NkPath> m_path;
  Surface m_surface;
  NbMatrix m_objectToWorld;
  NbVec3f m_worldPoint;
  NbVec3f m_worldNormal;
  float m_distance;
  std::vector<NodeDetail> m_details;
};
