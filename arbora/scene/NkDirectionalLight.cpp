#include "arbora/scene/NkDirectionalLight.h"

NK_NODE_SOURCE(NkDirectionalLight, NkLight, "DirectionalLight");

NkDirectionalLight::NkDirectionalLight() {
  NK_NODE_CONSTRUCTOR(NkDirectionalLight);
  NK_NODE_ADD_FIELD(direction, (NbVec3f(0, 0, -1)));
}

NkDirectionalLight::~NkDirectionalLight() = default;

NbVec3f NkDirectionalLight::getLocalDirection() const { return direction.getValue(); }
