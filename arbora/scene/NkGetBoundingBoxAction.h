#pragma once

#include "arbora/base/NbBox3f.h"
#include "arbora/scene/NkAction.h"

/// Measures what is visible of a subgraph. Applied to a node, the box is in the node's own space: its transforms
/// count. Applied to a path, it is the box of the path's tail in the space of the head.
class ARBORA_API NkGetBoundingBoxAction : public NkAction {
public:
  explicit NkGetBoundingBoxAction(const NbViewportRegion& viewport = NbViewportRegion());
  static NkType getClassTypeId();
  NkType getTypeId() const override;
  static void initClass();
  static void exitClass();

  /// Empty if nothing is visible.
  const NbBox3f& getBoundingBox() const { return m_box; }
  NbVec3f getCenter() const { return m_box.getCenter(); }

  /// A shape's box in the present local space.
  void extendBy(const NbBox3f& localBox);
  /// The box of a subgraph in its own local space, under a state of another traversal.
  NbBox3f measure(NkNode* node, const NkState& state);
  /// The same from inside another traversal, under its present state. Such a call stands on the call stack for each
  /// level of a scene, on which an action takes much room: here it is gone when the call is over.
  static NbBox3f measureWithin(const NkAction& traversal, NkNode* node);
  /// Between the two, boxes are collected apart from those before, in the space of the present node; for caches. The
  /// matrix is put back by the caller.
  void beginLocalBox();
  NbBox3f endLocalBox();

protected:
  void beginTraversal() override;
  void dispatch(NkNode* node) override;

private:
  static NkType s_classTypeId;
  NbBox3f m_box;
  std::vector<NbBox3f> m_outerBoxes;
};
