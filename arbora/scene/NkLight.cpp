#include "arbora/scene/NkLight.h"

#include <cmath>

#include "arbora/base/NkDebugError.h"
#include "arbora/scene/ColorValues.h"
#include "arbora/scene/NkAction.h"

NK_NODE_ABSTRACT_SOURCE(NkLight, NkNode, "Light");

NkLight::NkLight() {
  NK_NODE_CONSTRUCTOR(NkLight);
  NK_NODE_ADD_FIELD(on, (true));
  NK_NODE_ADD_FIELD(intensity, (1));
  NK_NODE_ADD_FIELD(color, (NbColor(1, 1, 1)));
}

NkLight::~NkLight() = default;

void NkLight::doAction(NkAction* action) {
  if (!on.getValue()) return;
  NkState& state = *action->getState();
  NbVec3f direction;
  state.model.multDirMatrix(getLocalDirection(), direction);
  const float length = direction.normalize();
  if (!(length > 0) || !std::isfinite(length)) return;
  if (state.lights.count >= arbora::LightSet::kMaxLights) {
    if (!m_reported)
      NkDebugError::postWarning("NkLight::doAction", "only %d lights act at one place; this one has no effect",
                                arbora::LightSet::kMaxLights);
    m_reported = true;
    return;
  }
  const float strength = std::isfinite(intensity.getValue()) && intensity.getValue() > 0 ? intensity.getValue() : 0.0F;
  state.lights.lights[static_cast<std::size_t>(state.lights.count++)] = {
      direction, NbColor(arbora::usableColor(color.getValue()) * strength)};
}
