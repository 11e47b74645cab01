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
  /// The box of what `traverse` visits, in the present local space; for caches.
  template <class F>
  NbBox3f measureLocally(F&& traverse) {
    const NbBox3f outer = m_box;
    const NbMatrix model = m_state.model;
    m_box.makeEmpty();
    m_state.model.makeIdentity();
    traverse();
    const NbBox3f result = m_box;
    m_box = outer;
    m_state.model = model;
    return result;
  }

 protected:
  void beginTraversal() override;
  void dispatch(NkNode* node) override;

 private:
  static NkType s_classTypeId;
  NbBox3f m_box;
};
