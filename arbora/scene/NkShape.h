#pragma once

#include <vector>

#include "arbora/base/NbBox3f.h"
#include "arbora/scene/Mesh.h"
#include "arbora/scene/NkSubNode.h"

struct NkState;

/// Base of everything that can be seen. A class tells which meshes it consists of; drawing, picking and measuring
/// follow from that.
class ARBORA_API NkShape : public NkNode {
  NK_NODE_ABSTRACT_HEADER(NkShape);

public:
  bool affectsState() const override { return false; }
  void GLRender(NkGLRenderAction* action) override;
  void getBoundingBox(NkGetBoundingBoxAction* action) override;
  void rayPick(NkRayPickAction* action) override;

  /// The meshes of the shape in local space under the state (coordinates, font). Valid until the shape or the state
  /// changes. A shape that reads an inherited value marks it in the state.
  virtual const std::vector<arbora::PlacedMesh>& getMeshes(NkState& state) = 0;
  /// The shape's box in local space; the union of its meshes unless the class knows better.
  virtual NbBox3f computeBox(NkState& state);

protected:
  NkShape();
  ~NkShape() override;
};
