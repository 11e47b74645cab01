#pragma once

#include <memory>
#include <vector>

#include "arbora/base/NbLine.h"
#include "arbora/scene/Mesh.h"
#include "arbora/scene/NkAction.h"
#include "arbora/scene/NkPickedPoint.h"

class NbBox3f;

/// Finds what lies under a point of the viewport, or on a ray. A point of the viewport becomes a ray by the camera that
/// the traversal has passed; before the first camera nothing is picked. A shape counts once, with its nearest point
/// that the clip planes leave.
class ARBORA_API NkRayPickAction : public NkAction {
public:
  explicit NkRayPickAction(const NbViewportRegion& viewport);
  ~NkRayPickAction() override;
  static NkType getClassTypeId();
  NkType getTypeId() const override;
  static void initClass();
  static void exitClass();

  /// The pixel to pick at, from the lower left corner of the window.
  void setPoint(const NbVec2i32& pixel);
  /// The point to pick at, from (0, 0) at the lower left corner of the viewport to (1, 1).
  void setNormalizedPoint(const NbVec2f& point);
  /// Picks on a ray in world space, whatever cameras there are, from `nearDistance` to `farDistance` along the
  /// direction; negative distances mean the start and no end. A direction of length 0 picks nothing.
  void setRay(const NbVec3f& start, const NbVec3f& direction, float nearDistance = -1.0F, float farDistance = -1.0F);

  /// Where nothing lies under the point itself, up to eight points around it at this distance are tried. In pixels; 0,
  /// the default, takes the point alone. A ray that was set has no radius.
  void setRadius(float pixels);
  float getRadius() const { return m_radius; }

  /// Keeps all hits; without it the nearest alone is kept.
  void setPickAll(bool flag) { m_pickAll = flag; }
  bool isPickAll() const { return m_pickAll; }

  using NkAction::apply;
  void apply(NkNode* root) override;
  void apply(NkPath* path) override;
  void apply(const NkPathList& paths) override;

  /// The hit at that place in the order of distance; NULL outside. Hits stand until the next `apply`.
  NkPickedPoint* getPickedPoint(int index = 0) const;
  /// All hits, nearest first.
  const std::vector<NkPickedPoint*>& getPickedPointList() const;
  int getPickedPointsListLength() const { return static_cast<int>(m_points.size()); }
  /// The hits in the order in which they were found, also while the traversal goes on; NULL outside.
  NkPickedPoint* getUnsortedPickedPoint(int index) const;

  // For the nodes that are visited.

  /// The ray in world space, its direction of length 1. False while there is none.
  bool getWorldRay(NbVec3f& start, NbVec3f& direction) const;
  /// The ray in the present local space, scaled so that distances along it are world distances. False while there is
  /// none, and where the local space is flat.
  bool getLocalRay(NbVec3f& start, NbVec3f& direction) const;
  /// Whether a point of world space lies between the near and the far end of the ray and is left by the clip planes.
  bool isBetweenPlanes(const NbVec3f& worldPoint) const;

  /// False if nothing inside that box of the present local space could give a hit that is kept. True while there is no
  /// ray: a camera may come.
  bool hitsBox(const NbBox3f& localBox) const;

  /// Picks on a shape of the present local space; NULL if it isn't hit or the hit isn't kept.
  NkPickedPoint* pickBox(const NbBox3f& localBox);
  NkPickedPoint* pickMeshes(const std::vector<arbora::PlacedMesh>& meshes);
  /// Adds a hit that the node has found by itself; NULL if it isn't kept.
  NkPickedPoint* addIntersection(const NkPickedPoint::Surface& surface);

protected:
  void beginTraversal() override;
  void dispatch(NkNode* node) override;

private:
  enum class Source { NORMALIZED, PIXEL, RAY };
  struct Ray {
    NbVec3f start;
    NbVec3f direction;
    float tMin = 0.0F;
    float tMax = 0.0F;
    bool valid = false;
  };
  // The part of a ray that may still give hits.
  struct Range {
    float tMin;
    float tMax;
    bool isEmpty() const { return !(tMin <= tMax); }
  };

  template <class Target>
  void applyAround(Target&& target);
  void updateWorldRay() const;
  bool updateLocalRay() const;
  Range keptRange() const;
  NkPickedPoint* add(const NkPickedPoint::Surface& surface, float distance);

  static NkType s_classTypeId;
  Source m_source = Source::NORMALIZED;
  NbVec2f m_point{0.5F, 0.5F};
  NbVec2i32 m_pixel;
  NbVec2f m_offset; // Of the point around the wanted one that is tried, in pixels.
  Ray m_givenRay;
  float m_radius = 0.0F;
  bool m_pickAll = false;

  // The ray, for the view volume that the state holds, and in the local space that the state's matrix stands for.
  mutable Ray m_world;
  mutable const NbViewVolume* m_worldVolume = nullptr;
  mutable Ray m_local;
  mutable NbVec3f m_inverseDirection;
  mutable NbMatrix m_localModel;
  mutable bool m_localKnown = false;

  std::vector<std::unique_ptr<NkPickedPoint>> m_points;
  mutable std::vector<NkPickedPoint*> m_sorted;
};
