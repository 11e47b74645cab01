#include "arbora/scene/NkMaterial.h"

#include "arbora/scene/ColorValues.h"
#include "arbora/scene/NkAction.h"

NK_NODE_SOURCE(NkMaterial, NkNode, "Material");

NkMaterial::NkMaterial() {
  NK_NODE_CONSTRUCTOR(NkMaterial);
  NK_NODE_ADD_FIELD(ambientColor, (NbColor(0.2F, 0.2F, 0.2F)));
  NK_NODE_ADD_FIELD(diffuseColor, (NbColor(0.8F, 0.8F, 0.8F)));
  NK_NODE_ADD_FIELD(specularColor, (NbColor(0, 0, 0)));
  NK_NODE_ADD_FIELD(emissiveColor, (NbColor(0, 0, 0)));
  NK_NODE_ADD_FIELD(shininess, (0.2F));
  NK_NODE_ADD_FIELD(transparency, (0));
}

NkMaterial::~NkMaterial() = default;

void NkMaterial::doAction(NkAction* action) {
  arbora::Material& material = action->getState()->material;
  if (ambientColor.getNum() > 0) material.ambient = arbora::usableColor(ambientColor[0]);
  if (diffuseColor.getNum() > 0) material.diffuse = arbora::usableColor(diffuseColor[0]);
  if (specularColor.getNum() > 0) material.specular = arbora::usableColor(specularColor[0]);
  if (emissiveColor.getNum() > 0) material.emissive = arbora::usableColor(emissiveColor[0]);
  if (shininess.getNum() > 0) material.shininess = arbora::usableShare(shininess[0]);
  if (transparency.getNum() > 0) material.transparency = arbora::usableShare(transparency[0]);
}
