#include "arbora/scene/NkShape.h"

#include "arbora/scene/NkGLRenderAction.h"
#include "arbora/scene/NkGetBoundingBoxAction.h"
#include "arbora/scene/NkPickStyle.h"
#include "arbora/scene/NkRayPickAction.h"

NK_NODE_ABSTRACT_SOURCE(NkShape, NkNode, "Shape");

NkShape::NkShape() { NK_NODE_CONSTRUCTOR(NkShape); }

NkShape::~NkShape() = default;

void NkShape::GLRender(NkGLRenderAction* action) {
  for (const arbora::PlacedMesh& placed : getMeshes(*action->getState())) action->drawMesh(placed);
}

void NkShape::getBoundingBox(NkGetBoundingBoxAction* action) { action->extendBy(computeBox(*action->getState())); }

void NkShape::rayPick(NkRayPickAction* action) {
  NkState& state = *action->getState();
  if (state.pickStyle == NkPickStyle::UNPICKABLE) return;
  if (state.pickStyle == NkPickStyle::BOUNDING_BOX)
    action->pickBox(computeBox(state));
  else
    action->pickMeshes(getMeshes(state));
}

NbBox3f NkShape::computeBox(NkState& state) {
  NbBox3f box;
  for (const arbora::PlacedMesh& placed : getMeshes(state)) box.extendBy(placed.getBox());
  return box;
}
