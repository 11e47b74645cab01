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

  const NbMatrix& getMatrix() const { return m_state.model; }
  NbMatrix getInverse() const { return m_state.model.inverse(); }

protected:
  void dispatch(NkNode* node) override;
  bool visitsBelowPath() const override { return false; }

private:
  static NkType s_classTypeId;
};
