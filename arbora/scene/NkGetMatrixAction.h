#pragma once

#include "arbora/scene/NkAction.h"

/// Accumulates transforms. Applied to a path: from local space behind the path's tail, its own transform included,
/// to the space of the head. Applied to a node: the node's own transform.
class ARBORA_API NkGetMatrixAction : public NkAction {
public:
  explicit NkGetMatrixAction(const NbViewportRegion& viewport = NbViewportRegion());
  static NkType getClassTypeId();
  NkType getTypeId() const override;
  static void initClass();
  static void exitClass();

  /// The same as a search for the last node of the subgraph and a traversal of the path to it, at once.
  void applyToEnd(NkNode* root);
  bool isGoingToEnd() const { return m_isGoingToEnd; }

  const NbMatrix& getMatrix() const { return m_state.model; }
  NbMatrix getInverse() const { return m_state.model.inverse(); }

protected:
  void dispatch(NkNode* node) override;
  void endTraversal() override;
  bool visitsBelowPath() const override { return m_isGoingToEnd; }

private:
  static NkType s_classTypeId;
  bool m_isGoingToEnd = false;
  unsigned m_visits = 0;
  NbMatrix m_end; // Behind the node that was visited last.
};
